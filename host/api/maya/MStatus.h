#pragma once

#include <maya/MApiNamespace.h>

#include <iosfwd>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// Whether a call of the API succeeded, and why not. A value of a few bytes; any thread.
class OPENMAYA_EXPORT MStatus
{
public:
    enum MStatusCode {
        kSuccess = 0,
        kFailure,
        kInsufficientMemory,
        kInvalidParameter,
        kLicenseFailure,
        kUnknownParameter,
        kNotImplemented,
        kNotFound,
        kEndOfFile
    };

    MStatus();
    MStatus(MStatusCode code);
    MStatus(const MStatus& other);
    ~MStatus();
    MStatus& operator=(const MStatus& other);

    bool operator==(const MStatus& other) const;
    bool operator==(const MStatusCode code) const;
    bool operator!=(const MStatus& other) const;
    bool operator!=(const MStatusCode code) const;
    friend OPENMAYA_EXPORT bool operator==(const MStatusCode code, const MStatus& status);
    friend OPENMAYA_EXPORT bool operator!=(const MStatusCode code, const MStatus& status);

    /// True when there is no error. A comparison with a plain 0 goes through this and is therefore
    /// true on failure: compare with kSuccess.
    operator bool() const;
    bool error() const;
    void clear();
    void setSuccess();

    MStatusCode statusCode() const;
    /// "(kFailure): Unexpected Internal Failure"; "Success" when there is no error.
    MString errorString() const;
    /// Writes "prefix: error string" and a line feed to the standard error stream.
    void perror(const char* prefix) const;
    void perror(const MString& prefix) const;
    /// What the CHECK_MSTATUS macros write.
    void pAPIerror(const char* file, int line) const;

    /// For the host's own use: `internalStatusCode` picks the phrase of the error string.
    void set(bool status, unsigned char statusCode, unsigned char internalStatusCode);

    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& stream, const MStatus& status);

private:
    MStatusCode m_code = kSuccess;
    unsigned char m_internalCode = 0;
};

OPENMAYA_EXPORT bool operator==(const MStatus::MStatusCode code, const MStatus& status);
OPENMAYA_EXPORT bool operator!=(const MStatus::MStatusCode code, const MStatus& status);
OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& stream, const MStatus& status);

using MS = MStatus;

OPENMAYA_MAJOR_NAMESPACE_CLOSE

/// Each evaluates its argument once and writes a failing status to the standard error stream.
#define CHECK_MSTATUS(status)                                                                      \
    {                                                                                              \
        const MStatus checkedMayaStatus = (status);                                                \
        if (checkedMayaStatus.error())                                                             \
            checkedMayaStatus.pAPIerror(__FILE__, __LINE__);                                       \
    }

#define CHECK_MSTATUS_AND_RETURN(status, value)                                                    \
    {                                                                                              \
        const MStatus checkedMayaStatus = (status);                                                \
        if (checkedMayaStatus.error()) {                                                           \
            checkedMayaStatus.pAPIerror(__FILE__, __LINE__);                                       \
            return (value);                                                                        \
        }                                                                                          \
    }

#define CHECK_MSTATUS_AND_RETURN_IT(status)                                                        \
    {                                                                                              \
        const MStatus checkedMayaStatus = (status);                                                \
        if (checkedMayaStatus.error()) {                                                           \
            checkedMayaStatus.pAPIerror(__FILE__, __LINE__);                                       \
            return checkedMayaStatus;                                                              \
        }                                                                                          \
    }
