#pragma once

#include <maya/MTypes.h>

/// Declares every class of the API, so that headers need not know the versioned namespace. Those
/// that this host does not offer stay incomplete.

OPENMAYA_MAJOR_NAMESPACE_OPEN

class MAngle;
class MArgDatabase;
class MArgList;
class MArgParser;
class MCallbackIdArray;
class MCommandMessage;
class MCommandResult;
class MCommonSystemUtils;
class MDagPath;
class MDistance;
class MDoubleArray;
class MEventMessage;
class MFn;
class MFnBase;
class MFnPlugin;
class MGlobal;
class MInt64Array;
class MIntArray;
class MMatrix;
class MMessage;
class MObject;
class MPlug;
class MPoint;
class MPxCommand;
class MQtUtil;
class MSelectionList;
class MStatus;
class MStreamUtils;
class MString;
class MStringArray;
class MSyntax;
class MTime;
class MVector;
class MVectorArray;

/// The host's own way to the private parts of the classes.
class ApiAccess;

OPENMAYA_MAJOR_NAMESPACE_CLOSE

using namespace OPENMAYA_MAJOR_NAMESPACE;
