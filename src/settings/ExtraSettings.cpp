#include "settings/ExtraSettings.h"

#include "settings/IniFile.h"
#include "settings/IniValues.h"
#include "settings/Settings.h"

#include <QDir>
#include <QSettings>

namespace {

struct OptionRow
{
    const char* key;
    bool* value;
    bool byDefault;
};

// clang-format off
const OptionRow OPTIONS[] = {
    {"files/keepEncodingAndLineEnds", &ExtraSettings::keepEncodingAndLineEnds, false},
};
// clang-format on

} // namespace

QString ExtraSettings::GetUserConfigPath()
{
    const QString directory = Settings::GetUserConfigDirectory();
    return directory.isEmpty()
        ? QString()
        : QDir(directory).absoluteFilePath(QStringLiteral("tarnwickEditor2_extra.ini"));
}

void ExtraSettings::ReadUserConfig()
{
    for (const OptionRow& row : OPTIONS)
        *row.value = row.byDefault;
    const QString path = GetUserConfigPath();
    if (path.isEmpty())
        return;
    const QSettings file(path, QSettings::IniFormat);
    IniFile::KeepWhatCannotBeRead(file);
    for (const OptionRow& row : OPTIONS)
        IniValues::Parse(file.value(QLatin1String(row.key)), *row.value);
}

void ExtraSettings::WriteUserConfig()
{
    const QString path = GetUserConfigPath();
    if (path.isEmpty())
        return;
    QSettings file(path, QSettings::IniFormat);
    for (const OptionRow& row : OPTIONS)
        file.setValue(QLatin1String(row.key), *row.value);
    IniFile::Finish(file, QStringLiteral("Failed to write user config: %1"));
}

QVariant ExtraSettings::GetDefault(const QString& key)
{
    for (const OptionRow& row : OPTIONS) {
        if (key == QLatin1String(row.key))
            return row.byDefault;
    }
    return {};
}
