#include "ui/commands/Control.h"

#include "engine/Engine.h"
#include "ui/commands/Templates.h"
#include "ui/commands/layouts/ColumnBox.h"
#include "ui/window/HostStyle.h"

#include <QAbstractButton>
#include <QLabel>
#include <QPushButton>

namespace host::ui {

namespace {

// clang-format off
const char COMMON_FLAGS[] =
    "annotation/ann str cqe; backgroundColor/bgc float float float cqe; defineTemplate/dt str c;"
    "docTag/dtg str cqe; dragCallback/dgc script ce; dropCallback/dpc script ce; enable/en B cqe;"
    "enableBackground/ebg B cqe; enableKeyboardFocus/ekf B cqe; exists/ex - cq;"
    "fullPathName/fpn - q; height/h int cqe; highlightColor/hlc float float float cqe;"
    "isObscured/io - q; manage/m B cqe; noBackground/nbg B ce; numberOfPopupMenus/npm - q;"
    "parent/p str cq; popupMenuArray/pma - q; preventOverride/po B cqe;"
    "statusBarMessage/sbm str cqe; useTemplate/ut str c; visible/vis B cqe;"
    "visibleChangeCommand/vcc script cqe; width/w int cqe;";
const char MENU_FLAGS[] =
    "annotation/ann str cqe; defineTemplate/dt str c; docTag/dtg str cqe; enable/en B cqe; exists/ex - cq;"
    "fullPathName/fpn - q; parent/p str cq; preventOverride/po B cqe; statusBarMessage/sbm str cqe;"
    "useTemplate/ut str c; visible/vis B cqe;";
// clang-format on

QHash<QString, const ControlRow*>& Rows()
{
    static QHash<QString, const ControlRow*> rows;
    return rows;
}

Value ColorValue(const QColor& color)
{
    return FloatList{color.redF(), color.greenF(), color.blueF()};
}

void SetBackground(Edit& edit)
{
    QWidget* widget = edit.element.GetWidget();
    const QColor color = QColor::fromRgbF(qBound(0.0, edit.Float(0), 1.0),
        qBound(0.0, edit.Float(1), 1.0), qBound(0.0, edit.Float(2), 1.0));
    QPalette palette = widget->palette();
    for (const auto role : {QPalette::Window, QPalette::Button, QPalette::Base})
        palette.setColor(role, color);
    widget->setPalette(palette);
    // The corners of a button stay what is behind them.
    widget->setProperty("ownColor", color);
    widget->setAutoFillBackground(!qobject_cast<QPushButton*>(widget));
    widget->update();
}

void SetAnnotation(Edit& edit)
{
    const QString text = edit.Text();
    edit.element.GetWidget()->setToolTip(text);
    if (!edit.element.values.contains(QStringLiteral("statusBarMessage")))
        edit.element.GetWidget()->setStatusTip(text);
}

void SetStatusText(Edit& edit)
{
    edit.element.values.insert(QStringLiteral("statusBarMessage"), edit.Text());
    edit.element.GetWidget()->setStatusTip(edit.Text());
}

void SetDimension(Edit& edit)
{
    edit.element.values.insert(QString::fromLatin1(edit.flag), qMax(1, edit.Int()));
    ApplySize(edit.element);
}

Value ObscuredValue(Element& element)
{
    const QWidget* widget = element.GetWidget();
    return !widget->isVisible() || widget->visibleRegion().isEmpty();
}

QStringList PopupMenus(const Element& element)
{
    return ChildNames(element, MenuKind);
}

Value ParentName(Element& element)
{
    return element.GetParent() ? element.GetParent()->FullName() : QString();
}

// clang-format off
const Property COMMON[] = {
    {"annotation",         SetAnnotation, [](Element& e) -> Value { return e.GetWidget()->toolTip(); }},
    {"backgroundColor",    SetBackground, [](Element& e) { return ColorValue(e.GetWidget()->palette().color(QPalette::Window)); }},
    {"enable",             [](Edit& e) { e.element.GetWidget()->setEnabled(e.Bool()); },
                           [](Element& e) -> Value { return e.GetWidget()->isEnabled(); }},
    {"enableBackground",   [](Edit& e) { e.element.GetWidget()->setAutoFillBackground(e.Bool()); },
                           [](Element& e) -> Value { return e.GetWidget()->autoFillBackground(); }},
    {"enableKeyboardFocus", [](Edit& e) { e.element.GetWidget()->setFocusPolicy(e.Bool() ? Qt::StrongFocus : Qt::NoFocus); },
                           [](Element& e) -> Value { return e.GetWidget()->focusPolicy() != Qt::NoFocus; }},
    {"fullPathName",       nullptr, [](Element& e) -> Value { return e.FullName(); }},
    {"width",              SetDimension, [](Element& e) { return Stored(e, "width", Unscaled(e.GetWidget()->width())); }},
    {"height",             SetDimension, [](Element& e) { return Stored(e, "height", Unscaled(e.GetWidget()->height())); }},
    {"isObscured",         nullptr, ObscuredValue},
    {"manage",             [](Edit& e) { e.element.GetWidget()->setVisible(e.Bool()); },
                           [](Element& e) -> Value { return !e.GetWidget()->isHidden(); }},
    {"visible",            [](Edit& e) { e.element.GetWidget()->setVisible(e.Bool()); },
                           [](Element& e) -> Value { return !e.GetWidget()->isHidden(); }},
    {"noBackground",       [](Edit& e) { e.element.GetWidget()->setAutoFillBackground(!e.Bool()); }, nullptr},
    {"numberOfPopupMenus", nullptr, [](Element& e) -> Value { return PopupMenus(e).size(); }},
    {"popupMenuArray",     nullptr, [](Element& e) -> Value { return PopupMenus(e); }},
    {"parent",             [](Edit&) {}, ParentName},
    {"statusBarMessage",   SetStatusText, [](Element& e) -> Value { return e.GetWidget()->statusTip(); }},
    {"exists",             [](Edit&) {}, nullptr},
};

const Property MENU_PART[] = {
    {"annotation",         [](Edit& e) { e.element.GetAction()->setStatusTip(e.Text()); },
                           [](Element& e) -> Value { return e.GetAction()->statusTip(); }},
    {"statusBarMessage",   [](Edit& e) { e.element.GetAction()->setStatusTip(e.Text()); },
                           [](Element& e) -> Value { return e.GetAction()->statusTip(); }},
    {"enable",             [](Edit& e) { e.element.GetAction()->setEnabled(e.Bool()); },
                           [](Element& e) -> Value { return e.GetAction()->isEnabled(); }},
    {"visible",            [](Edit& e) { e.element.GetAction()->setVisible(e.Bool()); },
                           [](Element& e) -> Value { return e.GetAction()->isVisible(); }},
    {"fullPathName",       nullptr, [](Element& e) -> Value { return e.FullName(); }},
    {"parent",             [](Edit&) {}, ParentName},
    {"exists",             [](Edit&) {}, nullptr},
};
// clang-format on

struct CommonSet
{
    const char* flags;
    Properties properties;
};

CommonSet CommonOf(const ControlRow& row)
{
    switch (row.common) {
    case CommonFlags::Control: return {COMMON_FLAGS, COMMON};
    case CommonFlags::MenuPart: return {MENU_FLAGS, MENU_PART};
    case CommonFlags::None: break;
    }
    return {nullptr, {}};
}

/// In the order in which they are applied.
QVector<Properties> PropertiesOf(const ControlRow& row)
{
    QVector<Properties> all{row.properties};
    for (const Family* family = row.family; family; family = family->base)
        all += family->properties;
    all += CommonOf(row).properties;
    return all;
}

/// The notation of all flags that the command shares with others. Commands point into it.
const char* SharedFlags(const ControlRow& row)
{
    static QHash<const Family*, QByteArray> joined;
    if (!row.family)
        return CommonOf(row).flags;
    QByteArray& text = joined[row.family];
    if (text.isEmpty()) {
        for (const Family* family = row.family; family; family = family->base)
            text += family->flags;
        text += CommonOf(row).flags;
    }
    return text.constData();
}

const Property* FindProperty(const ControlRow& row, const QString& flag)
{
    for (const Properties& properties : PropertiesOf(row)) {
        for (const Property& property : properties) {
            if (flag == QLatin1String(property.flag))
                return &property;
        }
    }
    return nullptr;
}

bool IsScript(const Flag& flag)
{
    return flag.arguments.value(0, ArgumentType::Bool) == ArgumentType::Script;
}

/// A flag without a row of its own.
void Keep(Element& element, const Call& call, const Flag& flag)
{
    const QByteArray name = flag.longName.toLatin1();
    if (IsScript(flag))
        element.SetCallback(flag.longName, call.GetScript(name));
    else if (flag.arguments.isEmpty())
        element.values.insert(flag.longName, true);
    else if (flag.arguments.size() == 1 && !flag.multiUse)
        element.values.insert(flag.longName, call.Argument(name));
    else
        element.values.insert(flag.longName, call.Texts(name));
}

Value Kept(const Element& element, const Flag& flag)
{
    if (IsScript(flag))
        return element.GetCallback(flag.longName).Description();
    const auto found = element.values.constFind(flag.longName);
    if (found != element.values.constEnd())
        return *found;
    if (flag.arguments.size() > 1)
        return StringList();
    switch (flag.arguments.value(0, ArgumentType::Bool)) {
    case ArgumentType::Bool: return false;
    case ArgumentType::Int:
    case ArgumentType::Unsigned: return 0;
    case ArgumentType::Float: return 0.0;
    default: return QString();
    }
}

Outcome ApplyRow(const Property& property, Element& element, const Call& call)
{
    Edit edit(element, call, property.flag);
    property.apply(edit);
    if (!edit.error.isEmpty())
        return Error{edit.error};
    return {};
}

/// Sets everything the call gives, in the order of the rows, as one flag may rest on another.
Outcome ApplyAll(const ControlRow& row, Element& element, const Call& call)
{
    QStringList left = call.GivenFlags();
    for (const QString& name : call.GivenFlags()) {
        const Property* property = FindProperty(row, name);
        if (property && property->apply)
            continue;
        Keep(element, call, *call.GetCommand().FindFlag(name));
        left.removeOne(name);
    }
    const QPointer<Element> alive(&element);
    const auto applyRows = [&](Properties rows) -> Outcome {
        for (const Property& property : rows) {
            if (!property.apply || !alive || !left.removeOne(QString::fromLatin1(property.flag)))
                continue;
            const Outcome outcome = ApplyRow(property, element, call);
            if (!outcome.Ok())
                return outcome;
        }
        return {};
    };
    for (const Properties& properties : PropertiesOf(row)) {
        const Outcome outcome = applyRows(properties);
        if (!outcome.Ok())
            return outcome;
    }
    return {};
}

Outcome QueryFlag(const ControlRow& row, Element& element, const Call& call)
{
    if (call.GivenFlags().isEmpty())
        return Error{QStringLiteral("Nothing to query: name a flag.")};
    const QString name = call.GivenFlags().first();
    const std::optional<Outcome> answer
        = row.answer ? row.answer(element, call) : std::optional<Outcome>();
    if (answer)
        return *answer;
    const Property* property = FindProperty(row, name);
    if (property && property->query)
        return property->query(element);
    return Kept(element, *call.GetCommand().FindFlag(name));
}

bool Suits(const ControlRow& row, const Element& element)
{
    return element.GetType() == QLatin1String(row.name) || (row.accepts && row.accepts(element));
}

Outcome FindTarget(const ControlRow& row, const Call& call, Element*& element)
{
    const QString name = call.ObjectText();
    if (name.isEmpty()) {
        return Error{QStringLiteral("This command requires at least 1 argument(s) to be specified "
                                    "or selected; found 0.")};
    }
    InterfaceModel& model = InterfaceModel::Current();
    QVector<Element*> found;
    for (Element* candidate : model.FindAll(name)) {
        if (Suits(row, *candidate))
            found += candidate;
        if (Suits(row, *candidate) && candidate->FullName() == name)
            element = candidate;
    }
    if (!element && found.size() == 1)
        element = found.first();
    if (element)
        return {};
    return Error{
        found.isEmpty() ? InterfaceModel::NotFound(name) : InterfaceModel::NotUnique(name)};
}

/// The text that stands before the control, else what it says about itself, else its name.
QString TextForAccess(const Element& element)
{
    const Element* before = nullptr;
    if (element.GetParent() && element.IndexInParent() > 0)
        before = element.GetParent()->GetChildren().at(element.IndexInParent() - 1);
    const auto* label = before ? qobject_cast<QLabel*>(before->GetWidget()) : nullptr;
    if (label && !label->text().isEmpty())
        return label->text();
    const QString tip = element.GetWidget()->toolTip();
    return tip.isEmpty() ? element.GetName() : tip;
}

bool SpeaksForItself(const Element& element)
{
    if (element.GetKind() != ControlKind || !element.GetWidget())
        return true;
    const auto* button = qobject_cast<QAbstractButton*>(element.GetWidget());
    const bool named = button && !button->text().isEmpty() && button->text() != element.GetName();
    return named || qobject_cast<QLabel*>(element.GetWidget())
        || !element.GetWidget()->accessibleName().isEmpty();
}

/// What templates say comes first, so that the call's own flags win.
Outcome ApplyNew(const ControlRow& row, Element& element, const Call& call)
{
    const QPointer<Element> alive(&element);
    for (const Call& templated : TemplateCalls(call)) {
        const Outcome outcome = ApplyAll(row, element, templated);
        if (!outcome.Ok() || !alive)
            return outcome;
    }
    return ApplyAll(row, element, call);
}

bool Gives(const Call& call, const char* flag)
{
    return call.GetCommand().FindFlag(QString::fromLatin1(flag)) && call.Has(flag);
}

Outcome CreateElement(const ControlRow& row, const Call& call)
{
    if (!row.make)
        return Error{QStringLiteral("%1 makes nothing: edit or query something that exists.")
                         .arg(QLatin1String(row.name))};
    if (Engine::Current().IsBatch())
        return Error{
            QStringLiteral("%1 is not available in batch mode.").arg(QLatin1String(row.name))};
    if (Gives(call, "defineTemplate"))
        return DefineTemplate(call);
    Element* parent = nullptr;
    const Outcome place
        = row.findParent ? row.findParent(call, parent) : FindParent(call, row.kind, parent);
    if (!place.Ok())
        return place;
    InterfaceModel& model = InterfaceModel::Current();
    const QString type = QString::fromLatin1(row.name);
    const QPointer<Element> element = model.Create(row.kind, type, call.ObjectText(), parent);
    if (!element)
        return Error{InterfaceModel::NotUnique(call.ObjectText())};
    row.make(*element, call);
    const Outcome outcome = ApplyNew(row, *element, call);
    if (!element)
        return outcome;
    if (!outcome.Ok()) {
        model.Delete(element);
        return outcome;
    }
    if (!SpeaksForItself(*element))
        NameForAccess(*element, TextForAccess(*element));
    return element->FullName();
}

Outcome RunControl(Call& call)
{
    const ControlRow& row = *Rows().value(call.GetCommand().GetName());
    Element* element = nullptr;
    if (Gives(call, "exists"))
        return FindTarget(row, call, element).Ok();
    if (call.IsCreate())
        return CreateElement(row, call);
    const Outcome found = FindTarget(row, call, element);
    if (!found.Ok())
        return found;
    if (call.IsQuery())
        return QueryFlag(row, *element, call);
    const QString name = element->FullName();
    const Outcome outcome = ApplyAll(row, *element, call);
    return outcome.Ok() ? Outcome(name) : outcome;
}

/// True when the parent gives the child its width, or height, whatever it asks for.
bool Stretches(const Element& parent, const Element& child, Qt::Orientation orientation)
{
    static const QStringList both{QStringLiteral("formLayout"), QStringLiteral("frameLayout"),
        QStringLiteral("tabLayout"), QStringLiteral("shelfTabLayout"), QStringLiteral("window"),
        QStringLiteral("workspaceControl"), QStringLiteral("paneLayout"),
        QStringLiteral("menuBarLayout"), QStringLiteral("layoutDialog")};
    if (both.contains(parent.GetType()))
        return true;
    QLayout* layout = parent.GetContent() ? parent.GetContent()->layout() : nullptr;
    if (const auto* columns = qobject_cast<ColumnBox*>(layout)) {
        const int index = columns->indexOf(child.GetWidget());
        return orientation == Qt::Horizontal && columns->Stretches(index);
    }
    return orientation == Qt::Horizontal && parent.GetType() == QLatin1String("columnLayout")
        && Stored(parent, "adjustableColumn", false).ToBool();
}

} // namespace

void RegisterControls(CommandRegistry& commands, const ControlRow* rows, int count)
{
    for (int i = 0; i < count; ++i) {
        const ControlRow& row = rows[i];
        Rows().insert(QString::fromLatin1(row.name), &row);
        const CommandRow command{row.name, "any", "QE", "[String]", row.flags, RunControl};
        commands.Register(std::make_unique<Command>(command, SharedFlags(row)));
    }
}

Outcome FindElement(
    const QString& name, int kinds, bool (*accepts)(const Element&), Element*& element)
{
    const InterfaceModel& model = InterfaceModel::Current();
    QVector<Element*> found;
    for (Element* candidate : model.FindAll(name, kinds)) {
        if (!accepts || accepts(*candidate))
            found += candidate;
    }
    element = found.size() == 1 ? found.first() : nullptr;
    for (Element* candidate : qAsConst(found)) {
        if (candidate->FullName() == name)
            element = candidate;
    }
    if (element)
        return {};
    return Error{
        found.isEmpty() ? InterfaceModel::NotFound(name) : InterfaceModel::NotUnique(name)};
}

Outcome FindParent(const Call& call, ElementKind kind, Element*& parent)
{
    parent = nullptr;
    if (kind == WindowKind)
        return {};
    if (call.Has("parent")) {
        const Outcome found = FindElement(call.Text("parent"), ANY_PARENT, parent);
        if (!found.Ok())
            return found;
    } else {
        parent = InterfaceModel::Current().GetCurrentParent();
    }
    if (!parent)
        return Error{
            QStringLiteral("No current window or layout: make one first, or use -parent.")};
    if (parent->GetKind() == WindowKind && kind == ControlKind) {
        return Error{QStringLiteral("Controls must have a layout.  No layout found in window : %1.")
                         .arg(parent->GetName())};
    }
    if (!parent->GetContent())
        return Error{QStringLiteral("Nothing can be put into '%1'.").arg(parent->FullName())};
    return {};
}

int Scaled(int length)
{
    return qRound(length * HostStyle::GetScale());
}

int Unscaled(int pixels)
{
    return qRound(pixels / HostStyle::GetScale());
}

void NameForAccess(Element& element, const QString& name)
{
    QWidget* widget = element.GetWidget();
    widget->setAccessibleName(name);
    if (QWidget* field = widget->focusProxy())
        field->setAccessibleName(name);
}

void ApplySize(Element& element)
{
    QWidget* widget = element.GetWidget();
    const int width = Scaled(Stored(element, "width", 0).ToInt());
    const int height = Scaled(Stored(element, "height", 0).ToInt());
    const Element* parent = element.GetParent();
    if (!parent) {
        widget->resize(width > 0 ? width : widget->width(), height > 0 ? height : widget->height());
        return;
    }
    if (width > 0 && !Stretches(*parent, element, Qt::Horizontal))
        widget->setFixedWidth(width);
    else if (width > 0 && widget->minimumWidth() == widget->maximumWidth())
        widget->setMinimumWidth(0), widget->setMaximumWidth(QWIDGETSIZE_MAX);
    if (height > 0 && !Stretches(*parent, element, Qt::Vertical))
        widget->setFixedHeight(height);
    if (parent->GetContent() && parent->GetContent()->layout())
        parent->GetContent()->layout()->invalidate();
}

QStringList ChildNames(const Element& element, int kinds)
{
    QStringList names;
    for (const Element* child : element.GetChildren()) {
        if (child->GetKind() & kinds)
            names += child->GetName();
    }
    return names;
}

Value Stored(const Element& element, const char* flag, const Value& fallback)
{
    return element.values.value(QString::fromLatin1(flag), fallback);
}

} // namespace host::ui
