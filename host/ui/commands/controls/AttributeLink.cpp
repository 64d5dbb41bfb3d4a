#include "ui/commands/controls/AttributeLink.h"

#include "commands/Quoting.h"
#include "engine/Engine.h"
#include "scene/Scene.h"
#include "ui/commands/controls/Collections.h"
#include "ui/commands/controls/ColorSwatch.h"
#include "ui/commands/controls/FieldGroup.h"
#include "ui/commands/controls/NumberBox.h"
#include "ui/commands/controls/RangeSlider.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSpinBox>

#include <utility>

namespace host::ui {

namespace {

constexpr int DIGITS = 17; ///< that a float needs to stay what it is

// How each sort of field shows a value and is read. Showing tells nobody.

template <typename T>
bool Is(const QWidget* field)
{
    return qobject_cast<const T*>(field);
}

template <typename T>
T* To(const QWidget* field)
{
    return static_cast<T*>(const_cast<QWidget*>(field));
}

template <typename Box>
void ShowNumber(QWidget* field, double number)
{
    const QSignalBlocker blocker(field);
    auto* box = To<Box>(field);
    box->setValue(qBound<double>(box->minimum(), number, box->maximum()));
}

/// A text that is being typed stays.
bool IsBeingTyped(const QWidget* field)
{
    if (const auto* text = qobject_cast<const QPlainTextEdit*>(field))
        return text->document()->isModified();
    return Is<QLineEdit>(field) && field->property("edited").toBool();
}

void ShowColor(QWidget* field, const Value& value)
{
    const auto part = [&](int index) {
        return qBound(0.0, value.Count() > index ? value.At(index).ToFloat() : 0.0, 1.0);
    };
    To<ColorSwatch>(field)->SetColor(QColor::fromRgbF(part(0), part(1), part(2)));
}

Value ReadColor(const QWidget* field)
{
    const QColor color = To<ColorSwatch>(field)->GetColor();
    return FloatList{color.redF(), color.greenF(), color.blueF()};
}

QVector<QRadioButton*> RadiosIn(const QWidget* field)
{
    return field->findChildren<QRadioButton*>().toVector();
}

void ShowRadio(QWidget* field, int index)
{
    const QVector<QRadioButton*> buttons = RadiosIn(field);
    for (QRadioButton* button : buttons)
        SwitchSilently(button, false);
    if (index >= 0 && index < buttons.size())
        SwitchSilently(buttons.at(index), true);
}

int CheckedRadio(const QWidget* field)
{
    const QVector<QRadioButton*> buttons = RadiosIn(field);
    for (int i = 0; i < buttons.size(); ++i) {
        if (buttons.at(i)->isChecked())
            return i;
    }
    return -1;
}

void ShowChoice(QWidget* field, int index)
{
    const QSignalBlocker blocker(field);
    To<QComboBox>(field)->setCurrentIndex(index);
}

struct FieldRow
{
    bool (*fits)(const QWidget*);
    void (*show)(QWidget*, const Value&);
    Value (*read)(const QWidget*);
};

// clang-format off
const FieldRow FIELDS[] = {
    {Is<NumberBox>,       [](QWidget* w, const Value& v) { To<NumberBox>(w)->SetNumber(v.ToFloat()); }, [](const QWidget* w) { return To<NumberBox>(w)->Number(); }},
    {Is<RangeSlider>,     [](QWidget* w, const Value& v) { To<RangeSlider>(w)->SetNumber(v.ToFloat()); }, [](const QWidget* w) { return To<RangeSlider>(w)->Number(); }},
    {Is<QSpinBox>,        [](QWidget* w, const Value& v) { ShowNumber<QSpinBox>(w, v.ToFloat()); }, [](const QWidget* w) -> Value { return To<QSpinBox>(w)->value(); }},
    {Is<QDoubleSpinBox>,  [](QWidget* w, const Value& v) { ShowNumber<QDoubleSpinBox>(w, v.ToFloat()); }, [](const QWidget* w) -> Value { return To<QDoubleSpinBox>(w)->value(); }},
    {Is<QLineEdit>,       [](QWidget* w, const Value& v) { To<QLineEdit>(w)->setText(v.ToText()); }, [](const QWidget* w) -> Value { return To<QLineEdit>(w)->text(); }},
    {Is<QPlainTextEdit>,  [](QWidget* w, const Value& v) { To<QPlainTextEdit>(w)->setPlainText(v.ToText()); }, [](const QWidget* w) -> Value { return To<QPlainTextEdit>(w)->toPlainText(); }},
    {Is<QComboBox>,       [](QWidget* w, const Value& v) { ShowChoice(w, v.ToInt()); }, [](const QWidget* w) -> Value { return To<QComboBox>(w)->currentIndex(); }},
    {Is<ColorSwatch>,     ShowColor, ReadColor},
    {Is<FieldGroup>,      [](QWidget* w, const Value& v) { ShowRadio(w, v.ToInt()); }, [](const QWidget* w) -> Value { return CheckedRadio(w); }},
    {Is<QAbstractButton>, [](QWidget* w, const Value& v) { SwitchSilently(To<QAbstractButton>(w), v.ToBool()); }, [](const QWidget* w) -> Value { return To<QAbstractButton>(w)->isChecked(); }},
};
// clang-format on

const FieldRow* RowOf(const QWidget* field)
{
    for (const FieldRow& row : FIELDS) {
        if (field && row.fits(field))
            return &row;
    }
    return nullptr;
}

Value ReadField(const AttributeLink::Part& part)
{
    const Value value = RowOf(part.field)->read(part.field);
    return part.numbers.isEmpty() ? value : Value(part.numbers.value(value.ToInt(), -1));
}

void ShowOnSlider(const AttributeLink::Part& part)
{
    if (!part.slider)
        return;
    const Value shown = RowOf(part.field)->read(part.field);
    const bool isColor = Is<ColorSwatch>(part.field);
    const double number
        = isColor ? To<ColorSwatch>(part.field)->GetColor().valueF() : shown.ToFloat();
    if (!isColor) {
        part.slider->SetRange(
            qMin(part.slider->GetLeast(), number), qMax(part.slider->GetMost(), number));
    }
    part.slider->SetNumber(number);
}

void ShowInField(const AttributeLink::Part& part)
{
    const Value choice
        = part.numbers.isEmpty() ? part.value : Value(part.numbers.indexOf(part.value.ToInt()));
    RowOf(part.field)->show(part.field, choice);
    ShowOnSlider(part);
}

// Attributes

/// Invalid while the node or the attribute is not there.
scene::Plug PlugOf(const AttributeLink::Part& part)
{
    if (!part.node || !part.node->IsInScene())
        return {};
    return scene::Plug::FromKey(*part.node, part.key);
}

QString NumberText(double number)
{
    return QString::number(number, 'g', DIGITS);
}

/// The command that gives the attribute what its field shows.
QString SettingText(const AttributeLink::Part& part, const scene::Plug& plug)
{
    const QString name = commands::Quoted(scene::Scene::Current().DisplayName(plug));
    const Value value = ReadField(part);
    if (plug.attribute->type->storage == scene::Storage::String) {
        return QStringLiteral("setAttr -type \"string\" %1 %2")
            .arg(name, commands::Quoted(value.ToText()));
    }
    QStringList numbers;
    for (int i = 0; value.IsArray() && i < value.Count(); ++i)
        numbers += NumberText(value.At(i).ToFloat());
    if (numbers.isEmpty())
        numbers += NumberText(value.ToFloat());
    return QStringLiteral("setAttr -clamp %1 %2").arg(name, numbers.join(QLatin1Char(' ')));
}

bool IsSwitchable(const QWidget* widget)
{
    const auto* button = qobject_cast<const QAbstractButton*>(widget);
    return button && button->isCheckable();
}

AttributeLink::Part PartFor(QWidget* field, RangeSlider* slider = nullptr)
{
    AttributeLink::Part part;
    part.field = field;
    part.slider = slider;
    return part;
}

/// What scripts gave the choices of a menu or a radio group as their numbers; empty when nothing.
QVector<int> NumbersOf(const Element& element)
{
    QVector<int> numbers;
    if (element.GetType() == QLatin1String("radioButtonGrp")) {
        for (int i = 1; i <= 4; ++i)
            numbers += element.values.value(QStringLiteral("data%1").arg(i)).ToInt();
    } else {
        const Element* menu = &element;
        if (element.GetType() == QLatin1String("optionMenuGrp") && !element.GetChildren().isEmpty())
            menu = element.GetChildren().first();
        for (const Element* item : menu->GetChildren())
            numbers += item->values.value(QStringLiteral("data")).ToInt();
    }
    return numbers.count(0) == numbers.size() ? QVector<int>() : numbers;
}

} // namespace

AttributeLink* AttributeLink::Of(const Element& element)
{
    return element.findChild<AttributeLink*>(QString(), Qt::FindDirectChildrenOnly);
}

QVector<AttributeLink::Part> AttributeLink::PartsOf(const Element& element)
{
    QWidget* const widget = element.GetWidget();
    if (!widget)
        return {};
    auto* const group = qobject_cast<FieldGroup*>(widget);
    QVector<Part> parts;
    if (!RadiosIn(widget).isEmpty()) {
        parts += PartFor(widget);
        parts[0].numbers = NumbersOf(element);
    } else if (auto* combo = widget->findChild<QComboBox*>()) {
        parts += PartFor(combo);
        parts[0].numbers = NumbersOf(element);
    } else if (group && group->FieldCount() > 1 && group->Field<QObject>(1)->inherits("QSlider")) {
        parts += PartFor(group->Field<QWidget>(0), group->Field<RangeSlider>(1));
    } else if (group) {
        for (int i = 0; i < group->FieldCount(); ++i) {
            QWidget* field = group->Field<QWidget>(i);
            if (RowOf(field) && (!qobject_cast<QAbstractButton*>(field) || IsSwitchable(field)))
                parts += PartFor(field);
        }
    } else if (RowOf(widget) && (!qobject_cast<QAbstractButton*>(widget) || IsSwitchable(widget))) {
        parts += PartFor(widget);
    }
    return parts;
}

void AttributeLink::SetPlug(Part& part, const scene::Plug& plug)
{
    part.node = plug.node->shared_from_this();
    part.key = plug.key;
}

void AttributeLink::Add(Element& element, const QVector<Part>& parts)
{
    AttributeLink* link = Of(element);
    if (!link)
        link = new AttributeLink(element);
    for (const Part& part : parts) {
        const auto known = std::find_if(link->m_parts.begin(), link->m_parts.end(),
            [&](const Part& other) { return other.field == part.field; });
        if (known != link->m_parts.end())
            *known = part;
        else
            link->m_parts += part;
    }
    link->Refresh();
}

AttributeLink::AttributeLink(Element& element)
    : QObject(&element)
    , m_viewer([this] { Refresh(); })
{
    element.calling = [link = QPointer<AttributeLink>(this)](const QString& flag) {
        if (link)
            link->OnCalling(flag);
    };
}

AttributeLink::~AttributeLink()
{
    if (m_dragging && Engine::Exists())
        Engine::Current().undoQueue.CloseChunk();
}

QStringList AttributeLink::AttributeNames() const
{
    QStringList names;
    for (const Part& part : m_parts) {
        const scene::Plug plug = PlugOf(part);
        names += plug.IsValid() ? scene::Scene::Current().DisplayName(plug) : QString();
    }
    return names;
}

void AttributeLink::OnCalling(const QString& flag)
{
    const bool drags = flag == QLatin1String("dragCommand");
    const bool ends = flag.startsWith(QLatin1String("changeCommand"))
        || flag.startsWith(QLatin1String("onCommand"))
        || flag.startsWith(QLatin1String("offCommand"));
    if (!drags && !ends)
        return;
    UndoQueue& queue = Engine::Current().undoQueue;
    if (drags && !std::exchange(m_dragging, true))
        queue.OpenChunk();
    const QPointer<AttributeLink> alive(this);
    for (int i = 0; alive && i < m_parts.size(); ++i) {
        const scene::Plug plug = PlugOf(m_parts.at(i));
        const bool isEdited = m_parts.at(i).field && plug.IsValid() && !m_parts.at(i).isGrey
            && !(ReadField(m_parts.at(i)) == m_parts.at(i).shown);
        if (!isEdited)
            continue;
        Engine::Current().Execute(Language::Mel, SettingText(m_parts.at(i), plug), false);
        // The attribute may have made something else of it, or have refused it.
        if (alive)
            m_parts[i].value = {};
    }
    if (!alive)
        return;
    if (ends && std::exchange(m_dragging, false))
        queue.CloseChunk();
    Refresh();
}

void AttributeLink::Refresh()
{
    for (Part& part : m_parts) {
        if (!part.field)
            continue;
        const scene::Plug plug = PlugOf(part);
        const bool isGrey = !plug.IsValid() || !plug.IsSettable();
        if (isGrey != std::exchange(part.isGrey, isGrey)) {
            part.field->setEnabled(!isGrey);
            if (part.slider)
                part.slider->setEnabled(!isGrey);
        }
        if (!plug.IsValid() || IsBeingTyped(part.field))
            continue;
        const Value value = scene::Scene::Current().GetValue(plug);
        if (!part.value.IsNone() && value == part.value)
            continue;
        part.value = value;
        ShowInField(part);
        part.shown = ReadField(part);
    }
}

} // namespace host::ui
