#include "window/BufferFile.h"

#include "plugin/Logger.h"

#include <QFile>
#include <QSaveFile>

namespace {

void SetAside(const QString& path)
{
    const QString aside = path + QStringLiteral(".unreadable");
    QFile::remove(aside);
    if (!QFile::rename(path, aside))
        Logger::Error(QStringLiteral("Failed to rename file: %1").arg(path));
}

} // namespace

QString BufferFile::Read(const QString& path)
{
    QFile file(path);
    if (!file.exists())
        return QStringLiteral("");
    if (!file.open(QIODevice::ReadOnly)) {
        Logger::Error(QStringLiteral("Failed to open file: %1").arg(path));
        SetAside(path);
        return QStringLiteral("");
    }
    return QString::fromUtf8(file.readAll());
}

bool BufferFile::Write(const QString& path, const QString& text)
{
    QSaveFile file(path);
    const QByteArray bytes = text.toUtf8();
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit())
        return true;
    Logger::Error(QStringLiteral("Failed to open file for save: %1").arg(path));
    return false;
}
