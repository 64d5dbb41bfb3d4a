#include "api/Conversions.h"
#include "api/StringStorage.h"
#include "engine/Value.h"

#include <QDir>
#include <QRegularExpression>

#include <algorithm>
#include <limits>

// Finding, cutting, case, numbers and paths of MString.

OPENMAYA_MAJOR_NAMESPACE_OPEN

namespace {

std::wstring Wide(const MString& string)
{
    int length = 0;
    const wchar_t* characters = string.asWChar(length);
    return {characters, static_cast<size_t>(length)};
}

int Position(size_t found)
{
    return found == std::string::npos ? -1 : static_cast<int>(found);
}

/// The characters from `start` to `end` of any kind of string, moved into it.
template <typename Text>
Text Cut(const Text& text, int start, int end)
{
    const int first = std::max(start, 0);
    const int last = std::min(end, static_cast<int>(text.size()) - 1);
    if (first > last)
        return {};
    return text.substr(static_cast<size_t>(first), static_cast<size_t>(last - first + 1));
}

template <typename Text>
MStatus Split(const Text& text, typename Text::value_type separator, MStringArray& pieces)
{
    pieces.clear();
    for (size_t start = 0; start < text.size();) {
        const size_t end = std::min(text.find(separator, start), text.size());
        if (end > start)
            pieces.append(MString(text.data() + start, static_cast<int>(end - start)));
        start = end + 1;
    }
    return MS::kSuccess;
}

/// Whether the whole text is a whole number that fits the type.
template <typename Number>
bool IsWhole(const MString& string)
{
    bool ok = false;
    const qlonglong value = host::api::ToQString(string).trimmed().toLongLong(&ok);
    return ok && value >= std::numeric_limits<Number>::lowest()
        && value <= std::numeric_limits<Number>::max();
}

template <typename Number>
Number WholePart(const MString& string)
{
    const double value = host::LeadingNumber(host::api::ToQString(string));
    return static_cast<Number>(
        std::clamp(value, static_cast<double>(std::numeric_limits<Number>::lowest()),
            static_cast<double>(std::numeric_limits<Number>::max())));
}

QString Expanded(const QString& text)
{
    static const QRegularExpression variable(QStringLiteral("\\$(?:\\{(\\w+)\\}|([A-Za-z_]\\w*))"));
    QString expanded;
    int copied = 0;
    auto matches = variable.globalMatch(text);
    while (matches.hasNext()) {
        const auto match = matches.next();
        const QString name = match.captured(1) + match.captured(2);
        if (!qEnvironmentVariableIsSet(name.toLocal8Bit().constData()))
            continue;
        expanded += text.mid(copied, match.capturedStart() - copied);
        expanded += qEnvironmentVariable(name.toLocal8Bit().constData());
        copied = match.capturedEnd();
    }
    expanded += text.mid(copied);
    const bool inHome = expanded == QLatin1String("~") || expanded.startsWith(QLatin1String("~/"));
    return inHome ? QDir::homePath() + expanded.mid(1) : expanded;
}

} // namespace

int MString::index(char character) const
{
    return m_storage ? Position(m_storage->text.find(character)) : -1;
}

int MString::rindex(char character) const
{
    return m_storage ? Position(m_storage->text.rfind(character)) : -1;
}

int MString::indexW(char character) const
{
    return indexW(static_cast<wchar_t>(static_cast<unsigned char>(character)));
}

int MString::indexW(wchar_t character) const
{
    return Position(Wide(*this).find(character));
}

int MString::indexW(const MString& text) const
{
    return Position(Wide(*this).find(Wide(text)));
}

int MString::rindexW(char character) const
{
    return rindexW(static_cast<wchar_t>(static_cast<unsigned char>(character)));
}

int MString::rindexW(wchar_t character) const
{
    return Position(Wide(*this).rfind(character));
}

int MString::rindexW(const MString& text) const
{
    return Position(Wide(*this).rfind(Wide(text)));
}

MString MString::substring(int start, int end) const
{
    const std::string piece = m_storage ? Cut(m_storage->text, start, end) : std::string();
    return {piece.data(), static_cast<int>(piece.size())};
}

MString MString::substringW(int start, int end) const
{
    const std::wstring piece = Cut(Wide(*this), start, end);
    return {piece.data(), static_cast<int>(piece.size())};
}

MStatus MString::split(char separator, MStringArray& pieces) const
{
    return Split(std::string(asChar(), length()), separator, pieces);
}

MStatus MString::split(wchar_t separator, MStringArray& pieces) const
{
    return Split(Wide(*this), separator, pieces);
}

MString& MString::toUpperCase()
{
    return *this = host::api::ToMString(host::api::ToQString(*this).toUpper());
}

MString& MString::toLowerCase()
{
    return *this = host::api::ToMString(host::api::ToQString(*this).toLower());
}

bool MString::isInt() const
{
    return IsWhole<int>(*this);
}

int MString::asInt() const
{
    return WholePart<int>(*this);
}

bool MString::isUnsigned() const
{
    return IsWhole<unsigned int>(*this);
}

unsigned int MString::asUnsigned() const
{
    return WholePart<unsigned int>(*this);
}

bool MString::isFloat() const
{
    bool ok = false;
    host::api::ToQString(*this).trimmed().toFloat(&ok);
    return ok;
}

float MString::asFloat() const
{
    return static_cast<float>(asDouble());
}

bool MString::isDouble() const
{
    bool ok = false;
    host::api::ToQString(*this).trimmed().toDouble(&ok);
    return ok;
}

double MString::asDouble() const
{
    return host::LeadingNumber(host::api::ToQString(*this));
}

bool MString::isShort() const
{
    return IsWhole<short>(*this);
}

short MString::asShort() const
{
    return WholePart<short>(*this);
}

MString MString::expandEnvironmentVariablesAndTilde(MStatus* ReturnStatus) const
{
    if (ReturnStatus)
        *ReturnStatus = MS::kSuccess;
    return host::api::ToMString(Expanded(host::api::ToQString(*this)));
}

MString MString::expandFilePath(MStatus* ReturnStatus) const
{
    if (ReturnStatus)
        *ReturnStatus = MS::kSuccess;
    const QString path = Expanded(host::api::ToQString(*this));
    return path.isEmpty() ? MString() : host::api::ToMString(QDir().absoluteFilePath(path));
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
