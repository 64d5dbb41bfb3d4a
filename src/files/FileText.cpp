#include "files/FileText.h"

#include "files/LineEnds.h"
#include "files/SafeFile.h"
#include "files/TextBytes.h"
#include "files/TextFormat.h"
#include "plugin/Logger.h"
#include "settings/Settings.h"

#include <QCryptographicHash>
#include <QCursor>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTextCodec>

namespace {

const char* const UTF8 = "UTF-8";
/// An editor cannot count more.
constexpr qint64 MAXIMUM_SIZE = 1 << 30; // bytes

/// Shows the wait cursor while it lives.
class WaitCursor
{
public:
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

QString DecodeOwn(const QByteArray& bytes)
{
    QString text = TextBytes::Decode(bytes, *QTextCodec::codecForName(UTF8));
    LineEnds::Take(text);
    return text.isNull() ? QStringLiteral("") : text;
}

QByteArray EncodeOwn(const QString& text)
{
    return TextBytes::Encode(
        text, *QTextCodec::codecForName(UTF8), TextBytes::OddCharacters::AsBytes);
}

} // namespace

const QTextCodec& FileText::ChosenCodec()
{
    return Settings::utf8FileEncodingForReadWrite ? *QTextCodec::codecForName(UTF8)
                                                  : *QTextCodec::codecForLocale();
}

QString FileText::Read(const QString& path, Encoding encoding)
{
    QByteArray bytes;
    if (!ReadBytes(path, bytes))
        return QString();
    return encoding == Encoding::Utf8 ? DecodeOwn(bytes) : ReadFormatted(bytes, ChosenCodec()).text;
}

bool FileText::Write(const QString& path, const QString& text, Encoding encoding)
{
    return WriteBytes(
        path, encoding == Encoding::Utf8 ? EncodeOwn(text) : FormatPlainly(text, ChosenCodec()));
}

bool FileText::ReadBytes(const QString& path, QByteArray& bytes)
{
    const WaitCursor cursor;
    QFile file(path);
    // A pipe could keep everybody waiting, a device could have no end.
    if (QFileInfo(path).isFile() && file.size() <= MAXIMUM_SIZE && file.open(QIODevice::ReadOnly)) {
        bytes = file.readAll();
        if (file.error() == QFile::NoError)
            return true;
    }
    Logger::Error(QStringLiteral("Failed to open file: %1").arg(path));
    return false;
}

bool FileText::WriteBytes(const QString& path, const QByteArray& bytes)
{
    const WaitCursor cursor;
    QString reason;
    if (SafeFile::Write(path, bytes, reason))
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

QByteArray FileText::FingerprintOf(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1);
}
