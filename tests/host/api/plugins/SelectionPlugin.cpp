// A command that works on what it is given or what is selected, and one that selects.

#include <maya/MArgDatabase.h>
#include <maya/MArgList.h>
#include <maya/MDistance.h>
#include <maya/MFnPlugin.h>
#include <maya/MGlobal.h>
#include <maya/MPxCommand.h>
#include <maya/MSelectionList.h>
#include <maya/MSyntax.h>
#include <maya/MTime.h>

namespace {

class ListObjects : public MPxCommand
{
public:
    static void* creator() { return new ListObjects; }

    static MSyntax newSyntax()
    {
        MSyntax syntax;
        syntax.addFlag("-sel", "-select");
        syntax.addFlag("-w", "-without", MSyntax::kString);
        syntax.addFlag("-far", "-farAway", MSyntax::kDistance);
        syntax.addFlag("-at", "-atTime", MSyntax::kTime);
        syntax.setObjectType(MSyntax::kSelectionList, 1, 3);
        syntax.useSelectionAsDefault(true);
        return syntax;
    }

    MStatus doIt(const MArgList& args) override
    {
        MStatus status;
        const MArgDatabase arguments(syntax(), args, &status);
        CHECK_MSTATUS_AND_RETURN_IT(status);
        if (arguments.isFlagSet("-farAway") || arguments.isFlagSet("-atTime"))
            return Measure(arguments);
        MSelectionList objects;
        status = arguments.getObjects(objects);
        if (!status) {
            displayError(status.errorString());
            return status;
        }
        MSelectionList without;
        if (arguments.getFlagArgument("-without", 0, without))
            objects.merge(without, MSelectionList::kRemoveFromList);
        MStringArray names;
        objects.getSelectionStrings(names);
        setResult(names);
        return arguments.isFlagSet("-select") ? MGlobal::setActiveSelectionList(objects)
                                              : MStatus();
    }

private:
    static MStatus Measure(const MArgDatabase& arguments)
    {
        MDistance distance;
        MTime time;
        arguments.getFlagArgument("-farAway", 0, distance);
        arguments.getFlagArgument("-atTime", 0, time);
        setResult(distance.asInches() + time.as(MTime::kSeconds));
        return MS::kSuccess;
    }
};

} // namespace

PLUGIN_EXPORT MStatus initializePlugin(MObject obj)
{
    MFnPlugin plugin(obj, "A. N. Author", "1.0", "Any");
    return plugin.registerCommand("listObjects", ListObjects::creator, ListObjects::newSyntax);
}

PLUGIN_EXPORT MStatus uninitializePlugin(MObject obj)
{
    MFnPlugin plugin(obj);
    return plugin.deregisterCommand("listObjects");
}
