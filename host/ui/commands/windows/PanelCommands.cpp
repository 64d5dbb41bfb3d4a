#include "engine/Engine.h"
#include "ui/commands/Tables.h"
#include "ui/commands/windows/WindowTables.h"
#include "ui/window/Viewport.h"

namespace host::ui {

namespace {

const QString MODEL_PANEL = QStringLiteral("modelPanel");
const QString OUTLINER_PANEL = QStringLiteral("outlinerPanel");
const QString USUAL_CAMERA = QStringLiteral("persp");

// Views. There is one camera to look through, whatever its name.

Viewport* View(const Element& element)
{
    return As<Viewport>(element);
}

void MakeView(Element& element, const Call&)
{
    auto* view = new Viewport;
    view->setMinimumSize(Scaled(80), Scaled(60));
    element.SetWidget(view);
}

bool IsView(const Element& element)
{
    return qobject_cast<Viewport*>(element.GetWidget()) != nullptr;
}

void SetAxis(Edit& edit)
{
    View(edit.element)->SetAxisVisible(edit.Bool());
}

// Which panels there are

bool IsPanel(const Element& element)
{
    return element.GetType() == MODEL_PANEL || element.GetType() == OUTLINER_PANEL;
}

QVector<Element*> Panels(const QString& type = {})
{
    QVector<Element*> panels;
    for (const QString& known : {MODEL_PANEL, OUTLINER_PANEL}) {
        if (type.isEmpty() || type == known)
            panels += InterfaceModel::Current().List(ANY_KIND, known);
    }
    return panels;
}

StringList NamesOf(bool (*wanted)(const Element&), const QString& type = {})
{
    StringList names;
    for (const Element* panel : Panels(type)) {
        if (wanted(*panel))
            names += panel->GetName();
    }
    return names;
}

/// Some script is always written for the panel that has the keyboard: while none has, it is the
/// first one.
QString FocusedPanel()
{
    for (const Element* panel : Panels()) {
        if (panel->GetWidget() && panel->GetWidget()->hasFocus())
            return panel->GetName();
    }
    return Panels().isEmpty() ? QString() : Panels().first()->GetName();
}

QString TypeOf(const QString& name)
{
    const Element* element = InterfaceModel::Current().Find(name);
    return element && IsPanel(*element) ? element->GetType() : QString();
}

Outcome GetPanel(Call& call)
{
    if (call.Has("withFocus"))
        return FocusedPanel();
    if (call.Has("typeOf"))
        return TypeOf(call.Text("typeOf"));
    if (call.Has("allTypes"))
        return StringList{MODEL_PANEL, OUTLINER_PANEL};
    if (call.Has("underPointer")) {
        const StringList under
            = NamesOf([](const Element& panel) { return panel.GetWidget()->underMouse(); });
        return under.value(0);
    }
    if (call.Has("type"))
        return NamesOf([](const Element&) { return true; }, call.Text("type"));
    if (call.Has("visiblePanels"))
        return NamesOf([](const Element& panel) { return panel.GetWidget()->isVisible(); });
    if (call.Has("invisiblePanels"))
        return NamesOf([](const Element& panel) { return !panel.GetWidget()->isVisible(); });
    if (call.Has("withLabel")) {
        for (const Element* panel : Panels()) {
            if (Stored(*panel, "label", QString()).ToText() == call.Text("withLabel"))
                return panel->GetName();
        }
        return QString();
    }
    return NamesOf([](const Element&) { return true; });
}

// clang-format off
const Property VIEW[] = {
    {"camera",      nullptr, [](Element& e) { return Stored(e, "camera", USUAL_CAMERA); }},
    {"control",     nullptr, [](Element& e) -> Value { return e.FullName(); }},
    {"modelEditor", nullptr, [](Element& e) -> Value { return e.GetName(); }},
    {"grid",        [](Edit& e) { View(e.element)->SetGridVisible(e.Bool()); }, [](Element& e) -> Value { return View(e)->IsGridVisible(); }},
    {"headsUpDisplay", SetAxis, [](Element& e) -> Value { return View(e)->IsAxisVisible(); }},
};

const char VIEW_FLAGS[] =
    "activeView/av - qe; allObjects/alo B ce; camera/cam str cqe; cameras/ca B cqe; displayAppearance/da str cqe; displayLights/dl str cqe;"
    "displayTextures/dtx B cqe; grid/gr B cqe; headsUpDisplay/hud B cqe; joints/j B cqe; label/l str cqe; lights/lt B cqe; locators/lc B cqe;"
    "menuBarVisible/mbv B cqe; modelEditor/me - q; nurbsCurves/nc B cqe; nurbsSurfaces/ns B cqe; polymeshes/pm B cqe;"
    "selectionHiliteDisplay/sel B cqe; shadows/sdw B cqe; smoothWireframe/swf B cqe; useDefaultMaterial/udm B cqe; wireframeOnShaded/wos B cqe;"
    "xray/xr B cqe; addSelected/as - e; backfaceCulling/bfc B cqe; barLayout/bl - q; bufferMode/bfm str cqe; clipGhosts/cg B cqe;"
    "control/ctl - q; controlVertices/cv B cqe; copy/cp str c; createString/cs - q; deformers/df B cqe; dimensions/dim B cqe;"
    "dynamicConstraints/dc B cqe; dynamics/dy B cqe; editString/es - q; fluids/fl B cqe; follicles/fo B cqe; hairSystems/hs B cqe;"
    "handles/ha B cqe; hulls/hu B cqe; ikHandles/ikh B cqe; imagePlane/imp B cqe; init/in - c; isUnique/iu B cqe; jointXray/jx B cqe;"
    "manipulators/man B cqe; motionTrails/mt B cqe; nCloths/ncl B cqe; nParticles/npa B cqe; nRigids/nr B cqe; needsInit/ni B qe; pivots/pv B cqe;"
    "planes/pl B cqe; pluginShapes/ps B cqe; rendererName/rnm str cqe; replacePanel/rp str e; stateString/sts - q; strokes/str B cqe;"
    "subdivSurfaces/sds B cqe; tearOff/to - ce; textures/tx B cqe; twoSidedLighting/tsl B cqe; unParent/up - ce; viewSelected/vs B cqe;";

const Property PANEL[] = {
    {"control", nullptr, [](Element& e) -> Value { return e.FullName(); }},
    {"type",    nullptr, [](Element& e) -> Value { return e.GetType(); }},
};

const ControlRow ROWS[] = {
    {"panel",       ControlKind, nullptr, PANEL,
        "control/ctl - q; label/l str qe; menuBarVisible/mbv B qe; popupMenuProcedure/pmp script qe; tearOff/to - qe; type/typ - q;", IsPanel},
    {"modelPanel",  ControlKind, MakeView, VIEW, VIEW_FLAGS},
    {"modelEditor", ControlKind, MakeView, VIEW, VIEW_FLAGS, IsView},
};

const CommandRow COMMANDS[] = {
    {"getPanel", "any", "", "",
        "all/all - c; allTypes/at - c; invisiblePanels/inv - c; type/typ str c; typeOf/to str c; underPointer/up - c; visiblePanels/vis - c;"
        "withFocus/wf - c; withLabel/wl str c", GetPanel},
};
// clang-format on

} // namespace

void RegisterPanelCommands(CommandRegistry& commands)
{
    RegisterControls(commands, ROWS);
    commands.Register(COMMANDS);
}

} // namespace host::ui
