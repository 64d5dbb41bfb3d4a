// Needs a library that is not where the loader looks.

#include <maya/MFnPlugin.h>

unsigned int LengthOfNothing();

PLUGIN_EXPORT MStatus initializePlugin(MObject)
{
    return LengthOfNothing() == 0 ? MS::kSuccess : MS::kFailure;
}

PLUGIN_EXPORT MStatus uninitializePlugin(MObject)
{
    return MS::kSuccess;
}
