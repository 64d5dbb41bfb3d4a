#include "api/StringStorage.h"
#include "api/Utf8.h"

#include <QLocale>
#include <QString>

#include <charconv>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <ostream>

// Construction, assignment, appending, comparing and reading of MString.

OPENMAYA_MAJOR_NAMESPACE_OPEN

namespace {

std::string NumberText(double value)
{
    return QString::number(value, 'g', QLocale::FloatingPointShortest).toStdString();
}

/// A float has fewer digits than the double it converts to.
std::string NumberText(float value)
{
    char digits[64];
    const auto result = std::to_chars(digits, digits + sizeof digits - 1, value);
    *result.ptr = '\0';
    return NumberText(std::strtod(digits, nullptr));
}

std::string Encode(const wchar_t* text, int length)
{
    std::string bytes;
    for (int i = 0; i < length; ++i)
        host::api::AppendUtf8(bytes, static_cast<char32_t>(text[i]));
    return bytes;
}

unsigned int LengthOf(const char* text)
{
    return text ? static_cast<unsigned int>(std::strlen(text)) : 0;
}

int LengthOf(const wchar_t* text)
{
    return text ? static_cast<int>(std::wcslen(text)) : 0;
}

} // namespace

MString MString::argUnused;

MString::MString() = default;

MString::MString(const char* text)
{
    Append(text, LengthOf(text));
}

MString::MString(const wchar_t* text)
{
    setWChar(text);
}

MString::MString(const char* text, int length)
{
    set(text, length);
}

MString::MString(const wchar_t* text, int length)
{
    setWChar(text, length);
}

MString::MString(const MString& other)
{
    Append(other.asChar(), other.length());
}

MString::~MString()
{
    delete m_storage;
}

MString::Storage& MString::Change()
{
    if (!m_storage)
        m_storage = new Storage;
    m_storage->hasWide = false;
    return *m_storage;
}

void MString::Append(const char* text, unsigned int length)
{
    if (length > 0)
        Change().text.append(text, length);
}

MString& MString::operator=(const MString& other)
{
    if (this != &other)
        set(other.asChar(), static_cast<int>(other.length()));
    return *this;
}

MString& MString::operator=(const char* text)
{
    set(text);
    return *this;
}

MString& MString::operator=(double value)
{
    set(value);
    return *this;
}

MString& MString::operator+=(const MString& other)
{
    if (this == &other)
        return *this += MString(other);
    Append(other.asChar(), other.length());
    return *this;
}

MString& MString::operator+=(const char* text)
{
    Append(text, LengthOf(text));
    return *this;
}

MString& MString::operator+=(double value)
{
    return *this += NumberText(value).c_str();
}

MString& MString::operator+=(int value)
{
    return *this += std::to_string(value).c_str();
}

MString& MString::operator+=(unsigned int value)
{
    return *this += std::to_string(value).c_str();
}

MString& MString::operator+=(float value)
{
    return *this += NumberText(value).c_str();
}

MString MString::operator+(const MString& other) const
{
    return MString(*this) += other;
}

MString MString::operator+(const char* text) const
{
    return MString(*this) += text;
}

MString MString::operator+(double value) const
{
    return MString(*this) += value;
}

MString operator+(const char* text, const MString& string)
{
    return MString(text) += string;
}

bool MString::operator==(const MString& other) const
{
    return length() == other.length() && std::memcmp(asChar(), other.asChar(), length()) == 0;
}

bool MString::operator==(const char* text) const
{
    return length() == LengthOf(text) && std::memcmp(asChar(), text ? text : "", length()) == 0;
}

bool MString::operator!=(const MString& other) const
{
    return !(*this == other);
}

bool MString::operator!=(const char* text) const
{
    return !(*this == text);
}

MStatus MString::set(const char* text)
{
    return set(text, static_cast<int>(LengthOf(text)));
}

MStatus MString::set(const char* text, int length)
{
    if (length < 0 || (!text && length > 0))
        return MS::kInvalidParameter;
    // The text may be a part of this very string.
    std::string copy(text ? text : "", static_cast<size_t>(length));
    if (m_storage || !copy.empty())
        Change().text.swap(copy);
    return MS::kSuccess;
}

MStatus MString::set(double value)
{
    return set(NumberText(value).c_str());
}

MStatus MString::set(double value, int precision)
{
    if (precision < 0)
        return MS::kInvalidParameter;
    return set(QString::number(value, 'f', precision).toStdString().c_str());
}

MStatus MString::setUTF8(const char* text)
{
    return set(text);
}

MStatus MString::setWChar(const wchar_t* text)
{
    return setWChar(text, LengthOf(text));
}

MStatus MString::setWChar(const wchar_t* text, int length)
{
    if (length < 0 || (!text && length > 0))
        return MS::kInvalidParameter;
    const std::string bytes = Encode(text, length);
    return set(bytes.data(), static_cast<int>(bytes.size()));
}

const char* MString::asChar() const
{
    return m_storage ? m_storage->text.c_str() : "";
}

const char* MString::asChar(int& length) const
{
    length = static_cast<int>(this->length());
    return asChar();
}

const char* MString::asUTF8() const
{
    return asChar();
}

const char* MString::asUTF8(int& length) const
{
    return asChar(length);
}

const wchar_t* MString::asWChar() const
{
    if (!m_storage)
        return L"";
    if (!m_storage->hasWide) {
        const std::u32string characters
            = host::api::DecodeUtf8(m_storage->text.data(), m_storage->text.size());
        m_storage->wide.assign(characters.begin(), characters.end());
        m_storage->hasWide = true;
    }
    return m_storage->wide.c_str();
}

const wchar_t* MString::asWChar(int& length) const
{
    const wchar_t* characters = asWChar();
    length = m_storage ? static_cast<int>(m_storage->wide.size()) : 0;
    return characters;
}

unsigned int MString::length() const
{
    return m_storage ? static_cast<unsigned int>(m_storage->text.size()) : 0;
}

unsigned int MString::numChars() const
{
    int length = 0;
    asWChar(length);
    return static_cast<unsigned int>(length);
}

void MString::clear()
{
    delete m_storage;
    m_storage = nullptr;
}

const char* MString::className()
{
    return "MString";
}

std::ostream& operator<<(std::ostream& stream, const MString& string)
{
    return stream.write(string.asChar(), static_cast<std::streamsize>(string.length()));
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
