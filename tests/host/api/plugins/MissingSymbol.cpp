// Built against something that is not there when it is loaded.

#include <maya/MFnPlugin.h>

MStatus SoldElsewhere();

PLUGIN_EXPORT MStatus initializePlugin(MObject)
{
    return SoldElsewhere();
}

PLUGIN_EXPORT MStatus uninitializePlugin(MObject)
{
    return MS::kSuccess;
}
