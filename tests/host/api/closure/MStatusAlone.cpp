#include <maya/MStatus.h>

MStatus StatusAlone()
{
    CHECK_MSTATUS(MS::kSuccess);
    CHECK_MSTATUS_AND_RETURN_IT(MS::kSuccess);
    return MS::kSuccess;
}
