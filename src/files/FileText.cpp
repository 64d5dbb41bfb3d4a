#include "files/FileText.h"

#include "files/SafeFile.h"
#include "plugin/Logger.h"
#include "settings/Settings.h"

#include <QCryptographicHash>
#include <QCursor>
#include <QFile>
#include <QGuiApplication>
#include <QTextCodec>
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

const QTextCodec* CodecOf(FileText::Encoding encoding)
{
    const bool isUtf8
        = encoding == FileText::Encoding::Utf8 || Settings::utf8FileEncodingForReadWrite;
    return isUtf8 ? QTextCodec::codecForName("UTF-8") : QTextCodec::codecForLocale();
}

} // namespace

QString FileText::Read(const QString& path, Encoding encoding)
{
    const WaitCursor cursor;
    QFile file(path);
    if (file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        QTextStream stream(&file);
        stream.setCodec(CodecOf(encoding)->name().constData());
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
    QString reason;
    if (SafeFile::Write(path, CodecOf(encoding)->fromUnicode(text), reason))
        return true;
    Logger::Error(QStringLiteral("Failed to open file for save: %1").arg(path));
    Logger::Info(reason);
    return false;
}

QByteArray FileText::Fingerprint(const QString& path)
{
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha1);
    return file.open(QIODevice::ReadOnly) && hash.addData(&file) ? hash.result() : QByteArray();
}
