#include "engine/Engine.h"
#include "ui/commands/Tables.h"
#include "ui/commands/windows/ScriptWindow.h"

namespace host::ui {

namespace {

void MakeWindow(Element& element, const Call& call)
{
    const UserInterface* interface = Engine::Current().ui;
    auto* window = new ScriptWindow(element, interface ? interface->MainWindow() : nullptr);
    element.aboutToGo = [&element] {
        if (auto* dying = As<ScriptWindow>(element))
            dying->Remember();
    };
    if (call.Has("topLeftCorner") || call.Has("leftEdge") || call.Has("topEdge"))
        window->ChooseOwnPlace();
    element.SetWidget(window, window->GetContent());
    InterfaceModel& model = InterfaceModel::Current();
    model.SetCurrentParent(&element);
    model.SetCurrentMenu(nullptr);
}

void SetWidthHeight(Edit& edit)
{
    edit.element.values.insert(QStringLiteral("width"), edit.Int(0));
    edit.element.values.insert(QStringLiteral("height"), edit.Int(1));
    ApplySize(edit.element);
}

void SetIconified(Edit& edit)
{
    QWidget* window = edit.element.GetWidget();
    if (edit.Bool())
        window->showMinimized();
    else if (window->isMinimized())
        window->showNormal();
}

/// The main window stays as it is.
void SetSizeable(Edit& edit)
{
    edit.element.values.insert(QStringLiteral("sizeable"), edit.Bool());
    if (auto* window = qobject_cast<ScriptWindow*>(edit.element.GetWidget()))
        window->SetSizeable(edit.Bool());
}

void SetFitting(Edit& edit)
{
    if (auto* window = qobject_cast<ScriptWindow*>(edit.element.GetWidget()))
        window->SetFitting(edit.Bool());
}

Value IsFitting(Element& element)
{
    const auto* window = qobject_cast<ScriptWindow*>(element.GetWidget());
    return window && window->IsFitting();
}

Value Size(Element& element)
{
    const QWidget* window = element.GetWidget();
    return IntList{Unscaled(window->width()), Unscaled(window->height())};
}

void SetToolBox(Edit& edit)
{
    edit.element.GetWidget()->setWindowFlag(Qt::Tool, edit.Bool());
}

void SetMenuBarVisible(Edit& edit)
{
    QWidget* bar = edit.As<QMainWindow>()->menuWidget();
    if (bar)
        bar->setVisible(edit.Bool());
}

Value IsFront(Element& element)
{
    return element.GetWidget()->isActiveWindow() ? element.GetName() : QString();
}

// clang-format off
const Property WINDOW[] = {
    {"title",           [](Edit& e) { e.element.GetWidget()->setWindowTitle(e.Text()); },
                        [](Element& e) -> Value { return e.GetWidget()->windowTitle(); }},
    {"toolbox",         SetToolBox, nullptr},
    {"width",           [](Edit& e) { e.element.values.insert(QStringLiteral("width"), e.Int()); ApplySize(e.element); },
                        [](Element& e) { return Size(e).At(0); }},
    {"height",          [](Edit& e) { e.element.values.insert(QStringLiteral("height"), e.Int()); ApplySize(e.element); },
                        [](Element& e) { return Size(e).At(1); }},
    {"widthHeight",     SetWidthHeight, Size},
    {"resizeToFitChildren", SetFitting, IsFitting},
    {"topLeftCorner",   [](Edit& e) { e.element.GetWidget()->move(e.Int(1), e.Int(0)); },
                        [](Element& e) -> Value { return IntList{e.GetWidget()->y(), e.GetWidget()->x()}; }},
    {"leftEdge",        [](Edit& e) { e.element.GetWidget()->move(e.Int(), e.element.GetWidget()->y()); },
                        [](Element& e) -> Value { return e.GetWidget()->x(); }},
    {"topEdge",         [](Edit& e) { e.element.GetWidget()->move(e.element.GetWidget()->x(), e.Int()); },
                        [](Element& e) -> Value { return e.GetWidget()->y(); }},
    {"iconify",         SetIconified, [](Element& e) -> Value { return e.GetWidget()->isMinimized(); }},
    {"iconName",        [](Edit& e) { e.element.GetWidget()->setWindowIconText(e.Text()); },
                        [](Element& e) -> Value { return e.GetWidget()->windowIconText(); }},
    {"sizeable",        SetSizeable, [](Element& e) { return Stored(e, "sizeable", true); }},
    {"minimizeButton",  [](Edit& e) { e.element.GetWidget()->setWindowFlag(Qt::WindowMinimizeButtonHint, e.Bool()); },
                        [](Element& e) -> Value { return bool(e.GetWidget()->windowFlags() & Qt::WindowMinimizeButtonHint); }},
    {"maximizeButton",  [](Edit& e) { e.element.GetWidget()->setWindowFlag(Qt::WindowMaximizeButtonHint, e.Bool()); },
                        [](Element& e) -> Value { return bool(e.GetWidget()->windowFlags() & Qt::WindowMaximizeButtonHint); }},
    {"menuBarVisible",  SetMenuBarVisible, nullptr},
    {"menuArray",       nullptr, [](Element& e) -> Value { return ChildNames(e, MenuKind); }},
    {"numberOfMenus",   nullptr, [](Element& e) -> Value { return ChildNames(e, MenuKind).size(); }},
    {"frontWindow",     nullptr, IsFront},
};

const ControlRow WINDOW_ROWS[] = {
    {"window", WindowKind, MakeWindow, WINDOW,
        "closeCommand/cc script ce; dockCorner/dc str str cm; dockStation/ds - c; dockingLayout/dl str cqe; frontWindow/fw - q;"
        "iconName/iconName str cqe; iconify/i B cqe; interactivePlacement/ip - c; leftEdge/le int cqe; mainMenuBar/mm B cqe;"
        "mainWindow/mw B cqe; maximizeButton/mxb B cqe; menuArray/ma - q; menuBar/mb B cq; menuBarCornerWidget/mcw str str qe;"
        "menuBarResize/mbr - e; menuBarVisible/mbv B cqe; menuIndex/mi str int e; minimizeButton/mnb B cqe;"
        "minimizeCommand/mnc script ce; nestedDockingEnabled/nde - c; numberOfMenus/nm - q; resizeToFitChildren/rtf B cqe;"
        "restoreCommand/rc script ce; retain/ret - c; sizeable/s B cqe; state/st str cqe; title/t str cqe; titleBar/tb B cqe;"
        "titleBarMenu/tbm B cqe; toolbox/tlb B cqe; topEdge/te int cqe; topLeftCorner/tlc int int cqe; widthHeight/wh int int cqe;"},
};
// clang-format on

Outcome ShowWindow(Call& call)
{
    Element* window = nullptr;
    if (!call.ObjectText().isEmpty()) {
        const Outcome found = FindElement(call.ObjectText(), WindowKind, window);
        if (!found.Ok())
            return found;
    } else {
        const QVector<Element*> made
            = InterfaceModel::Current().List(WindowKind, QStringLiteral("window"));
        if (made.isEmpty())
            return Error{QStringLiteral("There is no window to show.")};
        window = made.last();
    }
    auto* scriptWindow = qobject_cast<ScriptWindow*>(window->GetWidget());
    if (scriptWindow) {
        scriptWindow->Present();
    } else {
        window->GetWidget()->show();
        window->GetWidget()->raise();
    }
    return {};
}

struct KindFlag
{
    const char* flag;
    int kinds;
};

const KindFlag DELETE_KINDS[] = {
    {"collection", CollectionKind},
    {"control", ANY_CONTROL},
    {"layout", LayoutKind},
    {"menu", MenuKind},
    {"menuItem", MenuItemKind},
    {"radioMenuItemCollection", CollectionKind},
    {"window", WindowKind},
    {"panel", LayoutKind},
    {"editor", ControlKind},
    {"panelConfig", 0},
    {"toolContext", 0},
    {"uiTemplate", TemplateKind},
};

const KindFlag LIST_KINDS[] = {
    {"collection", CollectionKind},
    {"radioMenuItemCollections", CollectionKind},
    {"controls", ControlKind},
    {"controlLayouts", LayoutKind},
    {"menus", MenuKind},
    {"menuItems", MenuItemKind},
    {"windows", WindowKind},
};

template <size_t N>
int KindsOf(const Call& call, const KindFlag (&flags)[N], bool& given)
{
    int kinds = 0;
    for (const KindFlag& row : flags) {
        if (!call.Has(row.flag))
            continue;
        given = true;
        kinds |= row.kinds;
    }
    return kinds;
}

bool IsMainWindow(const Element& element)
{
    const UserInterface* interface = Engine::Current().ui;
    return interface && element.GetWidget() && element.GetWidget() == interface->MainWindow();
}

Outcome DeleteElements(Call& call)
{
    bool given = false;
    const int kinds = KindsOf(call, DELETE_KINDS, given);
    QVector<QPointer<Element>> doomed;
    for (const QString& name : call.ObjectTexts()) {
        Element* element = nullptr;
        const Outcome found = FindElement(name, given ? kinds : ANY_KIND, element);
        if (!found.Ok())
            return found;
        if (IsMainWindow(*element))
            return Error{QStringLiteral("The main window cannot be deleted.")};
        doomed += element;
    }
    for (const QPointer<Element>& element : qAsConst(doomed)) {
        if (element)
            InterfaceModel::Current().Delete(element);
    }
    return {};
}

QVector<Element*> ListedElements(const Call& call, bool& given)
{
    const InterfaceModel& model = InterfaceModel::Current();
    const int kinds = KindsOf(call, LIST_KINDS, given);
    QVector<Element*> found = model.List(kinds);
    QStringList types = call.Texts("type");
    if (call.Has("workspaceControls"))
        types += QStringLiteral("workspaceControl");
    if (call.Has("panels"))
        types += QStringList{QStringLiteral("modelPanel"), QStringLiteral("outlinerPanel")};
    for (const QString& type : qAsConst(types)) {
        given = true;
        if (type == QLatin1String("control"))
            found += model.List(ANY_CONTROL);
        else if (type == QLatin1String("controlLayout"))
            found += model.List(LayoutKind);
        else
            found += model.List(ANY_KIND, type);
    }
    return found;
}

Outcome ListElements(Call& call)
{
    bool given = call.Has("editors") || call.Has("contexts") || call.Has("cmdTemplates");
    const QVector<Element*> found = ListedElements(call, given);
    if (!given)
        return Error{QStringLiteral("Name at least one type of element to list.")};
    QStringList names;
    for (const Element* element : found)
        names += call.Has("long") ? element->FullName() : element->GetName();
    names.removeDuplicates();
    if (call.Has("head"))
        names = names.mid(0, qMax(0, call.Int("head")));
    else if (call.Has("tail"))
        names = names.mid(qMax(0, names.size() - qMax(0, call.Int("tail"))));
    return names;
}

Outcome SetMenuParent(const Call& call)
{
    InterfaceModel& model = InterfaceModel::Current();
    Element* menu = model.GetCurrentMenu();
    const QString name = call.ObjectText();
    if (name == QLatin1String("..") || call.Has("upLevel")) {
        menu = menu && menu->GetParent() ? menu->GetParent()->Nearest(MenuKind | MenuItemKind)
                                         : nullptr;
    } else {
        const Outcome found = FindElement(
            name, ANY_KIND, [](const Element& e) { return TakesItems(e); }, menu);
        if (!found.Ok())
            return found;
    }
    model.SetCurrentMenu(menu);
    return menu ? menu->FullName() : QString();
}

Outcome SetLayoutParent(const Call& call)
{
    InterfaceModel& model = InterfaceModel::Current();
    Element* parent = model.GetCurrentParent();
    const QString name = call.ObjectText();
    if (call.Has("topLevel")) {
        while (parent && parent->GetParent())
            parent = parent->GetParent();
    } else if (name == QLatin1String("..") || call.Has("upLevel")) {
        parent = parent && parent->GetParent() ? parent->GetParent() : parent;
    } else {
        const Outcome found = FindElement(name, ANY_PARENT, parent);
        if (!found.Ok())
            return found;
    }
    model.SetCurrentParent(parent);
    return parent ? parent->FullName() : QString();
}

Outcome SetParentCommand(Call& call)
{
    const InterfaceModel& model = InterfaceModel::Current();
    if (call.IsQuery()) {
        const Element* current
            = call.Has("menu") ? model.GetCurrentMenu() : model.GetCurrentParent();
        return current ? current->FullName() : QString();
    }
    return call.Has("menu") ? SetMenuParent(call) : SetLayoutParent(call);
}

// clang-format off
const CommandRow COMMANDS[] = {
    {"showWindow", "none",     "",  "[String]", "", ShowWindow},
    {"setParent",  "string",   "Q", "[String]", "menu/m - cq; topLevel/top - c; upLevel/u - c", SetParentCommand},
    {"deleteUI",   "none",     "",  "String [String...]",
        "collection/cl - c; control/ctl - c; editor/ed - c; layout/lay - c; menu/m - c; menuItem/mi - c; panel/pnl - c;"
        "panelConfig/pc - c; radioMenuItemCollection/ric - c; toolContext/tc - c; uiTemplate/uit - c; window/wnd - c", DeleteElements},
    {"lsUI",       "string[]", "",  "",
        "cmdTemplates/ct - c; collection/col - c; contexts/ctx - c; controlLayouts/cl - c; controls/ctl - c; dumpWidgets/dw - c;"
        "editors/ed - c; head/hd int c; long/l - c; menuItems/mi - c; menus/m - c; numWidgets/nw - c; panels/p - c;"
        "radioMenuItemCollections/rmc - c; tail/tl int c; type/typ str cm; windows/wnd - c; workspaceControls/wc - c", ListElements},
};
// clang-format on

} // namespace

void RegisterWindowCommands(CommandRegistry& commands)
{
    RegisterControls(commands, WINDOW_ROWS);
    commands.Register(COMMANDS);
}

} // namespace host::ui
