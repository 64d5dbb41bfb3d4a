// Groups of fields that are made for the attribute they show.

#include "commands/scene/SceneCommands.h"
#include "ui/commands/Tables.h"
#include "ui/commands/controls/AttributeLink.h"
#include "ui/commands/controls/ColorSwatch.h"
#include "ui/commands/controls/FieldGroup.h"
#include "ui/commands/controls/NumberBox.h"
#include "ui/commands/controls/RangeSlider.h"
#include "ui/commands/windows/Prompts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>

#include <cmath>

namespace host::ui {

namespace {

const QString CHANGE = QStringLiteral("changeCommand");
const QString DRAG = QStringLiteral("dragCommand");
const QString HAS_LABEL = QStringLiteral("hasLabel");
constexpr int FIELD_WIDTH = 75;
constexpr int SWATCH_WIDTH = 60;
constexpr int SLIDER_WIDTH = 160;
constexpr int TEXT_WIDTH = 160;
constexpr double USUAL_MOST = 10; ///< of a slider whose attribute knows no end

/// Adds the field of one attribute to the group.
using Build = QVector<AttributeLink::Part> (*)(Element&, const scene::Plug&);

AttributeLink::Part PartFor(QWidget* field, const scene::Plug& plug)
{
    AttributeLink::Part part;
    part.field = field;
    AttributeLink::SetPlug(part, plug);
    return part;
}

NumberBox* AddNumber(Element& element, const scene::Plug& plug)
{
    auto* box = new NumberBox(plug.attribute->type->storage != scene::Storage::Float);
    if (plug.attribute->minimum)
        box->SetLeast(*plug.attribute->minimum);
    if (plug.attribute->maximum)
        box->SetMost(*plug.attribute->maximum);
    QObject::connect(box, &NumberBox::Changed, &element,
        [&element, box] { element.RunCallback(CHANGE, {box->Number()}); });
    Group(element)->Add(box, FIELD_WIDTH);
    return box;
}

QVector<AttributeLink::Part> BuildNumbers(Element& element, const scene::Plug& plug)
{
    const QVector<scene::Plug> children = plug.Children();
    QVector<AttributeLink::Part> parts;
    for (const scene::Plug& child : children.isEmpty() ? QVector<scene::Plug>{plug} : children)
        parts += PartFor(AddNumber(element, child), child);
    return parts;
}

/// A slider ends where the attribute does; an open end leaves room for twice its number.
void SetUsualRange(RangeSlider* slider, const scene::Plug& plug)
{
    const scene::Attribute& attribute = *plug.attribute;
    const double number = scene::Scene::Current().GetValue(plug).ToFloat();
    const auto least = attribute.softMinimum ? attribute.softMinimum : attribute.minimum;
    const auto most = attribute.softMaximum ? attribute.softMaximum : attribute.maximum;
    const double lower = least.value_or(qMin(0.0, 2 * number));
    slider->SetRange(lower, most.value_or(qMax(lower + USUAL_MOST, 2 * number)));
}

QVector<AttributeLink::Part> BuildSlider(Element& element, const scene::Plug& plug)
{
    if (plug.HasChildren())
        return BuildNumbers(element, plug);
    NumberBox* box = AddNumber(element, plug);
    auto* slider = new RangeSlider(box->IsWhole());
    SetUsualRange(slider, plug);
    const auto slid = [&element, box, slider](const QString& callback) {
        box->SetNumber(slider->Number().ToFloat());
        element.RunCallback(callback, {box->Number()});
    };
    QObject::connect(slider, &RangeSlider::Dragged, &element, [slid] { slid(DRAG); });
    QObject::connect(slider, &RangeSlider::Changed, &element, [slid] { slid(CHANGE); });
    Group(element)->Add(slider, SLIDER_WIDTH);
    AttributeLink::Part part = PartFor(box, plug);
    part.slider = slider;
    return {part};
}

void OnSwatchPressed(Element& element, ColorSwatch* swatch)
{
    const QPointer<Element> alive(&element);
    const QPointer<ColorSwatch> shown(swatch);
    const std::optional<QColor> color = AskForColor(swatch->GetColor());
    if (!alive || !shown || !color)
        return;
    shown->SetColor(*color);
    alive->RunCallback(CHANGE, {color->redF(), color->greenF(), color->blueF()});
}

QVector<AttributeLink::Part> BuildColor(Element& element, const scene::Plug& plug)
{
    auto* swatch = new ColorSwatch;
    auto* slider = new RangeSlider(false);
    const auto slid = [&element, swatch, slider](const QString& callback) {
        const QColor old = swatch->GetColor();
        const QColor color = QColor::fromHsvF(qMax(0.0, old.hsvHueF()), old.hsvSaturationF(),
            qBound(0.0, slider->Number().ToFloat(), 1.0));
        swatch->SetColor(color);
        element.RunCallback(callback, {color.redF(), color.greenF(), color.blueF()});
    };
    QObject::connect(swatch, &ColorSwatch::clicked, &element,
        [&element, swatch] { OnSwatchPressed(element, swatch); });
    QObject::connect(slider, &RangeSlider::Dragged, &element, [slid] { slid(DRAG); });
    QObject::connect(slider, &RangeSlider::Changed, &element, [slid] { slid(CHANGE); });
    Group(element)->Add(swatch, SWATCH_WIDTH);
    Group(element)->Add(slider, SLIDER_WIDTH);
    AttributeLink::Part part = PartFor(swatch, plug);
    part.slider = slider;
    return {part};
}

QVector<AttributeLink::Part> BuildSwitch(Element& element, const scene::Plug& plug)
{
    auto* box = new QCheckBox;
    QObject::connect(box, &QCheckBox::toggled, &element,
        [&element](bool on) { element.RunCallback(CHANGE, {on}); });
    Group(element)->Add(box);
    return {PartFor(box, plug)};
}

QVector<AttributeLink::Part> BuildChoice(Element& element, const scene::Plug& plug)
{
    auto* box = new QComboBox;
    AttributeLink::Part part = PartFor(box, plug);
    const auto entries = plug.attribute->enumNames.split(QLatin1Char(':'), Qt::SkipEmptyParts);
    for (const QString& entry : entries) {
        const QString name = entry.section(QLatin1Char('='), 0, 0);
        box->addItem(name);
        part.numbers += plug.attribute->EnumNumber(name).value_or(0);
    }
    QObject::connect(box, QOverload<int>::of(&QComboBox::activated), &element,
        [&element, box] { element.RunCallback(CHANGE, {box->currentText()}); });
    Group(element)->Add(box);
    return {part};
}

QVector<AttributeLink::Part> BuildText(Element& element, const scene::Plug& plug)
{
    auto* line = new QLineEdit;
    QObject::connect(
        line, &QLineEdit::textEdited, line, [line] { line->setProperty("edited", true); });
    QObject::connect(line, &QLineEdit::editingFinished, &element, [&element, line] {
        if (!line->property("edited").toBool())
            return;
        line->setProperty("edited", false);
        element.RunCallback(CHANGE, {line->text()});
    });
    Group(element)->Add(line, TEXT_WIDTH);
    return {PartFor(line, plug)};
}

/// Null for an attribute that no field can show.
Build BuilderFor(const Element& element, const scene::Plug& plug)
{
    const scene::AttributeType& type = *plug.attribute->type;
    const bool isFieldGroup = element.GetType() == QLatin1String("attrFieldGrp");
    if (plug.IsWholeMulti())
        return nullptr;
    if (plug.HasChildren()) {
        for (const scene::Plug& child : plug.Children()) {
            if (!child.attribute->type->IsNumeric())
                return nullptr;
        }
        const bool isColor = plug.Children().size() == 3
            && (plug.attribute->isColor
                || element.GetType() == QLatin1String("attrColorSliderGrp"));
        return isColor && !isFieldGroup ? BuildColor : BuildNumbers;
    }
    if (type.storage == scene::Storage::String)
        return BuildText;
    if (type.storage == scene::Storage::Bool)
        return BuildSwitch;
    if (type.IsNamed("enum") && !plug.attribute->enumNames.isEmpty())
        return BuildChoice;
    if (!type.IsNumeric())
        return nullptr;
    return isFieldGroup ? BuildNumbers : BuildSlider;
}

void MakeGroup(Element& element, const Call& call)
{
    auto* group = new FieldGroup(true);
    auto* nothing = new NumberBox(false, group);
    nothing->setEnabled(false);
    group->Add(nothing, FIELD_WIDTH);
    element.SetWidget(group);
    element.values.insert(HAS_LABEL, call.Has("label"));
}

void SetAttribute(Edit& edit)
{
    Element& element = edit.element;
    const commands::FoundPlug found = commands::FindPlug(edit.Text());
    const Build build = found.error ? nullptr : BuilderFor(element, found.plug);
    if (!build) {
        edit.error = found.error
            ? found.error->text
            : QStringLiteral("No control can show the attribute '%1'.").arg(edit.Text());
        return;
    }
    AttributeLink::RemoveFrom(element);
    Group(element)->RemoveFields();
    const QVector<AttributeLink::Part> parts = build(element, found.plug);
    const bool hasLabel = edit.call.Has("label") || Stored(element, "hasLabel", false).ToBool();
    Group(element)->SetLabel(
        hasLabel ? Group(element)->GetLabel() : found.plug.attribute->NiceName());
    if (!Group(element)->GetExtraLabel().isEmpty())
        Group(element)->SetExtraLabel(Group(element)->GetExtraLabel());
    AttributeLink::Add(element, parts);
    element.values.insert(QString::fromLatin1(edit.flag), edit.Text());
}

/// The attribute under the name that it bears now; as it was given when it is gone.
Value AttributeName(Element& element)
{
    const QString given = Stored(element, "attribute", QString()).ToText();
    const AttributeLink* link = AttributeLink::Of(element);
    const QStringList names = link ? link->AttributeNames() : QStringList();
    if (names.size() == 1 && !names.first().isEmpty())
        return names.first();
    if (names.isEmpty() || names.first().isEmpty())
        return given;
    return names.first().section(QLatin1Char('.'), 0, 0) + QLatin1Char('.')
        + given.section(QLatin1Char('.'), 1);
}

// Ends and steps, of all fields alike

template <typename T, typename Change>
void ForFields(const Element& element, Change change)
{
    for (int i = 0; i < Group(element)->FieldCount(); ++i) {
        if (auto* field = qobject_cast<T*>(Group(element)->Field<QWidget>(i)))
            change(field);
    }
}

template <typename T, typename Read>
Value FirstOf(const Element& element, Read read)
{
    std::optional<double> first;
    ForFields<T>(element, [&](T* field) { first = first.value_or(read(field)); });
    return first.value_or(0);
}

void SetLeast(Edit& edit)
{
    const bool all = qstrcmp(edit.flag, "minValue") == 0;
    if (all || qstrcmp(edit.flag, "fieldMinValue") == 0)
        ForFields<NumberBox>(edit.element, [&](NumberBox* box) { box->SetLeast(edit.Float()); });
    if (all || qstrcmp(edit.flag, "sliderMinValue") == 0) {
        ForFields<RangeSlider>(edit.element,
            [&](RangeSlider* slider) { slider->SetRange(edit.Float(), slider->GetMost()); });
    }
}

void SetMost(Edit& edit)
{
    const bool all = qstrcmp(edit.flag, "maxValue") == 0;
    if (all || qstrcmp(edit.flag, "fieldMaxValue") == 0)
        ForFields<NumberBox>(edit.element, [&](NumberBox* box) { box->SetMost(edit.Float()); });
    if (all || qstrcmp(edit.flag, "sliderMaxValue") == 0) {
        ForFields<RangeSlider>(edit.element,
            [&](RangeSlider* slider) { slider->SetRange(slider->GetLeast(), edit.Float()); });
    }
}

void SetStep(Edit& edit)
{
    const bool all = qstrcmp(edit.flag, "step") == 0;
    if (all || qstrcmp(edit.flag, "fieldStep") == 0)
        ForFields<NumberBox>(edit.element, [&](NumberBox* b) { b->setSingleStep(edit.Float()); });
    if (all || qstrcmp(edit.flag, "sliderStep") == 0)
        ForFields<RangeSlider>(edit.element, [&](RangeSlider* s) { s->SetStep(edit.Float()); });
}

void SetPrecision(Edit& edit)
{
    ForFields<NumberBox>(edit.element, [&](NumberBox* box) { box->SetPrecision(edit.Int()); });
}

/// What the person or a script gives a colour goes to the attribute.
void SetColor(Edit& edit)
{
    QColor color = QColor::fromRgbF(qBound(0.0, edit.Float(0), 1.0),
        qBound(0.0, edit.Float(1), 1.0), qBound(0.0, edit.Float(2), 1.0));
    if (qstrcmp(edit.flag, "hsvValue") == 0) {
        color.setHsvF(std::fmod(qMax(0.0, edit.Float(0)), 360) / 360,
            qBound(0.0, edit.Float(1), 1.0), qBound(0.0, edit.Float(2), 1.0));
    }
    ForFields<ColorSwatch>(edit.element, [&](ColorSwatch* swatch) { swatch->SetColor(color); });
    edit.element.RunCallback(CHANGE, {color.redF(), color.greenF(), color.blueF()});
}

template <bool RGB>
Value GetColor(Element& element)
{
    QColor color = Qt::black;
    ForFields<ColorSwatch>(element, [&](ColorSwatch* swatch) { color = swatch->GetColor(); });
    if (RGB)
        return FloatList{color.redF(), color.greenF(), color.blueF()};
    return FloatList{qMax(0.0, color.hsvHueF()) * 360, color.hsvSaturationF(), color.valueF()};
}

double LeastOf(const NumberBox* box)
{
    return box->minimum();
}

double MostOf(const NumberBox* box)
{
    return box->maximum();
}

// clang-format off
const Property ATTRIBUTE[] = {
    {"attribute",      SetAttribute, AttributeName},
    {"precision",      SetPrecision, [](Element& e) -> Value { return FirstOf<NumberBox>(e, [](NumberBox* b) { return double(b->decimals()); }).ToInt(); }},
    {"minValue",       SetLeast, [](Element& e) { return FirstOf<NumberBox>(e, LeastOf); }},
    {"maxValue",       SetMost, [](Element& e) { return FirstOf<NumberBox>(e, MostOf); }},
    {"step",           SetStep, [](Element& e) { return FirstOf<NumberBox>(e, [](NumberBox* b) { return b->singleStep(); }); }},
    {"fieldMinValue",  SetLeast, [](Element& e) { return FirstOf<NumberBox>(e, LeastOf); }},
    {"fieldMaxValue",  SetMost, [](Element& e) { return FirstOf<NumberBox>(e, MostOf); }},
    {"fieldStep",      SetStep, [](Element& e) { return FirstOf<NumberBox>(e, [](NumberBox* b) { return b->singleStep(); }); }},
    {"sliderMinValue", SetLeast, [](Element& e) { return FirstOf<RangeSlider>(e, [](RangeSlider* s) { return s->GetLeast(); }); }},
    {"sliderMaxValue", SetMost, [](Element& e) { return FirstOf<RangeSlider>(e, [](RangeSlider* s) { return s->GetMost(); }); }},
    {"sliderStep",     SetStep, [](Element& e) { return FirstOf<RangeSlider>(e, [](RangeSlider* s) { return s->GetStep(); }); }},
    {"numberOfFields", nullptr, [](Element& e) -> Value { return Group(e)->FieldCount(); }},
    {"rgbValue",       SetColor, GetColor<true>},
    {"hsvValue",       SetColor, GetColor<false>},
};

const Family ATTRIBUTE_FAMILY{"attrNavDecision/anad str str cqe; changeCommand/cc script cqe; hideMapButton/hmb B cqe;", {}, &GROUP_FAMILY};

const ControlRow ROWS[] = {
    {"attrFieldGrp", ControlKind, MakeGroup, ATTRIBUTE,
        "attribute/at str cqe; extraButton/eb B cqe; extraButtonCommand/ebc script cqe; extraButtonIcon/ebi str cqe; forceAddMapButton/fmb B cqe;"
        "maxValue/max float cqe; minValue/min float cqe; numberOfFields/nf int cq; precision/pre int cqe; step/s float cqe;",
        nullptr, nullptr, CommonFlags::Control, &ATTRIBUTE_FAMILY},
    {"attrFieldSliderGrp", ControlKind, MakeGroup, ATTRIBUTE,
        "attribute/at str cqe; dragCommand/dc script cqe; extraButton/eb B cqe; extraButtonCommand/ebc script cqe; extraButtonIcon/ebi str cqe;"
        "fieldMaxValue/fmx float cqe; fieldMinValue/fmn float cqe; fieldStep/fs float cqe; forceAddMapButton/fmb B cqe; maxValue/max float cqe;"
        "minValue/min float cqe; precision/pre int cqe; sliderMaxValue/smx float cqe; sliderMinValue/smn float cqe; sliderStep/ss float cqe;"
        "step/s float cqe; vertical/vr - c;",
        nullptr, nullptr, CommonFlags::Control, &ATTRIBUTE_FAMILY},
    {"attrColorSliderGrp", ControlKind, MakeGroup, ATTRIBUTE,
        "attribute/at str cqe; dragCommand/dc script cqe; hsvValue/hsv float float float cqe; rgbValue/rgb float float float cqe; showButton/sb B cqe;",
        nullptr, nullptr, CommonFlags::Control, &ATTRIBUTE_FAMILY},
    {"attrControlGrp", ControlKind, MakeGroup, ATTRIBUTE, "attribute/a str cqe; handlesAttribute/ha str cq;",
        nullptr, nullptr, CommonFlags::Control, &ATTRIBUTE_FAMILY},
    {"attrEnumOptionMenu", ControlKind, MakeGroup, ATTRIBUTE, "attribute/at str cqe; dirtyCommand/dtc script cqe;",
        nullptr, nullptr, CommonFlags::Control, &ATTRIBUTE_FAMILY},
    {"attrEnumOptionMenuGrp", ControlKind, MakeGroup, ATTRIBUTE, "attribute/at str cqe;",
        nullptr, nullptr, CommonFlags::Control, &ATTRIBUTE_FAMILY},
};
// clang-format on

} // namespace

void RegisterAttributeGroupCommands(CommandRegistry& commands)
{
    RegisterControls(commands, ROWS);
}

} // namespace host::ui
