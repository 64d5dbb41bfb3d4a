#include "ui/workspace/WorkspaceCommands.h"

#include "engine/Engine.h"
#include "ui/workspace/WorkspaceControls.h"
#include "ui/workspace/WorkspacePanel.h"

namespace host::ui {

namespace {

using Control = WorkspaceControl;

/// One flag of workspaceControl. Flags given together are carried out in the order of the rows.
struct ControlFlag
{
    const char* name;
    /// An error text, null when done. No function: the value is only kept.
    QString (*apply)(WorkspaceControls&, Control&, const Call&);
    Value (*query)(WorkspaceControls&, const Control&);
};

QString UnknownSide(const QString& name)
{
    return QStringLiteral("Invalid dock position \"%1\": use left, right, top or bottom.")
        .arg(name);
}

/// "-flag side isTop"; the panel may be any of the main window's.
QString DockToSide(WorkspaceControls& all, Control& control, const QString& name, bool first)
{
    DockSide side = DockSide::Center;
    if (!ReadDockSide(name, side))
        return UnknownSide(name);
    all.Dock(control, side, first ? 0 : -1);
    return {};
}

QString DockToMainWindow(WorkspaceControls& all, Control& control, const Call& call)
{
    return DockToSide(
        all, control, call.Text("dockToMainWindow"), call.Bool("dockToMainWindow", 1));
}

QString DockToPanel(WorkspaceControls& all, Control& control, const Call& call)
{
    const QString panel = call.Text("dockToPanel");
    if (!InterfaceModel::Current().Find(panel))
        return InterfaceModel::NotFound(panel);
    return DockToSide(all, control, call.Text("dockToPanel", 1), call.Bool("dockToPanel", 2));
}

QString DockToControl(WorkspaceControls& all, Control& control, const Call& call)
{
    const QString other = call.Text("dockToControl");
    if (!all.Contains(other))
        return InterfaceModel::NotFound(other);
    return DockToSide(all, control, call.Text("dockToControl", 1), false);
}

QString TabToControl(WorkspaceControls& all, Control& control, const Call& call)
{
    Control* other = all.Find(call.Text("tabToControl"));
    if (!other)
        return InterfaceModel::NotFound(call.Text("tabToControl"));
    all.TabTo(control, *other, call.Int("tabToControl", 1));
    return {};
}

QString SetVisible(WorkspaceControls& all, Control& control, const Call& call)
{
    if (call.Bool("visible"))
        all.Show(control);
    else
        all.Hide(control);
    return {};
}

QString SetState(WorkspaceControls& all, Control& control, const Call& call)
{
    ControlRecord record = all.Place(control);
    if (!ReadControlState(call.Text("stateString"), record))
        return QStringLiteral("Invalid workspace control state string.");
    all.Hide(control);
    record.name = control.record.name;
    control.record = record;
    all.SetLabel(control, record.label);
    if (record.visible)
        all.Show(control);
    return {};
}

QString SetMinimum(WorkspaceControls& all, Control& control, const Call& call)
{
    QSize size = control.record.minimumSize;
    if (call.Has("minimumWidth"))
        size.setWidth(call.Int("minimumWidth"));
    if (call.Has("minimumHeight"))
        size.setHeight(call.Int("minimumHeight"));
    all.SetMinimumSize(control, size);
    return {};
}

QString SetInitial(WorkspaceControls&, Control& control, const Call& call)
{
    if (call.Has("initialWidth"))
        control.record.initialSize.setWidth(call.Int("initialWidth"));
    if (call.Has("initialHeight"))
        control.record.initialSize.setHeight(call.Int("initialHeight"));
    return {};
}

QString Resize(WorkspaceControls& all, Control& control, const Call& call)
{
    all.SetPanelSize(control,
        {call.Has("resizeWidth") ? call.Int("resizeWidth") : -1,
            call.Has("resizeHeight") ? call.Int("resizeHeight") : -1});
    return {};
}

#define APPLY(body)                                                                                \
    [](WorkspaceControls& all, Control& control, const Call& call) -> QString {                    \
        (void)all;                                                                                 \
        (void)control;                                                                             \
        (void)call;                                                                                \
        body;                                                                                      \
        return {};                                                                                 \
    }
#define QUERY(value)                                                                               \
    [](WorkspaceControls& all, const Control& control) -> Value {                                  \
        (void)all;                                                                                 \
        (void)control;                                                                             \
        return value;                                                                              \
    }

// clang-format off
const ControlFlag FLAGS[] = {
    {"label",            APPLY(all.SetLabel(control, call.Text("label"))),      QUERY(control.record.label)},
    {"annotation",       APPLY(control.panel->setStatusTip(call.Text("annotation"))), QUERY(control.panel->statusTip())},
    {"enable",           APPLY(control.panel->setEnabled(call.Bool("enable"))), QUERY(control.panel->isEnabled())},
    {"requiredPlugin",   APPLY(all.SetRequiredPlugins(control, call.Texts("requiredPlugin"))), nullptr},
    {"requiredControl",  APPLY(control.record.requiredControls = call.Texts("requiredControl")), nullptr},
    {"checksPlugins",    APPLY(control.record.checksPlugins = call.Bool("checksPlugins")), nullptr},
    {"retain",           APPLY(control.record.retain = call.Bool("retain")),    nullptr},
    {"loadImmediately",  APPLY(control.record.loadImmediately = call.Bool("loadImmediately")), nullptr},
    {"closeCommand",     APPLY(control.record.closeCommand = call.GetScript("closeCommand")), nullptr},
    {"initCallback",     APPLY(control.record.initCallback = (Script{Language::Mel, call.Text("initCallback"), {}})),
                         QUERY(control.record.initCallback.Description())},
    {"initialWidth",     SetInitial, nullptr},
    {"initialHeight",    SetInitial, nullptr},
    {"minimumWidth",     SetMinimum, QUERY(qMax(0, control.record.minimumSize.width()))},
    {"minimumHeight",    SetMinimum, QUERY(qMax(0, control.record.minimumSize.height()))},
    {"stateString",      SetState,   QUERY(WriteControlState(all.Place(control)))},
    {"floating",         APPLY(all.SetFloating(control, call.Bool("floating"))), QUERY(all.Place(control).floating)},
    {"dockToMainWindow", DockToMainWindow, nullptr},
    {"dockToPanel",      DockToPanel, nullptr},
    {"dockToControl",    DockToControl, nullptr},
    {"tabToControl",     TabToControl, nullptr},
    {"visible",          SetVisible, QUERY(all.Place(control).visible)},
    {"collapse",         APPLY(all.SetCollapsed(control, call.Bool("collapse"))), QUERY(all.Place(control).collapsed)},
    {"resizeWidth",      Resize, nullptr},
    {"resizeHeight",     Resize, nullptr},
    {"uiScript",         APPLY(control.record.uiScript = call.GetScript("uiScript")), nullptr},
    {"restore",          APPLY(all.Restore(control)), nullptr},
    {"raise",            APPLY(all.Restore(control)), QUERY(all.IsInFront(control))},
    {"width",            APPLY(all.SetPanelSize(control, {call.Int("width"), -1})),  QUERY(control.panel->width())},
    {"height",           APPLY(all.SetPanelSize(control, {-1, call.Int("height")})), QUERY(control.panel->height())},
    {"fullPathName",     nullptr, QUERY(control.element->FullName())},
    // Last, as the control may be gone afterwards.
    {"close",            APPLY(all.Close(control)), nullptr},
};

const char CONTROL_FLAGS[] =
    "actLikeMayaUIElement/alm B cqe; annotation/ann str cqe; checksPlugins/cp B ce; close/cl - e;"
    "closeCommand/cc script ce; collapse/clp B cqe; dockToControl/dtc str str ce;"
    "dockToMainWindow/dtm str B ce; dockToPanel/dtp str str B ce; duplicatable/dup B cqe;"
    "enable/en B cqe; exists/ex - cqe; floating/fl B cqe; fullPathName/fpn - q; height/h int cqe;"
    "heightProperty/hp str cqe; horizontal/hr B cqe; initCallback/ic str cqe;"
    "initialHeight/ih int ce; initialWidth/iw int ce; label/l str cqe;"
    "layoutDirectionCallback/ldc str cqe; loadImmediately/li B ce; minimumHeight/mh int cqe;"
    "minimumWidth/mw int cqe; raise/r - qe; requiredControl/rc str cem; requiredPlugin/rp str cem;"
    "resizeHeight/rsh int e; resizeWidth/rsw int e; restore/rs - ce; retain/rt B c;"
    "stateString/ss str cqe; tabPosition/tp str B cqe; tabToControl/ttc str int ce;"
    "uiScript/ui script ce; visible/vis B cqe; width/w int cqe; widthProperty/wp str cqe";
// clang-format on

#undef APPLY
#undef QUERY

const ControlFlag* FindFlag(const QString& name)
{
    for (const ControlFlag& flag : FLAGS) {
        if (name == QLatin1String(flag.name))
            return &flag;
    }
    return nullptr;
}

Outcome NotAvailable(const Call& call)
{
    return Error{
        QStringLiteral("%1 is not available in batch mode.").arg(call.GetCommand().GetName())};
}

/// Carries out every flag given. The control may be gone when this returns.
Outcome ApplyFlags(WorkspaceControls& all, const QString& name, const Call& call)
{
    for (const QString& given : call.GivenFlags()) {
        const ControlFlag* flag = FindFlag(given);
        if (!flag || !flag->apply)
            all.Find(name)->record.others.insert(given, call.Argument(given.toLatin1()));
    }
    for (const ControlFlag& flag : FLAGS) {
        if (!flag.apply || !call.GivenFlags().contains(QLatin1String(flag.name)))
            continue;
        Control* control = all.Find(name);
        const QString problem = control ? flag.apply(all, *control, call) : QString();
        if (!problem.isNull())
            return Error{problem};
    }
    return name;
}

bool Gives(const Call& call, const char* flag)
{
    return call.GivenFlags().contains(QLatin1String(flag));
}

Outcome CreateControl(WorkspaceControls& all, const Call& call)
{
    ControlRecord record;
    record.name = call.ObjectText();
    record.visible = false;
    const Control* created = all.Create(record);
    if (!created)
        return Error{InterfaceModel::NotUnique(record.name)};
    const QString name = created->record.name;
    const QPointer<Element> element = created->element;
    const Outcome outcome = ApplyFlags(all, name, call);
    Control* control = all.Find(name);
    if (!control)
        return outcome;
    if (!outcome.Ok()) {
        InterfaceModel::Current().Delete(control->element);
        return outcome;
    }
    if (!Gives(call, "visible") && !Gives(call, "stateString"))
        all.Restore(*control);
    if (Gives(call, "uiScript"))
        all.Fill(name);
    // Whatever the script made current, what comes next goes into the new control.
    InterfaceModel::Current().SetCurrentParent(element);
    return element ? element->FullName() : name;
}

Outcome QueryControl(WorkspaceControls& all, const Control& control, const Call& call)
{
    const QString given = call.GivenFlags().value(0);
    if (given.isEmpty())
        return Error{QStringLiteral("Nothing to query: name a flag.")};
    const ControlFlag* flag = FindFlag(given);
    if (flag && flag->query)
        return flag->query(all, control);
    const Value kept = control.record.others.value(given);
    if (!kept.IsNone())
        return kept;
    const Flag* declared = call.GetCommand().FindFlag(given);
    const bool isText = declared->arguments.value(0) == ArgumentType::String;
    return isText ? Value(QString()) : Value(false);
}

Outcome RunWorkspaceControl(Call& call)
{
    WorkspaceControls* all = WorkspaceControls::Current();
    if (!all)
        return NotAvailable(call);
    const QString name = call.ObjectText();
    if (Gives(call, "exists"))
        return all->Contains(name);
    if (call.IsCreate())
        return CreateControl(*all, call);
    Control* control = all->Find(name);
    if (!control)
        return Error{InterfaceModel::NotFound(name)};
    if (call.IsQuery())
        return QueryControl(*all, *control, call);
    return ApplyFlags(*all, name, call);
}

// workspaceControlState

const char STATE_FLAGS[]
    = "defaultTopLeftCorner/dc int int cqe; defaultWidthHeight/dwh int int cqe;"
      "exists/ex - cqe; height/h int cqe; leftEdge/le int cqe; maximized/max B cqe;"
      "remove/r - c; topEdge/te int cqe; topLeftCorner/tlc int int cqe;"
      "width/w int cqe; widthHeight/wh int int cqe";

struct StateFlag
{
    const char* name;
    void (*apply)(FrameRecord&, const Call&);
    Value (*query)(const FrameRecord&);
};

void SetWidth(FrameRecord& frame, int width)
{
    frame.geometry.setWidth(qMax(1, width));
    frame.hasSize = frame.geometry.isValid();
}

void SetHeight(FrameRecord& frame, int height)
{
    frame.geometry.setHeight(qMax(1, height));
    frame.hasSize = frame.geometry.isValid();
}

void MoveTo(FrameRecord& frame, int left, int top)
{
    frame.geometry.moveTopLeft({left, top});
    frame.hasPosition = true;
}

// clang-format off
const StateFlag STATES[] = {
    {"defaultTopLeftCorner", [](FrameRecord& f, const Call& c) { f.defaultTopLeft = {c.Int("defaultTopLeftCorner", 1), c.Int("defaultTopLeftCorner")}; },
                             [](const FrameRecord& f) -> Value { return IntList{f.defaultTopLeft.y(), f.defaultTopLeft.x()}; }},
    {"defaultWidthHeight",   [](FrameRecord& f, const Call& c) { f.defaultSize = {c.Int("defaultWidthHeight"), c.Int("defaultWidthHeight", 1)}; },
                             [](const FrameRecord& f) -> Value { return IntList{f.defaultSize.width(), f.defaultSize.height()}; }},
    {"topLeftCorner",        [](FrameRecord& f, const Call& c) { MoveTo(f, c.Int("topLeftCorner", 1), c.Int("topLeftCorner")); },
                             [](const FrameRecord& f) -> Value { return IntList{f.geometry.top(), f.geometry.left()}; }},
    {"topEdge",              [](FrameRecord& f, const Call& c) { MoveTo(f, f.geometry.left(), c.Int("topEdge")); },
                             [](const FrameRecord& f) -> Value { return f.geometry.top(); }},
    {"leftEdge",             [](FrameRecord& f, const Call& c) { MoveTo(f, c.Int("leftEdge"), f.geometry.top()); },
                             [](const FrameRecord& f) -> Value { return f.geometry.left(); }},
    {"widthHeight",          [](FrameRecord& f, const Call& c) { SetWidth(f, c.Int("widthHeight")); SetHeight(f, c.Int("widthHeight", 1)); },
                             [](const FrameRecord& f) -> Value { return IntList{f.geometry.width(), f.geometry.height()}; }},
    {"width",                [](FrameRecord& f, const Call& c) { SetWidth(f, c.Int("width")); },
                             [](const FrameRecord& f) -> Value { return f.geometry.width(); }},
    {"height",               [](FrameRecord& f, const Call& c) { SetHeight(f, c.Int("height")); },
                             [](const FrameRecord& f) -> Value { return f.geometry.height(); }},
    {"maximized",            [](FrameRecord& f, const Call& c) { f.maximized = c.Bool("maximized"); },
                             [](const FrameRecord& f) -> Value { return f.maximized; }},
};
// clang-format on

Outcome QueryState(const FrameRecord& frame, const Call& call)
{
    for (const StateFlag& state : STATES) {
        if (Gives(call, state.name))
            return state.query(frame);
    }
    return Error{QStringLiteral("Nothing to query: name a flag.")};
}

Outcome RunWorkspaceControlState(Call& call)
{
    WorkspaceControls* all = WorkspaceControls::Current();
    if (!all)
        return NotAvailable(call);
    const QString name = call.ObjectText();
    if (name.isEmpty()) {
        return Error{QStringLiteral("This command requires at least 1 argument(s) to be specified "
                                    "or selected; found 0.")};
    }
    if (Gives(call, "exists"))
        return all->HasFrame(name);
    if (call.IsQuery()) {
        if (!all->HasFrame(name))
            return Error{InterfaceModel::NotFound(name)};
        return QueryState(all->GetFrame(name), call);
    }
    if (Gives(call, "remove")) {
        all->RemoveFrame(name);
        return {};
    }
    FrameRecord frame = all->GetFrame(name);
    for (const StateFlag& state : STATES) {
        if (Gives(call, state.name))
            state.apply(frame, call);
    }
    all->SetFrame(name, frame);
    return {};
}

// clang-format off
const CommandRow COMMANDS[] = {
    {"workspaceControl",      "any",  "QE", "[String]", CONTROL_FLAGS, RunWorkspaceControl},
    {"workspaceControlState", "any",  "QE", "[String]", STATE_FLAGS,   RunWorkspaceControlState},
};
// clang-format on

} // namespace

void RegisterWorkspaceCommands(Engine& engine)
{
    engine.commands.Register(COMMANDS);
}

} // namespace host::ui
