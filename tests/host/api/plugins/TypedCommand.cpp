// A plug-in as its author would write it for any host: one command with flags of every type, whose
// results and misbehaviour a caller can choose.

#include <maya/MArgDatabase.h>
#include <maya/MArgList.h>
#include <maya/MDoubleArray.h>
#include <maya/MFnPlugin.h>
#include <maya/MGlobal.h>
#include <maya/MIntArray.h>
#include <maya/MPxCommand.h>
#include <maya/MStringArray.h>
#include <maya/MSyntax.h>

#include <stdexcept>

namespace {

// A fresh load has to start from here again.
int callCount = 0;
int undoLevel = 0;

class TypedCommand : public MPxCommand
{
public:
    static void* creator() { return new TypedCommand; }
    static MSyntax newSyntax();

    MStatus doIt(const MArgList& args) override;
    MStatus undoIt() override;
    MStatus redoIt() override;
    bool isUndoable() const override { return m_undoable; }

private:
    MStatus Misbehave(const MString& how);
    MStatus Answer(const MArgDatabase& arguments, const MString& type);

    bool m_undoable = false;
};

MSyntax TypedCommand::newSyntax()
{
    MGlobal::setOptionVarValue("typedCommandSyntax", 1);
    MSyntax syntax;
    syntax.addFlag("-c", "-count", MSyntax::kLong);
    syntax.addFlag("-r", "-ratio", MSyntax::kDouble);
    syntax.addFlag("-on", "-enabled", MSyntax::kBoolean);
    syntax.addFlag("-n", "-name", MSyntax::kString);
    syntax.addFlag("-sz", "-size", MSyntax::kUnsigned, MSyntax::kUnsigned);
    syntax.addFlag("-lb", "-label", MSyntax::kString);
    syntax.makeFlagMultiUse("-lb");
    syntax.addFlag("-as", "-resultType", MSyntax::kString);
    syntax.addFlag("-bad", "-misbehave", MSyntax::kString);
    syntax.addFlag("-u", "-undoable");
    syntax.setObjectType(MSyntax::kStringObjects, 0, 3);
    syntax.enableQuery();
    return syntax;
}

MStatus TypedCommand::doIt(const MArgList& args)
{
    ++callCount;
    MStatus status;
    const MArgDatabase arguments(syntax(), args, &status);
    CHECK_MSTATUS_AND_RETURN_IT(status);
    if (arguments.isQuery()) {
        setResult(arguments.isFlagSet("-count") ? callCount : undoLevel);
        return MS::kSuccess;
    }
    if (arguments.isFlagSet("undoable")) {
        m_undoable = true;
        return redoIt();
    }
    if (arguments.isFlagSet("-bad"))
        return Misbehave(arguments.flagArgumentString("-misbehave", 0));
    return Answer(arguments, arguments.flagArgumentString("as", 0));
}

MStatus TypedCommand::Misbehave(const MString& how)
{
    if (how == "throw")
        throw std::runtime_error("out of luck");
    if (how == "say why")
        displayError("no such thing");
    if (how == "unload me")
        return MGlobal::executeCommand("unloadPlugin TypedCommand");
    return MS::kFailure;
}

MStatus TypedCommand::Answer(const MArgDatabase& arguments, const MString& type)
{
    int count = 0;
    double ratio = 0;
    bool enabled = false;
    MString name;
    arguments.getFlagArgument("-c", 0, count);
    arguments.getFlagArgument("-r", 0, ratio);
    arguments.getFlagArgument("-on", 0, enabled);
    arguments.getFlagArgument("-n", 0, name);
    MStringArray objects;
    arguments.getObjects(objects);
    if (type == "int")
        setResult(count);
    else if (type == "double")
        setResult(ratio);
    else if (type == "bool")
        setResult(enabled);
    else if (type == "literal")
        setResult("a literal");
    else if (type == "string")
        setResult(name);
    else if (type == "ints")
        setResult(MIntArray(2, count));
    else if (type == "doubles")
        setResult(MDoubleArray(2, ratio));
    else if (type == "strings")
        setResult(objects);
    else if (type == "size")
        setResult(arguments.flagArgumentInt("-size", 0) * arguments.flagArgumentInt("-size", 1));
    else if (type == "appended") {
        setResult("lost");
        appendToResult(count);
        appendToResult(ratio);
        appendToResult(name);
    } else if (type == "labels") {
        for (unsigned int i = 0; i < arguments.numberOfFlagUses("-label"); ++i) {
            MArgList use;
            CHECK_MSTATUS_AND_RETURN_IT(arguments.getFlagArgumentList("-label", i, use));
            appendToResult(use.asString(0));
        }
    } else if (type == "command")
        setResult(commandString());
    return MS::kSuccess;
}

MStatus TypedCommand::undoIt()
{
    --undoLevel;
    return MS::kSuccess;
}

MStatus TypedCommand::redoIt()
{
    ++undoLevel;
    return MS::kSuccess;
}

} // namespace

PLUGIN_EXPORT MStatus initializePlugin(MObject obj)
{
    MStatus status;
    MFnPlugin plugin(obj, "A. N. Author", "1.5", "Any", &status);
    CHECK_MSTATUS_AND_RETURN_IT(status);
    return plugin.registerCommand("typedCommand", TypedCommand::creator, TypedCommand::newSyntax);
}

PLUGIN_EXPORT MStatus uninitializePlugin(MObject obj)
{
    MFnPlugin plugin(obj);
    return plugin.deregisterCommand("typedCommand");
}
