#include "Typist.h"

#include <maya/MFnPlugin.h>

#include <memory>

namespace {

std::unique_ptr<Typist> typist;

} // namespace

PLUGIN_EXPORT MStatus initializePlugin(MObject object)
{
    const MFnPlugin plugin(object, "Tests", "1.0");
    const QString folder = qEnvironmentVariable("TE2_TYPIST_FOLDER");
    if (folder.isEmpty())
        return MS::kFailure;
    typist = std::make_unique<Typist>(folder, qEnvironmentVariableIntValue("TE2_TYPIST_SEED"));
    return MS::kSuccess;
}

PLUGIN_EXPORT MStatus uninitializePlugin(MObject /*object*/)
{
    typist.reset();
    return MS::kSuccess;
}
