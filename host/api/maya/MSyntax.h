#pragma once

#include <maya/MStatus.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// The flags and arguments that a command takes. A value, returned by the command's syntax
/// function.
class OPENMAYA_EXPORT MSyntax
{
public:
    enum MArgType {
        kInvalidArgType = 0,
        kNoArg,
        kBoolean,
        kLong,
        kDouble,
        kString,
        kUnsigned,
        kDistance,
        kAngle,
        kTime,
        kSelectionItem,
        kLastArgType
    };

    enum MObjectFormat {
        kInvalidObjectFormat = 0,
        kNone,
        kStringObjects,
        kSelectionList,
        kLastObjectFormat
    };

    MSyntax();
    MSyntax(const MSyntax& other);
    virtual ~MSyntax();
    MSyntax& operator=(const MSyntax& other);

    /// Short names have at most 3 characters, long ones at least 4, the "-" not counted; kFailure
    /// otherwise. The argument types end at the first kNoArg.
    MStatus addFlag(const char* shortName, const char* longName, MArgType argType1 = kNoArg,
        MArgType argType2 = kNoArg, MArgType argType3 = kNoArg, MArgType argType4 = kNoArg,
        MArgType argType5 = kNoArg, MArgType argType6 = kNoArg);
    MStatus makeFlagMultiUse(const char* flagName);
    MStatus makeFlagQueryWithFullArgs(const char* flagName, bool queryArgsAreOptional);

    /// A positional argument. kFailure when objects were asked for.
    MStatus addArg(MArgType type);

    void useSelectionAsDefault(bool use = false);
    MStatus setObjectType(MObjectFormat objectFormat, unsigned int minimumObjects = 0);
    MStatus setObjectType(
        MObjectFormat objectFormat, unsigned int minimumObjects, unsigned int maximumObjects);
    void setMinObjects(unsigned int minimumObjects);
    void setMaxObjects(unsigned int maximumObjects);
    unsigned int minObjects() const;
    unsigned int maxObjects() const;

    void enableQuery(bool supportsQuery = true);
    void enableEdit(bool supportsEdit = true);
    bool canQuery() const;
    bool canEdit() const;

private:
    friend class ApiAccess;

    struct Description;
    Description* m_description;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
