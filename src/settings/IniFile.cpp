#include "settings/IniFile.h"

#include "plugin/Logger.h"

#include <QFile>
#include <QSettings>

namespace {

bool IsCopy(const QString& path, const QString& of)
{
    QFile left(path);
    QFile right(of);
    return left.open(QIODevice::ReadOnly) && right.open(QIODevice::ReadOnly)
        && left.readAll() == right.readAll();
}

/// The first name that is free or has the copy already: an older copy is the last of its lines.
QString CopyPath(const QString& path)
{
    QString copy = path + QStringLiteral(".broken");
    for (int number = 2; QFile::exists(copy) && !IsCopy(copy, path); ++number)
        copy = QStringLiteral("%1.broken%2").arg(path, QString::number(number));
    return copy;
}

} // namespace

void IniFile::KeepWhatCannotBeRead(const QSettings& file)
{
    file.allKeys(); // the groups are not looked into before somebody asks
    if (file.status() == QSettings::FormatError)
        KeepCopy(file);
}

void IniFile::KeepCopy(const QSettings& file)
{
    const QString copy = CopyPath(file.fileName());
    if (QFile::copy(file.fileName(), copy)) {
        Logger::Warning(QStringLiteral("%1 has lines that cannot be read. They are kept in %2")
                            .arg(file.fileName(), copy));
    }
}

bool IniFile::Finish(QSettings& file, const QString& message)
{
    file.sync();
    if (file.status() != QSettings::AccessError)
        return true;
    Logger::Error(message.arg(file.fileName()));
    return false;
}
