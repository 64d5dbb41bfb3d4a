// A dockable panel as its author would write it: the toolkit's widget inside a workspace control,
// an entry in a menu, and a type of control of its own.

#include <maya/MArgDatabase.h>
#include <maya/MFnPlugin.h>
#include <maya/MGlobal.h>
#include <maya/MPxCommand.h>
#include <maya/MQtUtil.h>
#include <maya/MSyntax.h>

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const char* const PANEL = "outsidePanel";
MStringArray menuItems;

QWidget* CreateDial(QWidget* parent, const QString& name)
{
    auto* dial = new QLabel(QStringLiteral("dial"), parent);
    dial->setObjectName(name);
    return dial;
}

class PanelCommand : public MPxCommand
{
public:
    static void* creator() { return new PanelCommand; }

    static MSyntax newSyntax()
    {
        MSyntax syntax;
        syntax.addFlag("-uis", "-uiScript");
        return syntax;
    }

    MStatus doIt(const MArgList& args) override
    {
        const MArgDatabase arguments(syntax(), args);
        if (arguments.isFlagSet("uiScript"))
            return Fill();
        int exists = 0;
        MGlobal::executeCommand(MString("workspaceControl -exists ") + PANEL, exists);
        if (exists)
            return MGlobal::executeCommand(MString("workspaceControl -e -restore ") + PANEL);
        CHECK_MSTATUS_AND_RETURN_IT(MGlobal::executeCommand(
            MString("workspaceControl -label \"Outside\" -requiredPlugin PanelPlugin ") + PANEL));
        CHECK_MSTATUS_AND_RETURN_IT(Fill());
        return MGlobal::executeCommand(
            MString("workspaceControl -e -uiScript \"outsidePanelShow -uis\" ") + PANEL);
    }

private:
    static MStatus Fill()
    {
        QWidget* parent = MQtUtil::getCurrentParent();
        if (!parent) {
            displayError("There is no panel to fill.");
            return MS::kFailure;
        }
        auto* content = new QWidget;
        content->setObjectName(QStringLiteral("outsideContent"));
        auto* button = new QPushButton(QStringLiteral("Press"), content);
        QObject::connect(button, &QPushButton::clicked, [] { MGlobal::displayInfo("pressed"); });
        (new QVBoxLayout(content))->addWidget(button);
        setResult(MQtUtil::addWidgetToMayaLayout(content, parent));
        return MS::kSuccess;
    }
};

} // namespace

PLUGIN_EXPORT MStatus initializePlugin(MObject obj)
{
    MStatus status;
    MFnPlugin plugin(obj, "A. N. Author", "2.0", "Any", &status);
    CHECK_MSTATUS_AND_RETURN_IT(status);
    if (!MQtUtil::registerUIType("OutsideDial", CreateDial, "outsideDial"))
        return MS::kFailure;
    menuItems = plugin.addMenuItem("Outside \"Panel\"",
        MGlobal::executeCommandStringResult("$gMainWindow = $gMainWindow"), "outsidePanelShow", "");
    return plugin.registerCommand(
        "outsidePanelShow", PanelCommand::creator, PanelCommand::newSyntax);
}

PLUGIN_EXPORT MStatus uninitializePlugin(MObject obj)
{
    MFnPlugin plugin(obj);
    int exists = 0;
    MGlobal::executeCommand(MString("workspaceControl -exists ") + PANEL, exists);
    if (exists) {
        MGlobal::executeCommand(MString("workspaceControl -e -close ") + PANEL);
        MGlobal::executeCommand(MString("deleteUI ") + PANEL);
    }
    if (menuItems.length() > 0)
        plugin.removeMenuItem(menuItems);
    MQtUtil::deregisterUIType("OutsideDial");
    return plugin.deregisterCommand("outsidePanelShow");
}
