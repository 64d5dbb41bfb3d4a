#include <maya/MFnPlugin.h>

MStatus PluginAlone(MObject object)
{
    MFnPlugin plugin(object, "x", "1", "Any");
    CHECK_MSTATUS_AND_RETURN_IT(plugin.setVersion(MString("2")));
    return MS::kSuccess;
}
