#include <maya/MGlobal.h>

MString GlobalAlone(MObject object)
{
    MStringArray texts;
    const MStatus status = MGlobal::executeCommand("x", texts);
    return status && !object.isNull() ? texts[0] : MString();
}
