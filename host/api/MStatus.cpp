#include "api/StatusDetails.h"

#include <maya/MStatus.h>
#include <maya/MString.h>

#include <iostream>
#include <iterator>

OPENMAYA_MAJOR_NAMESPACE_OPEN

namespace {

struct CodeRow
{
    const char* name;
    const char* phrase;
};

// In the order of the enumeration.
constexpr CodeRow CODES[] = {
    {"kSuccess", "Success"},
    {"kFailure", "Unexpected Internal Failure"},
    {"kInsufficientMemory", "Not enough memory"},
    {"kInvalidParameter", "Invalid parameter"},
    {"kLicenseFailure", "No licence for this operation"},
    {"kUnknownParameter", "Unknown parameter"},
    {"kNotImplemented", "Not implemented"},
    {"kNotFound", "Object not found"},
    {"kEndOfFile", "End of file"},
};

// In the order of host::api::StatusDetail; the first stands for the code's own phrase.
constexpr const char* DETAILS[] = {
    nullptr,
    "Object already exists",
    "Object does not exist",
    "Only possible on the main thread",
};

const CodeRow& RowOf(MStatus::MStatusCode code)
{
    const auto index = static_cast<size_t>(code);
    return index < std::size(CODES) ? CODES[index] : CODES[MStatus::kFailure];
}

const char* PhraseOf(MStatus::MStatusCode code, unsigned char detail)
{
    if (detail == 0 || detail >= std::size(DETAILS))
        return RowOf(code).phrase;
    return DETAILS[detail];
}

} // namespace

MStatus::MStatus() = default;
MStatus::MStatus(MStatusCode code)
    : m_code(code)
{ }
MStatus::MStatus(const MStatus& other) = default;
MStatus::~MStatus() = default;
MStatus& MStatus::operator=(const MStatus& other) = default;

bool MStatus::operator==(const MStatus& other) const
{
    return m_code == other.m_code;
}

bool MStatus::operator==(const MStatusCode code) const
{
    return m_code == code;
}

bool MStatus::operator!=(const MStatus& other) const
{
    return m_code != other.m_code;
}

bool MStatus::operator!=(const MStatusCode code) const
{
    return m_code != code;
}

bool operator==(const MStatus::MStatusCode code, const MStatus& status)
{
    return status.m_code == code;
}

bool operator!=(const MStatus::MStatusCode code, const MStatus& status)
{
    return status.m_code != code;
}

MStatus::operator bool() const
{
    return m_code == kSuccess;
}

bool MStatus::error() const
{
    return m_code != kSuccess;
}

void MStatus::clear()
{
    m_code = kSuccess;
    m_internalCode = 0;
}

void MStatus::setSuccess()
{
    clear();
}

MStatus::MStatusCode MStatus::statusCode() const
{
    return m_code;
}

MString MStatus::errorString() const
{
    if (m_code == kSuccess)
        return RowOf(m_code).phrase;
    return MString("(") + RowOf(m_code).name + "): " + PhraseOf(m_code, m_internalCode);
}

void MStatus::perror(const char* prefix) const
{
    std::cerr << (prefix ? prefix : "") << ": " << errorString() << std::endl;
}

void MStatus::perror(const MString& prefix) const
{
    perror(prefix.asChar());
}

void MStatus::pAPIerror(const char* file, int line) const
{
    std::cerr << "\nAPI error detected in " << file << " at line " << line << "\n"
              << errorString() << std::endl;
}

void MStatus::set(bool status, unsigned char statusCode, unsigned char internalStatusCode)
{
    m_code = status ? kSuccess : static_cast<MStatusCode>(statusCode);
    m_internalCode = internalStatusCode;
}

std::ostream& operator<<(std::ostream& stream, const MStatus& status)
{
    return stream << '(' << static_cast<int>(status.m_code)
                  << "): " << PhraseOf(status.m_code, status.m_internalCode);
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE

namespace host::api {

MStatus DetailedStatus(MStatus::MStatusCode code, StatusDetail detail)
{
    MStatus status;
    status.set(false, static_cast<unsigned char>(code), static_cast<unsigned char>(detail));
    return status;
}

} // namespace host::api
