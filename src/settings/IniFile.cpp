#include "settings/IniFile.h"

#include "plugin/Logger.h"

#include <QFile>
#include <QSettings>

void IniFile::KeepWhatCannotBeRead(const QSettings& file)
{
    if (file.status() != QSettings::FormatError)
        return;
    const QString copy = file.fileName() + QStringLiteral(".broken");
    if (QFile::copy(file.fileName(), copy)) {
        Logger::Warning(QStringLiteral("%1 has lines that cannot be read. They are kept in %2")
                            .arg(file.fileName(), copy));
    }
}

void IniFile::Finish(QSettings& file, const QString& message)
{
    file.sync();
    if (file.status() == QSettings::AccessError)
        Logger::Error(message.arg(file.fileName()));
}
