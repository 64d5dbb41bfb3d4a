#pragma once

#include <maya/MStatus.h>

#include <iosfwd>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// A text of the API. Kept as UTF-8; bytes in, the same bytes out. A value: copies are independent,
/// and one string may be used by one thread at a time.
class OPENMAYA_EXPORT MString
{
public:
    MString();
    MString(const char* text);
    MString(const wchar_t* text);
    MString(const char* text, int length);
    MString(const wchar_t* text, int length);
    MString(const MString& other);
    ~MString();

    MString& operator=(const MString& other);
    MString& operator=(const char* text);
    MString& operator=(double value);

    MString& operator+=(const MString& other);
    MString& operator+=(const char* text);
    MString& operator+=(double value);
    MString& operator+=(int value);
    MString& operator+=(unsigned int value);
    MString& operator+=(float value);

    MString operator+(const MString& other) const;
    MString operator+(const char* text) const;
    MString operator+(double value) const;
    friend OPENMAYA_EXPORT MString operator+(const char* text, const MString& string);

    bool operator==(const MString& other) const;
    bool operator==(const char* text) const;
    bool operator!=(const MString& other) const;
    bool operator!=(const char* text) const;

    MStatus set(const char* text);
    MStatus set(const char* text, int length);
    MStatus set(double value);
    MStatus set(double value, int precision);
    MStatus setUTF8(const char* text);
    MStatus setWChar(const wchar_t* text);
    MStatus setWChar(const wchar_t* text, int length);

    /// The pointers belong to the string and last until it changes.
    const char* asChar() const;
    const char* asChar(int& length) const;
    const char* asUTF8() const;
    const char* asUTF8(int& length) const;
    const wchar_t* asWChar() const;
    const wchar_t* asWChar(int& length) const;

    /// Bytes of asChar.
    unsigned int length() const;
    /// Characters (code points).
    unsigned int numChars() const;
    void clear();

    /// Positions count bytes from 0, those of the W forms characters; -1 when absent.
    int index(char character) const;
    int rindex(char character) const;
    int indexW(char character) const;
    int indexW(wchar_t character) const;
    int indexW(const MString& text) const;
    int rindexW(char character) const;
    int rindexW(wchar_t character) const;
    int rindexW(const MString& text) const;

    /// From `start` to `end`, both included; ends outside the text are moved into it.
    MString substring(int start, int end) const;
    MString substringW(int start, int end) const;
    /// The pieces between the separators, without empty ones.
    MStatus split(char separator, MStringArray& pieces) const;
    MStatus split(wchar_t separator, MStringArray& pieces) const;

    MString& toUpperCase();
    MString& toLowerCase();

    /// True when the whole text is such a number. The readers take the number that the text
    /// begins with, 0 when there is none.
    bool isInt() const;
    int asInt() const;
    bool isUnsigned() const;
    unsigned int asUnsigned() const;
    bool isFloat() const;
    float asFloat() const;
    bool isDouble() const;
    double asDouble() const;
    bool isShort() const;
    short asShort() const;

    MString expandEnvironmentVariablesAndTilde(MStatus* ReturnStatus = nullptr) const;
    MString expandFilePath(MStatus* ReturnStatus = nullptr) const;

    /// Puts the arguments in place of ^1s to ^10s; a marker without argument stays as it is.
    MStatus format(const MString& fmt, const MStringArray& args);
    MStatus format(const MString& fmt, const MString& arg1 = MString::argUnused,
        const MString& arg2 = MString::argUnused, const MString& arg3 = MString::argUnused,
        const MString& arg4 = MString::argUnused, const MString& arg5 = MString::argUnused,
        const MString& arg6 = MString::argUnused, const MString& arg7 = MString::argUnused,
        const MString& arg8 = MString::argUnused, const MString& arg9 = MString::argUnused,
        const MString& arg10 = MString::argUnused);
    MStatus substitute(const MString& from, const MString& to);
    MStatus substituteFirst(const MString& from, const MString& to);

    static MString argUnused;
    static const char* className();

    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& stream, const MString& string);

private:
    struct Storage;
    Storage& Change();
    void Append(const char* text, unsigned int length);

    Storage* m_storage = nullptr; ///< null while empty
};

OPENMAYA_EXPORT MString operator+(const char* text, const MString& string);
OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& stream, const MString& string);

OPENMAYA_MAJOR_NAMESPACE_CLOSE
