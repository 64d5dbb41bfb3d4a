// Built with the headers of an earlier release: its entry points take that release's objects.

#define EXPORTED __attribute__((visibility("default")))

namespace Autodesk {
namespace Maya {
namespace OpenMaya20230000 {

class MObject
{
public:
    MObject(const MObject&) { }
};

} // namespace OpenMaya20230000
} // namespace Maya
} // namespace Autodesk

using Autodesk::Maya::OpenMaya20230000::MObject;

EXPORTED int initializePlugin(MObject)
{
    return 0;
}

EXPORTED int uninitializePlugin(MObject)
{
    return 0;
}
