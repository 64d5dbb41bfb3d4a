// The user's INI files: whatever they hold, reading them and writing them comes to rest.

#include "fuzz/Fuzz.h"
#include "fuzz/FuzzHost.h"
#include "settings/ColorSettings.h"
#include "settings/ExtraSettings.h"
#include "settings/KeyBindings.h"
#include "settings/Settings.h"

#include <QByteArrayList>

#include <algorithm>

using fuzz::Expect;
using fuzz::FuzzHost;

namespace {

struct File
{
    QString name;
    void (*readAndWrite)();
};

void ReadAndWriteSettings()
{
    Settings::ResetToDefaults();
    Settings::ReadUserConfig();
    Settings::WriteUserConfig();
    Expect(Settings::codeEditorVisible || Settings::outputVisible,
        QStringLiteral("one of the panels shows"));
    Expect(Settings::numRecentFiles >= Settings::MINIMUM_RECENT_FILES
            && Settings::numRecentFiles <= Settings::MAXIMUM_RECENT_FILES,
        QStringLiteral("a number of recent files that there can be"));
}

void ReadAndWriteColors()
{
    ColorSettings::ReadUserConfig();
    // Without any rule the next start has the built-in ones.
    if (ColorSettings::outputUserDefinedSelections.isEmpty())
        ColorSettings::outputUserDefinedSelections = ColorSettings::GetBuiltInSelections();
    ColorSettings::WriteUserConfig();
}

void ReadAndWriteBindings()
{
    KeyBindings bindings;
    bindings.ReadUserKeyBindings();
    bindings.WriteUserKeyBindings();
}

/// Each with its group. Of ten or more rules the tenth comes behind the first, and so each time
/// they change places. Names that the toolkit has to escape are not ours, and may move to other
/// groups.
QByteArrayList Entries(const QByteArray& file)
{
    QByteArrayList entries;
    QByteArray group;
    for (QByteArray line : file.split('\n')) {
        if (line.startsWith('['))
            group = line;
        const int equals = line.indexOf('=');
        const QByteArray name = group + line.left(equals);
        if (equals <= 0 || name.contains('\\') || name.contains('%'))
            continue;
        if (line.at(0) >= '0' && line.at(0) <= '9')
            line.remove(0, equals);
        entries += group + line;
    }
    std::sort(entries.begin(), entries.end());
    return entries;
}

void ReadAndWriteExtra()
{
    ExtraSettings::ReadUserConfig();
    ExtraSettings::WriteUserConfig();
}

} // namespace

TE2_FUZZ_TARGET(SettingsFiles)
{
    static const File files[] = {
        {QStringLiteral("tarnwickEditor2.ini"), ReadAndWriteSettings},
        {QStringLiteral("tarnwickEditor2_colors.ini"), ReadAndWriteColors},
        {QStringLiteral("tarnwickEditor2_bindings.ini"), ReadAndWriteBindings},
        {QStringLiteral("tarnwickEditor2_extra.ini"), ReadAndWriteExtra},
    };
    FuzzHost& host = FuzzHost::Get();
    host.RemoveFiles();
    const File& file = files[input.Number(4)];
    host.WriteFile(file.name, input.Rest());
    file.readAndWrite();
    const QByteArray once = host.ReadFile(file.name);
    Expect(!once.isEmpty(), QStringLiteral("something is written"));
    host.WriteFile(file.name, once);
    file.readAndWrite();
    const QByteArray twice = host.ReadFile(file.name);
    Expect(Entries(once) == Entries(twice),
        QStringLiteral("what was written is read back\n%1\n---\n%2")
            .arg(QString::fromUtf8(once), QString::fromUtf8(twice)));
}
