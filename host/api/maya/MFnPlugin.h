#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MFnBase.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>

#ifndef MNoVersionString
#include <maya/MApiVersion.h>
#endif

#if defined(_WIN32)
#define PLUGIN_EXPORT __declspec(dllexport)
#else
#define PLUGIN_EXPORT __attribute__((visibility("default")))
#endif

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// Makes a command object; the host owns it from then on.
typedef void* (*MCreatorFunction)();
/// Makes the syntax of a command; called once, at the command's first use.
typedef MSyntax (*MCreateSyntaxFunction)();

/// Registers and removes what a plug-in offers. Made on the object that the entry points get. Main
/// thread only.
class OPENMAYA_EXPORT MFnPlugin : public MFnBase
{
public:
    MFnPlugin();
    /// Vendor and version count the first time only. kInvalidParameter when `object` is no plug-in.
    explicit MFnPlugin(MObject& object, const char* vendor = "Unknown",
        const char* version = "Unknown", const char* requiredApiVersion = "Any",
        MStatus* ReturnStatus = nullptr);
    ~MFnPlugin() override;

    MFn::Type type() const override;

    MString vendor(MStatus* ReturnStatus = nullptr) const;
    MString version(MStatus* ReturnStatus = nullptr) const;
    MString apiVersion(MStatus* ReturnStatus = nullptr) const;
    MString name(MStatus* ReturnStatus = nullptr) const;
    /// The plug-in's directory, without a closing slash.
    MString loadPath(MStatus* ReturnStatus = nullptr) const;
    MStatus setName(const MString& newName, bool allowRename = true);
    MStatus setVersion(const MString& newVersion);

    /// kInvalidParameter when the name is taken.
    MStatus registerCommand(const MString& commandName, MCreatorFunction creatorFunction,
        MCreateSyntaxFunction createSyntaxFunction = nullptr);
    /// kFailure when the command is not this plug-in's.
    MStatus deregisterCommand(const MString& commandName);
    /// Names of MEL procedures that the host runs when the plug-in has been loaded and before it is
    /// unloaded; the second pair replaces the first where there is no interface.
    MStatus registerUI(const MString& creationProc, const MString& deletionProc,
        const MString& creationBatchProc = "", const MString& deletionBatchProc = "");

    /// Adds an entry that runs a MEL command with parameters, and with `needOptionBox` a box behind
    /// it that runs `optBoxFunction`. The names of what was made; empty on failure.
    MStringArray addMenuItem(const MString& menuItemName, const MString& parentName,
        const MString& commandName, const MString& commandParams, bool needOptionBox = false,
        const MString* optBoxFunction = nullptr, MStatus* retStatus = nullptr);
    MStatus removeMenuItem(MStringArray& menuItemNames);

    static MObject findPlugin(const MString& pluginName);
    static bool isNodeRegistered(const MString& nodeName);
    static const char* className();
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE

#ifndef MNoPluginEntry
/// The two functions that every plug-in defines and exports (write PLUGIN_EXPORT on both).
MStatus initializePlugin(MObject obj);
MStatus uninitializePlugin(MObject obj);
#endif
