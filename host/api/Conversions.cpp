#include "api/Conversions.h"

#include "api/Utf8.h"

#include <cstring>

namespace host::api {

namespace {

constexpr char BYTE_ORDER_MARK[] = "\xEF\xBB\xBF";

/// Keeps lone halves of surrogate pairs, which the toolkit's own conversion replaces.
MString EncodeExactly(const QString& text)
{
    std::string bytes;
    for (int i = 0; i < text.size(); ++i) {
        char32_t character = text.at(i).unicode();
        const bool isPair = text.at(i).isHighSurrogate() && i + 1 < text.size()
            && text.at(i + 1).isLowSurrogate();
        if (isPair) {
            character = QChar::surrogateToUcs4(text.at(i), text.at(i + 1));
            ++i;
        }
        AppendUtf8(bytes, character);
    }
    return {bytes.data(), static_cast<int>(bytes.size())};
}

QString DecodeExactly(const char* bytes, int length)
{
    const std::u32string characters = DecodeUtf8(bytes, static_cast<size_t>(length));
    QString text;
    text.reserve(static_cast<int>(characters.size()));
    for (const char32_t character : characters) {
        if (QChar::requiresSurrogates(character)) {
            text += QChar(QChar::highSurrogate(character));
            text += QChar(QChar::lowSurrogate(character));
        } else {
            text += QChar(static_cast<ushort>(character));
        }
    }
    return text;
}

} // namespace

QString ToQString(const MString& string)
{
    int length = 0;
    const char* bytes = string.asUTF8(length);
    // The toolkit drops a leading byte order mark.
    if (length >= 3 && std::memcmp(bytes, BYTE_ORDER_MARK, 3) == 0)
        return DecodeExactly(bytes, length);
    const QString text = QString::fromUtf8(bytes, length);
    return text.contains(QChar(QChar::ReplacementCharacter)) ? DecodeExactly(bytes, length) : text;
}

MString ToMString(const QString& text)
{
    if (!text.isValidUtf16())
        return EncodeExactly(text);
    const QByteArray bytes = text.toUtf8();
    return {bytes.constData(), bytes.size()};
}

QStringList ToStringList(const MStringArray& texts)
{
    QStringList list;
    for (const MString& text : texts)
        list += ToQString(text);
    return list;
}

MStringArray ToMStringArray(const QStringList& texts)
{
    MStringArray array;
    for (const QString& text : texts)
        array.append(ToMString(text));
    return array;
}

} // namespace host::api
