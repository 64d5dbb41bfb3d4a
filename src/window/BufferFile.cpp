#include "window/BufferFile.h"

#include "plugin/Logger.h"

#include <QFile>
#include <QSaveFile>

QString BufferFile::Read(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        Logger::Error(QStringLiteral("Failed to open file: %1").arg(path));
        return QString();
    }
    const QString text = QString::fromUtf8(file.readAll());
    return text.isNull() ? QStringLiteral("") : text;
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
