#include "files/FileText.h"

#include "files/LineEnds.h"
#include "files/SafeFile.h"
#include "files/TextBytes.h"
#include "files/TextFormat.h"
#include "plugin/Logger.h"
#include "settings/Settings.h"

#include <QCursor>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTextCodec>

#include <cstring>

namespace {

const char* const UTF8 = "UTF-8";
/// An editor cannot count more.
constexpr qint64 MAXIMUM_SIZE = 1 << 30; // bytes
constexpr qint64 FINGERPRINT_STEP = 1 << 20; // bytes

/// Shows the wait cursor while it lives.
class WaitCursor
{
public:
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

/// Two sums of 64 bits that go through the bytes in different ways, and how many there are. Nobody
/// who means harm can gain by making two contents alike; the time of a better hash is felt.
class ContentSum
{
public:
    /// Every piece but the last has a size that is a multiple of eight.
    void Add(const QByteArray& bytes)
    {
        m_size += static_cast<quint64>(bytes.size());
        const char* at = bytes.constData();
        const char* const end = at + bytes.size();
        for (; end - at >= 8; at += 8)
            Mix(at, 8);
        if (at < end)
            Mix(at, static_cast<size_t>(end - at));
    }
    QByteArray Get() const
    {
        const quint64 sums[] = {m_first, m_second, m_size};
        return QByteArray(reinterpret_cast<const char*>(sums), sizeof sums).toHex();
    }

private:
    void Mix(const char* bytes, size_t size)
    {
        quint64 word = 0;
        std::memcpy(&word, bytes, size);
        m_first = (m_first ^ word) * 0x9e3779b97f4a7c15u;
        m_first ^= m_first >> 32;
        m_second = (m_second + word) * 0xff51afd7ed558ccdu;
        m_second = (m_second << 29) | (m_second >> 35);
    }

    quint64 m_first = 1;
    quint64 m_second = 2;
    quint64 m_size = 0;
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
    if (!file.open(QIODevice::ReadOnly))
        return QByteArray();
    ContentSum sum;
    for (QByteArray piece = file.read(FINGERPRINT_STEP); !piece.isEmpty();
         piece = file.read(FINGERPRINT_STEP))
        sum.Add(piece);
    return file.error() == QFile::NoError ? sum.Get() : QByteArray();
}

QByteArray FileText::FingerprintOf(const QByteArray& bytes)
{
    ContentSum sum;
    sum.Add(bytes);
    return sum.Get();
}
