#include "files/FileText.h"

#include "plugin/Logger.h"
#include "settings/Settings.h"

#include <QCryptographicHash>
#include <QCursor>
#include <QFile>
#include <QGuiApplication>
#include <QSaveFile>
#include <QTextStream>

namespace {

/// Shows the wait cursor while it lives.
class WaitCursor
{
public:
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

void SetCodec(QTextStream& stream, FileText::Encoding encoding)
{
    // Otherwise the locale's, as the stream has it.
    if (encoding == FileText::Encoding::Utf8 || Settings::utf8FileEncodingForReadWrite)
        stream.setCodec("UTF-8");
}

} // namespace

QString FileText::Read(const QString& path, Encoding encoding)
{
    const WaitCursor cursor;
    QFile file(path);
    if (file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        QTextStream stream(&file);
        SetCodec(stream, encoding);
        const QString text = stream.readAll();
        if (file.error() == QFile::NoError)
            return text.isNull() ? QStringLiteral("") : text;
    }
    Logger::Error(QStringLiteral("Failed to open file: %1").arg(path));
    return QString();
}

bool FileText::Write(const QString& path, const QString& text, Encoding encoding)
{
    const WaitCursor cursor;
    QSaveFile file(path);
    // A file may be writable where its folder is not.
    file.setDirectWriteFallback(true);
    if (file.open(QIODevice::WriteOnly | QIODevice::Text)) {
        QTextStream stream(&file);
        SetCodec(stream, encoding);
        stream << text;
        stream.flush();
        if (stream.status() == QTextStream::Ok && file.commit())
            return true;
    }
    Logger::Error(QStringLiteral("Failed to open file for save: %1").arg(path));
    return false;
}

QByteArray FileText::Fingerprint(const QString& path)
{
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha1);
    return file.open(QIODevice::ReadOnly) && hash.addData(&file) ? hash.result() : QByteArray();
}
