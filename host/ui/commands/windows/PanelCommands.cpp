#include "engine/Engine.h"
#include "ui/commands/Tables.h"
#include "ui/commands/windows/WindowTables.h"
#include "ui/window/Viewport.h"

namespace host::ui {

namespace {

const QString MODEL_PANEL = QStringLiteral("modelPanel");
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

QVector<Element*> Panels()
{
    return InterfaceModel::Current().List(ANY_KIND, MODEL_PANEL);
}

StringList NamesOf(bool (*wanted)(const Element&))
{
    StringList names;
    for (const Element* panel : Panels()) {
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
    return element && element->GetType() == MODEL_PANEL ? MODEL_PANEL : QString();
}

Outcome GetPanel(Call& call)
{
    if (call.Has("withFocus"))
        return FocusedPanel();
    if (call.Has("typeOf"))
        return TypeOf(call.Text("typeOf"));
    if (call.Has("allTypes"))
        return StringList{MODEL_PANEL};
    if (call.Has("underPointer")) {
        const StringList under
            = NamesOf([](const Element& panel) { return panel.GetWidget()->underMouse(); });
        return under.value(0);
    }
    if (call.Has("type") && call.Text("type") != MODEL_PANEL)
        return StringList();
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
    {"modelEditor", nullptr, [](Element& e) -> Value { return e.GetName(); }},
    {"grid",        [](Edit& e) { View(e.element)->SetGridVisible(e.Bool()); }, [](Element& e) -> Value { return View(e)->IsGridVisible(); }},
    {"headsUpDisplay", SetAxis, [](Element& e) -> Value { return View(e)->IsAxisVisible(); }},
};

const char VIEW_FLAGS[] =
    "activeView/av - qe; allObjects/alo B ce; camera/cam str cqe; cameras/ca B cqe; displayAppearance/da str cqe; displayLights/dl str cqe;"
    "displayTextures/dtx B cqe; grid/gr B cqe; headsUpDisplay/hud B cqe; joints/j B cqe; label/l str cqe; lights/lt B cqe; locators/lc B cqe;"
    "menuBarVisible/mbv B cqe; modelEditor/me - q; nurbsCurves/nc B cqe; nurbsSurfaces/ns B cqe; polymeshes/pm B cqe;"
    "selectionHiliteDisplay/sel B cqe; shadows/sdw B cqe; smoothWireframe/swf B cqe; useDefaultMaterial/udm B cqe; wireframeOnShaded/wos B cqe;"
    "xray/xr B cqe;";

const ControlRow ROWS[] = {
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
