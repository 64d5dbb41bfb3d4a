// A plug-in's own header names the classes through this header alone.
#include <maya/MApiNamespace.h>

class Client
{
public:
    MStatus Run(const MString& text, MObject object, MSelectionList* selection);
};

#include <maya/MObject.h>
#include <maya/MString.h>

MStatus Client::Run(const MString&, MObject, MSelectionList*)
{
    return MStatus::kSuccess;
}
