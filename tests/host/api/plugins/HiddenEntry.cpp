// Built with hidden visibility, and its author forgot PLUGIN_EXPORT.

#include <maya/MFnPlugin.h>

MStatus initializePlugin(MObject)
{
    return MS::kSuccess;
}

MStatus uninitializePlugin(MObject)
{
    return MS::kSuccess;
}
