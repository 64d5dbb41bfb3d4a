#include "Probe.h"

#include <maya/MFnPlugin.h>

#include <QStringList>

#include <memory>

namespace {

std::unique_ptr<Probe> probe;

} // namespace

PLUGIN_EXPORT MStatus initializePlugin(MObject object)
{
    const MFnPlugin plugin(object, "Tools", "1.0");
    const QStringList descriptors = qEnvironmentVariable("TE2_SOAK_PROBE").split(',');
    if (descriptors.size() != 2)
        return MS::kFailure;
    probe = std::make_unique<Probe>(descriptors[0].toInt(), descriptors[1].toInt());
    // The tool waits for this line: it shows that warnings reach it.
    qWarning("soak: warnings are heard");
    return MS::kSuccess;
}

PLUGIN_EXPORT MStatus uninitializePlugin(MObject /*object*/)
{
    probe.reset();
    return MS::kSuccess;
}
