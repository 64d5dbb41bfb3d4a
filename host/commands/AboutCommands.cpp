#include "commands/Tables.h"
#include "engine/Engine.h"

#include <QDateTime>
#include <QFontInfo>
#include <QGuiApplication>
#include <QLocale>
#include <QSysInfo>

#include <sys/utsname.h>

namespace host::commands {

namespace {

QString Latin1(const char* text)
{
    return QString::fromLatin1(text);
}

const Paths& HostPaths()
{
    return Engine::Current().paths;
}

Value Release()
{
    return Latin1(RELEASE);
}

Value Product()
{
    return QString(QStringLiteral("Maya ") + Latin1(RELEASE));
}

Value SystemVersion()
{
    utsname system{};
    if (uname(&system) != 0)
        return QString();
    return QStringList{QString::fromLocal8Bit(system.sysname),
        QString::fromLocal8Bit(system.release), QString::fromLocal8Bit(system.version),
        QString::fromLocal8Bit(system.machine)}
        .join(QLatin1Char(' '));
}

Value Now(const char* format)
{
    return QDateTime::currentDateTime().toString(QLatin1String(format));
}

Value CTime()
{
    // C's own format, whatever the locale: "Sun May  4 14:27:53 2003" and a line feed.
    const QDateTime now = QDateTime::currentDateTime();
    return QString(QLocale::c().toString(now, QStringLiteral("ddd MMM "))
        + QStringLiteral("%1").arg(now.date().day(), 2)
        + now.toString(QStringLiteral(" HH:mm:ss yyyy\n")));
}

struct AboutRow
{
    const char* flag;
    Value (*value)();
};

// clang-format off
const AboutRow ABOUT[] = {
    {"apiVersion",                [] { return Value(API_VERSION); }},
    {"application",               [] { return Value(QStringLiteral("maya")); }},
    {"arm64",                     [] { return Value(QSysInfo::buildCpuArchitecture() == QLatin1String("arm64")); }},
    {"batch",                     [] { return Value(Engine::Current().IsBatch()); }},
    {"buildDirectory",            [] { return Value(HostPaths().InstallDirectory()); }},
    {"buildVariant",              [] { return Value(QStringLiteral("Standard")); }},
    {"codeset",                   [] { return Value(QStringLiteral("UTF-8")); }},
    {"compositingManager",         [] { return Value(qEnvironmentVariableIsSet("DISPLAY")); }},
    {"connected",                 [] { return Value(false); }},
    {"creativeVersion",            [] { return Value(false); }},
    {"ctime",                     CTime},
    {"currentDate",               [] { return Now("yyyy/MM/dd"); }},
    {"currentTime",               [] { return Now("HH:mm:ss"); }},
    {"customVersion",             [] { return Value(QString()); }},
    {"customVersionClient",        [] { return Value(QString()); }},
    {"customVersionMajor",         [] { return Value(QString()); }},
    {"customVersionMinor",         [] { return Value(QString()); }},
    {"customVersionString",        [] { return Value(QString()); }},
    {"cutIdentifier",             [] { return Value(QStringLiteral("202400000000")); }},
    {"date",                      [] { return Value(QStringLiteral("2024/01/01")); }},
    {"environmentFile",           [] { return Value(HostPaths().EnvironmentFile()); }},
    {"evalVersion",               [] { return Value(false); }},
    {"file",                      Release},
    {"fontInfo",                   [] { return Value(QString(QGuiApplication::font().family() + QLatin1Char(' ') + QString::number(QFontInfo(QGuiApplication::font()).pixelSize()))); }},
    {"helpDataDirectory",         [] { return Value(QString(HostPaths().InstallDirectory() + QLatin1String("/docs"))); }},
    {"installedVersion",          Product},
    {"ioVersion",                  [] { return Value(false); }},
    {"irix",                      [] { return Value(false); }},
    {"is64",                      [] { return Value(QSysInfo::WordSize == 64); }},
    {"languageResources",          [] { return Value(StringList()); }},
    {"linux",                     [] { return Value(true); }},
    {"linux64",                   [] { return Value(QSysInfo::WordSize == 64); }},
    {"liveUpdate",                 [] { return Value(false); }},
    {"localizedResourceLocation",  [] { return Value(QString()); }},
    {"ltVersion",                 [] { return Value(false); }},
    {"macOS",                     [] { return Value(false); }},
    {"macOSASi",                   [] { return Value(false); }},
    {"macOSppc",                  [] { return Value(false); }},
    {"macOSx86",                  [] { return Value(false); }},
    {"majorVersion",              Release},
    {"minorVersion",              [] { return Value(QStringLiteral("0")); }},
    {"ntOS",                      [] { return Value(false); }},
    {"operatingSystem",           [] { return Value(QStringLiteral("linux64")); }},
    {"operatingSystemVersion",    SystemVersion},
    {"patchVersion",              [] { return Value(QStringLiteral("0")); }},
    {"preferences",               [] { return Value(HostPaths().VersionDirectory()); }},
    {"product",                   Product},
    {"qtVersion",                 [] { return Value(Latin1(qVersion())); }},
    {"tablet",                     [] { return Value(false); }},
    {"tabletMode",                 [] { return Value(0); }},
    {"uiLanguage",                [] { return Value(QStringLiteral("en_US")); }},
    {"uiLanguageForStartup",      [] { return Value(QStringLiteral("en_US")); }},
    {"uiLanguageIsLocalized",     [] { return Value(false); }},
    {"uiLocaleLanguage",          [] { return Value(QStringLiteral("en_US")); }},
    {"version",                   Release},
    {"win64",                     [] { return Value(false); }},
    {"windowManager",              [] { return Value(QString()); }},
    {"windows",                   [] { return Value(false); }},
};
// clang-format on

Outcome About(Call& call)
{
    if (call.GivenFlags().isEmpty())
        return Product();
    for (const AboutRow& row : ABOUT) {
        if (call.GivenFlags().first() == QLatin1String(row.flag))
            return row.value();
    }
    Q_UNREACHABLE();
}

struct FolderRow
{
    const char* flag;
    QString (*path)(const Paths&);
};

/// Below the preferences folder.
template <const char* Name>
QString InPreferences(const Paths& paths)
{
    return paths.PreferencesDirectory() + QLatin1Char('/') + QLatin1String(Name);
}

constexpr char ICONS[] = "icons";
constexpr char HOTKEYS[] = "hotkeys";
constexpr char MARKING_MENUS[] = "markingMenus";
constexpr char SHELVES[] = "shelves";

// clang-format off
const FolderRow FOLDERS[] = {
    {"mayaInstallDir",     [](const Paths& paths) { return paths.InstallDirectory(); }},
    {"userAppDir",         [](const Paths& paths) { return paths.ApplicationDirectory(); }},
    {"userBitmapsDir",     InPreferences<ICONS>},
    {"userHotkeyDir",      InPreferences<HOTKEYS>},
    {"userMarkingMenuDir", InPreferences<MARKING_MENUS>},
    {"userPrefDir",        [](const Paths& paths) { return paths.PreferencesDirectory(); }},
    {"userPresetsDir",     [](const Paths& paths) -> QString { return paths.VersionDirectory() + QLatin1String("/presets"); }},
    {"userScriptDir",      [](const Paths& paths) { return paths.UserScriptsDirectory(); }},
    {"userShelfDir",       InPreferences<SHELVES>},
    {"userTmpDir",         [](const Paths& paths) { return paths.TemporaryDirectory(); }},
    {"userWorkspaceDir",   [](const Paths& paths) -> QString { return paths.ApplicationDirectory() + QLatin1String("/projects"); }},
};
// clang-format on

Outcome InternalVar(Call& call)
{
    for (const FolderRow& row : FOLDERS) {
        if (call.Has(row.flag))
            return QString(row.path(HostPaths()) + QLatin1Char('/'));
    }
    return Error{QStringLiteral("internalVar needs one flag.")};
}

const CommandRow COMMANDS[] = {
    {"about", "any", "", "",
        "apiVersion/api - c; application/a - c; arm64/a64 - c; batch/b - c; buildDirectory/bd - c;"
        "buildVariant/bv - c; codeset/cs - c; connected/cnt - c; ctime/cti - c;"
        "currentDate/cd - c; currentTime/ct - c; customVersion/cv - c; cutIdentifier/c - c;"
        "date/d - c; environmentFile/env - c; evalVersion/ev - c; file/f - c;"
        "helpDataDirectory/hdd - c; installedVersion/iv - c; irix/ir - c; is64/x64 - c;"
        "linux/li - c; linux64/l64 - c; ltVersion/lt - c; macOS/mac - c; macOSppc/ppc - c;"
        "macOSx86/x86 - c; majorVersion/mjv - c; minorVersion/mnv - c; ntOS/nt - c;"
        "operatingSystem/os - c; operatingSystemVersion/osv - c; patchVersion/pv - c;"
        "preferences/pd - c; product/p - c; qtVersion/qt - c; uiLanguage/uil - c;"
        "uiLanguageForStartup/uis - c; uiLanguageIsLocalized/uii - c; uiLocaleLanguage/ull - c;"
        "version/v - c; win64/w64 - c; windows/win - c;"
        "compositingManager/cm - c; creativeVersion/cre - c; customVersionClient/cvc - c; "
        "customVersionMajor/cvm - c;"
        "customVersionMinor/cvn - c; customVersionString/cvs - c; fontInfo/foi - c; ioVersion/io - "
        "c;"
        "languageResources/lr - c; liveUpdate/lu - c; localizedResourceLocation/lrl - c; "
        "macOSASi/asi - c;"
        "tablet/tab - c; tabletMode/tm - c; windowManager/wm - c;",
        About},
    {"internalVar", "string", "", "",
        "mayaInstallDir/mid - c; userAppDir/uad - c; userBitmapsDir/ubd - c; userHotkeyDir/uhk - c;"
        "userMarkingMenuDir/umm - c; userPrefDir/upd - c; userPresetsDir/ups - c;"
        "userScriptDir/usd - c; userShelfDir/ush - c; userTmpDir/utd - c; userWorkspaceDir/uwd - c",
        InternalVar},
};

} // namespace

void RegisterAbout(CommandRegistry& registry)
{
    registry.Register(COMMANDS);
}

} // namespace host::commands
