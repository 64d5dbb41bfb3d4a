#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// The words of a call, sorted by a syntax. Flags are named by their short or long name, with or
/// without "-", whichever the caller used.
class OPENMAYA_EXPORT MArgParser
{
public:
    MArgParser();
    /// kFailure when the words do not fit; the reason has been shown then.
    MArgParser(const MSyntax& syntax, const MArgList& argList, MStatus* ReturnStatus = nullptr);
    virtual ~MArgParser();
    MArgParser(const MArgParser&) = delete;
    MArgParser& operator=(const MArgParser&) = delete;

    bool isFlagSet(const char* flag, MStatus* ReturnStatus = nullptr) const;
    bool isEdit(MStatus* ReturnStatus = nullptr) const;
    bool isQuery(MStatus* ReturnStatus = nullptr) const;
    unsigned int numberOfFlagsUsed() const;
    unsigned int numberOfFlagUses(const char* flag) const;

    /// Argument `index` of the flag's first use, from 0. Numbers convert to the type asked for.
    MStatus getFlagArgument(const char* flag, unsigned int index, bool& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, int& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, double& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, MString& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, unsigned int& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, MDistance& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, MAngle& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, MTime& result) const;
    bool flagArgumentBool(
        const char* flag, unsigned int index, MStatus* ReturnStatus = nullptr) const;
    int flagArgumentInt(
        const char* flag, unsigned int index, MStatus* ReturnStatus = nullptr) const;
    double flagArgumentDouble(
        const char* flag, unsigned int index, MStatus* ReturnStatus = nullptr) const;
    MString flagArgumentString(
        const char* flag, unsigned int index, MStatus* ReturnStatus = nullptr) const;

    /// Where the flag's use `flagIndex` stands in the list of words.
    MStatus getFlagArgumentPosition(
        const char* flag, unsigned int flagIndex, unsigned int& position) const;
    /// The arguments of the flag's use `flagIndex`.
    MStatus getFlagArgumentList(
        const char* flag, unsigned int flagIndex, MArgList& argumentList) const;

    /// Positional argument `index`, from 0.
    MStatus getCommandArgument(unsigned int index, bool& result) const;
    MStatus getCommandArgument(unsigned int index, int& result) const;
    MStatus getCommandArgument(unsigned int index, double& result) const;
    MStatus getCommandArgument(unsigned int index, MString& result) const;
    MStatus getCommandArgument(unsigned int index, MDistance& result) const;
    MStatus getCommandArgument(unsigned int index, MAngle& result) const;
    MStatus getCommandArgument(unsigned int index, MTime& result) const;
    bool commandArgumentBool(unsigned int index, MStatus* ReturnStatus = nullptr) const;
    int commandArgumentInt(unsigned int index, MStatus* ReturnStatus = nullptr) const;
    double commandArgumentDouble(unsigned int index, MStatus* ReturnStatus = nullptr) const;
    MString commandArgumentString(unsigned int index, MStatus* ReturnStatus = nullptr) const;

    MStatus getObjects(MStringArray& objects) const;

    static const char* className();

private:
    struct Parsed;
    Parsed* m_parsed;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
