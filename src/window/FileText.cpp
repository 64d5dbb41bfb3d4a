#include "window/FileText.h"

#include "plugin/Logger.h"
#include "settings/Settings.h"

#include <QApplication>
#include <QFile>
#include <QTextStream>

namespace {

/// Shows the wait cursor while it lives.
class WaitCursor
{
public:
    WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

void SetCodec(QTextStream& stream)
{
    // Otherwise the locale's, as the stream has it.
    if (Settings::utf8FileEncodingForReadWrite)
        stream.setCodec("UTF-8");
}

} // namespace

QString FileText::Read(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        Logger::Error(QStringLiteral("Failed to open file: %1").arg(path));
        return QString();
    }
    const WaitCursor cursor;
    QTextStream stream(&file);
    SetCodec(stream);
    const QString text = stream.readAll();
    return text.isNull() ? QStringLiteral("") : text;
}

bool FileText::Write(const QString& path, const QString& text)
{
    QFile file(path);
    const WaitCursor cursor;
    if (file.open(QIODevice::WriteOnly | QIODevice::Text | QIODevice::Truncate)) {
        QTextStream stream(&file);
        SetCodec(stream);
        stream << text;
        stream.flush();
        if (stream.status() == QTextStream::Ok && file.flush())
            return true;
    }
    Logger::Error(QStringLiteral("Failed to open file for save: %1").arg(path));
    return false;
}
