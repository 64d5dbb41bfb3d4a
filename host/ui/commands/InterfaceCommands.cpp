#include "ui/commands/InterfaceCommands.h"

#include "commands/Session.h"
#include "engine/Engine.h"
#include "ui/commands/Tables.h"
#include "ui/commands/windows/WindowTables.h"

namespace host::ui {

namespace {

using Registration = void (*)(CommandRegistry&);

const Registration REGISTRATIONS[] = {
    RegisterWindowCommands,
    RegisterLayoutCommands,
    RegisterFormLayout,
    RegisterTabCommands,
    RegisterShelfCommands,
    RegisterButtonCommands,
    RegisterFieldCommands,
    RegisterListCommands,
    RegisterMenuCommands,
    RegisterScriptFieldCommands,
    RegisterDialogCommands,
    RegisterMessageCommands,
    RegisterProgressCommands,
    RegisterFileDialogCommands,
    RegisterColorCommands,
    RegisterTreeView,
    RegisterLayoutDialog,
    RegisterPanelCommands,
    RegisterWindowPref,
    RegisterRowCommands,
    RegisterPaneCommands,
    RegisterOptionMenuCommands,
    RegisterNumberGroupCommands,
    RegisterSliderCommands,
    RegisterRadioCommands,
    RegisterChoiceGroupCommands,
    RegisterIconTextCommands,
    RegisterAttributeGroupCommands,
    RegisterAttributeNavigation,
    RegisterConnectControl,
    RegisterOutliner,
    RegisterScriptTable,
    RegisterFocusCommands,
    RegisterHeadsUpDisplay,
    RegisterDimWhen,
    RegisterTemplateCommands,
};

struct RunTimeRow
{
    const char* category;
    const char* name;
    const char* label;
    const char* annotation;
    const char* command;
};

// clang-format off
const RunTimeRow RUN_TIME_COMMANDS[] = {
    {"File", "NewScene", "New Scene", "Begin an empty scene", "hostAction newScene"},
    {"File", "OpenScene", "Open Scene...", "Open a scene from a file", "hostAction openScene"},
    {"File", "SaveScene", "Save Scene", "Save the scene under its name", "hostAction saveScene"},
    {"File", "SaveSceneAs", "Save Scene As...", "Save the scene under another name", "hostAction saveSceneAs"},
    {"Edit", "Undo", "Undo", "Take back the last change of the scene", "undo"},
    {"Edit", "Redo", "Redo", "Make the change that was taken back again", "redo"},
    {"Edit", "Delete", "Delete", "Delete the selected objects", "delete"},
    {"Edit", "DeleteHistory", "Delete History", "Forget how the selected objects were made", "delete -constructionHistory"},
    {"Edit", "Duplicate", "Duplicate", "Copy the selected objects", "duplicate -rr"},
    {"Edit", "Group", "Group", "Put the selected objects below a new one", "group"},
    {"Edit", "Ungroup", "Ungroup", "Take the selected groups apart", "ungroup"},
    {"Edit", "CreateEmptyGroup", "Create Empty Group", "Add a group with nothing in it", "group -empty"},
    {"Edit", "Parent", "Parent", "Put the selected objects below the one that was selected last", "parent"},
    {"Edit", "Unparent", "Unparent", "Take the selected objects out of the one above", "parent -world"},
    {"Select", "SelectAll", "All", "Select all objects of the scene", "select -all"},
    {"Select", "SelectHierarchy", "Hierarchy", "Select what is below the selected objects, too", "select -hierarchy"},
    {"Modify", "FreezeTransformations", "Freeze Transformations", "Make the place of the selected objects their origin", "makeIdentity -apply true"},
    {"Modify", "CenterPivot", "Center Pivot", "Put the pivots into the middle of the selected objects", "xform -centerPivots"},
    {"Create", "CreatePolygonCube", "Cube", "Add a cube", "polyCube"},
    {"Create", "CreatePolygonSphere", "Sphere", "Add a sphere", "polySphere"},
    {"Create", "CreatePolygonCylinder", "Cylinder", "Add a cylinder", "polyCylinder"},
    {"Create", "CreatePolygonCone", "Cone", "Add a cone", "polyCone"},
    {"Create", "CreatePolygonPlane", "Plane", "Add a plane", "polyPlane"},
    {"Create", "CreatePolygonTorus", "Torus", "Add a torus", "polyTorus"},
    {"Create", "CreateLocator", "Locator", "Add a point to hold on to", "spaceLocator"},
    {"Display", "HideSelectedObjects", "Hide Selected Objects", "Hide the selected objects", "hide"},
    {"Display", "ShowLastHidden", "Show Last Hidden", "Show what was hidden last", "showHidden -lastHidden"},
    {"Windows", "ScriptEditor", "Script Editor", "Open the host's own script window", "scriptEditorWindow"},
    {"Windows", "PluginManager", "Plug-in Manager", "Load, unload and autoload plug-ins", "pluginManagerWindow"},
};
// clang-format on

void AddRunTimeCommand(const RunTimeRow& row)
{
    commands::RunTimeCommand command;
    command.command = {Language::Mel, QString::fromLatin1(row.command), nullptr};
    command.texts.insert(QStringLiteral("label"), QString::fromLatin1(row.label));
    command.texts.insert(QStringLiteral("annotation"), QString::fromLatin1(row.annotation));
    command.texts.insert(QStringLiteral("category"), QString::fromLatin1(row.category));
    command.isDefault = true;
    commands::Session::Current().runTimeCommands.Add(QString::fromLatin1(row.name), command);
}

} // namespace

void RegisterInterfaceCommands(Engine& engine, InterfaceModel&)
{
    for (const Registration registration : REGISTRATIONS)
        registration(engine.commands);
    MakeHostTemplates();
    for (const RunTimeRow& row : RUN_TIME_COMMANDS)
        AddRunTimeCommand(row);
}

} // namespace host::ui
