#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MDoubleArray.h>
#include <maya/MIntArray.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// The words that follow a command's name, flags included, in the order they were given. A value.
class OPENMAYA_EXPORT MArgList
{
public:
    static const unsigned int kInvalidArgIndex = 0xffffffffu;

    MArgList();
    MArgList(const MArgList& other);
    ~MArgList();
    MArgList& operator=(const MArgList& other);

    unsigned int length(MStatus* ReturnStatus = nullptr) const;

    /// kFailure when there is no such argument or it cannot be converted.
    bool asBool(unsigned int index, MStatus* ReturnStatus = nullptr) const;
    int asInt(unsigned int index, MStatus* ReturnStatus = nullptr) const;
    double asDouble(unsigned int index, MStatus* ReturnStatus = nullptr) const;
    MString asString(unsigned int index, MStatus* ReturnStatus = nullptr) const;
    /// An array given as one word, or the run of words that convert; `index` moves behind it.
    MIntArray asIntArray(unsigned int& index, MStatus* ReturnStatus = nullptr) const;
    MDoubleArray asDoubleArray(unsigned int& index, MStatus* ReturnStatus = nullptr) const;
    MStringArray asStringArray(unsigned int& index, MStatus* ReturnStatus = nullptr) const;

    /// Position of a flag by either name, with or without "-"; kInvalidArgIndex when absent.
    unsigned int flagIndex(const char* shortFlag, const char* longFlag = nullptr) const;

    MStatus addArg(bool argument);
    MStatus addArg(int argument);
    MStatus addArg(double argument);
    MStatus addArg(const MString& argument);

    MStatus get(unsigned int index, bool& argument) const;
    MStatus get(unsigned int index, int& argument) const;
    MStatus get(unsigned int index, double& argument) const;
    MStatus get(unsigned int index, MString& argument) const;

private:
    friend class ApiAccess;

    struct Words;
    Words* m_words;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
