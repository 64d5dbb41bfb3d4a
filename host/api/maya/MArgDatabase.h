#pragma once

#include <maya/MArgParser.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// An MArgParser that knows the scene's objects, too.
class OPENMAYA_EXPORT MArgDatabase : public MArgParser
{
public:
    MArgDatabase();
    MArgDatabase(const MSyntax& syntax, const MArgList& argList, MStatus* ReturnStatus = nullptr);
    ~MArgDatabase() override;

    using MArgParser::getCommandArgument;
    using MArgParser::getFlagArgument;
    using MArgParser::getObjects;

    /// kInvalidParameter when there is no such object.
    MStatus getFlagArgument(const char* flag, unsigned int index, MSelectionList& result) const;
    MStatus getCommandArgument(unsigned int index, MSelectionList& result) const;
    /// The objects given; where the syntax wants it, the selection when none are.
    MStatus getObjects(MSelectionList& result) const;

    static const char* className();
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
