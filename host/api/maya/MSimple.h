#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MArgList.h>
#include <maya/MFnPlugin.h>
#include <maya/MGlobal.h>
#include <maya/MObject.h>
#include <maya/MPxCommand.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

/// A plug-in with one command in one line: defines the class, its creator and both entry points.
/// The user adds `MStatus Class::doIt(const MArgList& args)`.
#define DeclareSimpleCommand(Class, vendor, version)                                               \
    class Class : public MPxCommand                                                                \
    {                                                                                              \
    public:                                                                                        \
        MStatus doIt(const MArgList& args) override;                                               \
        static void* creator() { return new Class; }                                               \
    };                                                                                             \
    PLUGIN_EXPORT MStatus initializePlugin(MObject obj)                                            \
    {                                                                                              \
        MFnPlugin plugin(obj, vendor, version, "Any");                                             \
        MStatus status = plugin.registerCommand(#Class, Class::creator);                           \
        if (!status)                                                                               \
            status.perror("registerCommand");                                                      \
        return status;                                                                             \
    }                                                                                              \
    PLUGIN_EXPORT MStatus uninitializePlugin(MObject obj)                                          \
    {                                                                                              \
        MFnPlugin plugin(obj);                                                                     \
        MStatus status = plugin.deregisterCommand(#Class);                                         \
        if (!status)                                                                               \
            status.perror("deregisterCommand");                                                    \
        return status;                                                                             \
    }
