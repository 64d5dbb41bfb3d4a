#pragma once

#include <maya/MArgParser.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// An MArgParser that would also know the scene's selection. This host has none, so it offers what
/// the parser does.
class OPENMAYA_EXPORT MArgDatabase : public MArgParser
{
public:
    MArgDatabase();
    MArgDatabase(const MSyntax& syntax, const MArgList& argList, MStatus* ReturnStatus = nullptr);
    ~MArgDatabase() override;

    using MArgParser::getCommandArgument;
    using MArgParser::getFlagArgument;
    using MArgParser::getObjects;

    static const char* className();
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
