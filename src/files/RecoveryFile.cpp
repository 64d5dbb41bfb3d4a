#include "files/RecoveryFile.h"

#include "files/PosixFile.h"

#include <QCryptographicHash>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QList>

#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>

namespace {

const QByteArray FORMAT = QByteArrayLiteral("TarnwickEditor2-recovery");
constexpr int VERSION = 1;
constexpr int MAXIMUM_FIRST_LINE = 200; // bytes
constexpr QChar BYTE_ORDER_MARK(0xfeff);

const QString UTF8 = QStringLiteral("UTF-8");
const QString UTF16 = QStringLiteral("UTF-16LE");

/// The fields of the first line.
struct Frame
{
    int headerSize = 0; ///< bytes
    int textSize = 0;
    QByteArray checksum; ///< of header and text, as hexadecimal digits

    qint64 ContentSize() const { return qint64(headerSize) + textSize; }
};

QByteArray Checksum(const QByteArray& header, const QByteArray& text)
{
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(header);
    hash.addData(text);
    return hash.result().toHex();
}

/// The first line without its end; nothing when it is not one of ours.
std::optional<Frame> ReadFrame(const QByteArray& line)
{
    const QList<QByteArray> fields = line.split(' ');
    if (fields.size() != 5 || fields[0] != FORMAT || fields[1].toInt() != VERSION)
        return std::nullopt;
    Frame frame;
    bool isHeaderSize = false;
    bool isTextSize = false;
    frame.headerSize = fields[2].toInt(&isHeaderSize);
    frame.textSize = fields[3].toInt(&isTextSize);
    frame.checksum = fields[4];
    if (!isHeaderSize || !isTextSize || frame.headerSize < 0 || frame.textSize < 0)
        return std::nullopt;
    return frame;
}

// UTF-8 drops a mark at the start and cannot hold half a surrogate pair.
bool FitsUtf8(const QString& text)
{
    return text.isValidUtf16() && !text.startsWith(BYTE_ORDER_MARK);
}

QByteArray EncodeText(const QString& text)
{
    if (FitsUtf8(text))
        return text.toUtf8();
    QByteArray bytes;
    bytes.reserve(text.size() * 2);
    for (const QChar character : text) {
        bytes.append(static_cast<char>(character.cell()));
        bytes.append(static_cast<char>(character.row()));
    }
    return bytes;
}

QString DecodeText(const QByteArray& bytes, const QString& encoding)
{
    if (encoding != UTF16)
        return QString::fromUtf8(bytes);
    QString text(bytes.size() / 2, Qt::Uninitialized);
    for (int i = 0; i < text.size(); ++i)
        text[i] = QChar(static_cast<uchar>(bytes[2 * i]), static_cast<uchar>(bytes[2 * i + 1]));
    return text;
}

QJsonObject MakeHeader(const RecoverySnapshot& snapshot)
{
    const CodeEditorProperties& properties = snapshot.properties;
    return {
        {QStringLiteral("path"), properties.filePath},
        {QStringLiteral("label"), properties.label},
        {QStringLiteral("type"), static_cast<int>(properties.type)},
        {QStringLiteral("language"), static_cast<int>(properties.language)},
        {QStringLiteral("group"), snapshot.group},
        {QStringLiteral("cursor"), snapshot.cursorPosition},
        {QStringLiteral("time"), snapshot.time.toUTC().toString(Qt::ISODateWithMs)},
        {QStringLiteral("base"), QString::fromLatin1(snapshot.baseFingerprint.toHex())},
        {QStringLiteral("encoding"), FitsUtf8(snapshot.text) ? UTF8 : UTF16},
    };
}

bool IsWithin(const QJsonValue& value, int maximum)
{
    const int number = value.toInt(-1);
    return number >= 0 && number <= maximum;
}

std::optional<RecoverySnapshot> ReadHeader(const QJsonObject& header)
{
    const QJsonValue type = header[QStringLiteral("type")];
    const QJsonValue language = header[QStringLiteral("language")];
    RecoverySnapshot snapshot;
    snapshot.properties.filePath = header[QStringLiteral("path")].toString();
    if (snapshot.properties.filePath.isEmpty()
        || !IsWithin(type, static_cast<int>(CodeEditorType::File))
        || !IsWithin(language, static_cast<int>(CodeEditorLanguage::Python)))
        return std::nullopt;
    snapshot.properties.type = static_cast<CodeEditorType>(type.toInt());
    snapshot.properties.language = static_cast<CodeEditorLanguage>(language.toInt());
    snapshot.properties.label = header[QStringLiteral("label")].toString();
    snapshot.group = header[QStringLiteral("group")].toInt();
    snapshot.cursorPosition = header[QStringLiteral("cursor")].toInt();
    snapshot.time
        = QDateTime::fromString(header[QStringLiteral("time")].toString(), Qt::ISODateWithMs);
    snapshot.baseFingerprint
        = QByteArray::fromHex(header[QStringLiteral("base")].toString().toLatin1());
    return snapshot;
}

} // namespace

const QString RecoveryFile::UNFINISHED_SUFFIX = QStringLiteral(".new");

QByteArray RecoveryFile::Encode(const RecoverySnapshot& snapshot)
{
    const QByteArray header = QJsonDocument(MakeHeader(snapshot)).toJson(QJsonDocument::Compact);
    const QByteArray text = EncodeText(snapshot.text);
    const QList<QByteArray> fields = {FORMAT, QByteArray::number(VERSION),
        QByteArray::number(header.size()), QByteArray::number(text.size()), Checksum(header, text)};
    QByteArray bytes = fields.join(' ') + '\n';
    bytes.reserve(bytes.size() + header.size() + text.size());
    return bytes.append(header).append(text);
}

std::optional<RecoverySnapshot> RecoveryFile::Decode(const QByteArray& bytes)
{
    const int lineEnd = bytes.left(MAXIMUM_FIRST_LINE).indexOf('\n');
    const std::optional<Frame> frame = lineEnd < 0 ? std::nullopt : ReadFrame(bytes.left(lineEnd));
    if (!frame || bytes.size() - lineEnd - 1 != frame->ContentSize())
        return std::nullopt;
    const QByteArray header = bytes.mid(lineEnd + 1, frame->headerSize);
    const QByteArray text = bytes.mid(lineEnd + 1 + frame->headerSize);
    if (Checksum(header, text) != frame->checksum)
        return std::nullopt;
    const QJsonObject object = QJsonDocument::fromJson(header).object();
    std::optional<RecoverySnapshot> snapshot = ReadHeader(object);
    if (snapshot)
        snapshot->text = DecodeText(text, object[QStringLiteral("encoding")].toString());
    return snapshot;
}

std::optional<RecoverySnapshot> RecoveryFile::Read(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray line = file.readLine(MAXIMUM_FIRST_LINE);
    const std::optional<Frame> frame = ReadFrame(line.endsWith('\n') ? line.chopped(1) : line);
    if (!frame || file.size() - line.size() != frame->ContentSize())
        return std::nullopt;
    return Decode(line + file.readAll());
}

bool RecoveryFile::Write(const QString& path, const RecoverySnapshot& snapshot, Wait wait)
{
    const QByteArray bytes = Encode(snapshot);
    const QByteArray target = QFile::encodeName(path);
    const QByteArray beside = QFile::encodeName(path + UNFINISHED_SUFFIX);
    PosixFile file(beside, O_WRONLY | O_CREAT | O_TRUNC, S_IRUSR | S_IWUSR);
    const bool isWritten
        = file.IsOpen() && file.WriteAll(bytes) && (wait == Wait::No || file.Sync());
    file.Close();
    if (isWritten && std::rename(beside.constData(), target.constData()) == 0)
        return true;
    std::remove(beside.constData());
    return false;
}
