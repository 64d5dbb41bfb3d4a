#include "engine/Engine.h"
#include "ui/commands/Tables.h"
#include "ui/commands/controls/ColorSwatch.h"
#include "ui/commands/controls/FieldGroup.h"
#include "ui/commands/controls/RangeSlider.h"
#include "ui/commands/windows/Prompts.h"

#include <cmath>

namespace host::ui {

namespace {

const QString CHANGE = QStringLiteral("changeCommand");
constexpr int SWATCH_WIDTH = 60;
constexpr int SLIDER_WIDTH = 160;

QColor FromRgb(double red, double green, double blue)
{
    return QColor::fromRgbF(qBound(0.0, red, 1.0), qBound(0.0, green, 1.0), qBound(0.0, blue, 1.0));
}

/// Hue in degrees, as scripts give it.
QColor FromHsv(double hue, double saturation, double value)
{
    const double turn = hue / 360.0 - std::floor(hue / 360.0);
    return QColor::fromHsvF(turn, qBound(0.0, saturation, 1.0), qBound(0.0, value, 1.0));
}

Value Rgb(const QColor& color)
{
    return FloatList{color.redF(), color.greenF(), color.blueF()};
}

Value Hsv(const QColor& color)
{
    return FloatList{qMax(0.0, color.hueF()) * 360.0, color.saturationF(), color.valueF()};
}

/// The swatch of a group, or the one that a canvas is.
ColorSwatch* Swatch(const Element& element)
{
    if (auto* swatch = qobject_cast<ColorSwatch*>(element.GetWidget()))
        return swatch;
    return Group(element)->Field<ColorSwatch>(0);
}

RangeSlider* Slider(const Element& element)
{
    return Group(element)->Field<RangeSlider>(1);
}

// A colour and a slider for how light it is

void ShowColor(Element& element, const QColor& color)
{
    Swatch(element)->SetColor(color);
    Slider(element)->SetNumber(color.valueF());
}

void Tell(const Element& element, const QString& callback)
{
    const QColor color = Swatch(element)->GetColor();
    element.RunCallback(callback, {color.redF(), color.greenF(), color.blueF()});
}

void OnSlid(Element& element, const QString& callback)
{
    const QColor old = Swatch(element)->GetColor();
    Swatch(element)->SetColor(QColor::fromHsvF(qMax(0.0, old.hsvHueF()), old.hsvSaturationF(),
        qBound(0.0, Slider(element)->Number().ToFloat(), 1.0)));
    Tell(element, callback);
}

void OnSwatchPressed(Element& element)
{
    const QPointer<Element> alive(&element);
    const std::optional<QColor> color = AskForColor(Swatch(element)->GetColor());
    if (!alive || !color)
        return;
    ShowColor(element, *color);
    Tell(element, CHANGE);
}

void MakeColorGroup(Element& element, const Call& call)
{
    FieldGroup* group = NewGroup(call);
    auto* swatch = new ColorSwatch(group);
    auto* slider = new RangeSlider(false, group);
    QObject::connect(
        swatch, &ColorSwatch::clicked, &element, [&element] { OnSwatchPressed(element); });
    QObject::connect(slider, &RangeSlider::Dragged, &element,
        [&element] { OnSlid(element, QStringLiteral("dragCommand")); });
    QObject::connect(
        slider, &RangeSlider::Changed, &element, [&element] { OnSlid(element, CHANGE); });
    group->Add(swatch, SWATCH_WIDTH);
    group->Add(slider, SLIDER_WIDTH);
    element.SetWidget(group);
}

// Colours by number

constexpr int COLOR_COUNT = 32;

/// The first is none; the others go round the wheel in three shades.
QColor IndexColor(int index)
{
    if (index <= 1)
        return {0x3c, 0x3c, 0x3c};
    constexpr int SHADES = 3;
    constexpr int HUES = (COLOR_COUNT - 1 + SHADES - 1) / SHADES;
    const int shade = (index - 2) / HUES;
    return QColor::fromHsvF(
        (index - 2) % HUES / double(HUES), shade == 2 ? 0.45 : 0.9, shade == 1 ? 0.55 : 0.95);
}

void ShowIndex(Element& element)
{
    Swatch(element)->SetColor(IndexColor(Slider(element)->Number().ToInt()));
}

void MakeIndexGroup(Element& element, const Call& call)
{
    FieldGroup* group = NewGroup(call);
    auto* swatch = new ColorSwatch(group);
    swatch->setFocusPolicy(Qt::NoFocus);
    auto* slider = new RangeSlider(true, group);
    slider->SetRange(1, COLOR_COUNT);
    const auto slid = [&element](const QString& callback) {
        ShowIndex(element);
        element.RunCallback(callback, {Slider(element)->Number()});
    };
    QObject::connect(
        slider, &RangeSlider::Dragged, &element, [slid] { slid(QStringLiteral("dragCommand")); });
    QObject::connect(slider, &RangeSlider::Changed, &element, [slid] { slid(CHANGE); });
    group->Add(swatch, SWATCH_WIDTH);
    group->Add(slider, SLIDER_WIDTH);
    group->setFocusProxy(slider);
    element.SetWidget(group);
    ShowIndex(element);
}

void SetIndex(Edit& edit)
{
    Slider(edit.element)->SetNumber(edit.Int());
    ShowIndex(edit.element);
}

// A field of colour

void MakeCanvas(Element& element, const Call&)
{
    auto* swatch = new ColorSwatch;
    QObject::connect(swatch, &ColorSwatch::clicked, &element,
        [&element] { element.RunCallback(QStringLiteral("pressCommand")); });
    element.SetWidget(swatch);
}

// The dialog

/// What the person chose last; asked for after the dialog was closed.
struct LastColor
{
    QColor color = Qt::black;
    bool accepted = false;
};

LastColor last;

Outcome ColorEditor(Call& call)
{
    if (call.IsQuery()) {
        if (call.Has("rgbValue"))
            return Rgb(last.color);
        if (call.Has("hsvValue"))
            return Hsv(last.color);
        return last.accepted;
    }
    QColor start = last.color;
    if (call.Has("rgbValue"))
        start = FromRgb(
            call.Float("rgbValue", 0), call.Float("rgbValue", 1), call.Float("rgbValue", 2));
    if (call.Has("hsvValue"))
        start = FromHsv(
            call.Float("hsvValue", 0), call.Float("hsvValue", 1), call.Float("hsvValue", 2));
    const std::optional<QColor> chosen = AskForColor(start);
    last = {chosen.value_or(start), chosen.has_value()};
    return QStringLiteral("%1 %2 %3 %4")
        .arg(last.color.redF())
        .arg(last.color.greenF())
        .arg(last.color.blueF())
        .arg(last.accepted ? 1 : 0);
}

// clang-format off
const Property COLOR_GROUP[] = {
    {"rgbValue", [](Edit& e) { ShowColor(e.element, FromRgb(e.Float(0), e.Float(1), e.Float(2))); }, [](Element& e) { return Rgb(Swatch(e)->GetColor()); }},
    {"hsvValue", [](Edit& e) { ShowColor(e.element, FromHsv(e.Float(0), e.Float(1), e.Float(2))); }, [](Element& e) { return Hsv(Swatch(e)->GetColor()); }},
};

const Property INDEX_GROUP[] = {
    {"minValue", [](Edit& e) { Slider(e.element)->SetRange(e.Int(), Slider(e.element)->GetMost()); }, [](Element& e) -> Value { return qRound(Slider(e)->GetLeast()); }},
    {"maxValue", [](Edit& e) { Slider(e.element)->SetRange(Slider(e.element)->GetLeast(), e.Int()); }, [](Element& e) -> Value { return qRound(Slider(e)->GetMost()); }},
    {"value",    SetIndex, [](Element& e) { return Slider(e)->Number(); }},
};

const Property CANVAS[] = {
    {"rgbValue", [](Edit& e) { Swatch(e.element)->SetColor(FromRgb(e.Float(0), e.Float(1), e.Float(2))); }, [](Element& e) { return Rgb(Swatch(e)->GetColor()); }},
    {"hsvValue", [](Edit& e) { Swatch(e.element)->SetColor(FromHsv(e.Float(0), e.Float(1), e.Float(2))); }, [](Element& e) { return Hsv(Swatch(e)->GetColor()); }},
};

const ControlRow ROWS[] = {
    {"colorSliderGrp", ControlKind, MakeColorGroup, COLOR_GROUP,
        "changeCommand/cc script ce; dragCommand/dc script ce; hsvValue/hsv float float float cqe; rgbValue/rgb float float float cqe;",
        nullptr, nullptr, CommonFlags::Control, &GROUP_FAMILY},
    {"colorIndexSliderGrp", ControlKind, MakeIndexGroup, INDEX_GROUP,
        "changeCommand/cc script ce; dragCommand/dc script ce; invisible/inv int cqe; maxValue/max int cqe; minValue/min int cqe;"
        "value/v int cqe;",
        nullptr, nullptr, CommonFlags::Control, &GROUP_FAMILY},
    {"canvas", ControlKind, MakeCanvas, CANVAS,
        "hsvValue/hsv float float float cqe; pressCommand/pc script ce; rgbValue/rgb float float float cqe;"},
};

const CommandRow COMMANDS[] = {
    {"colorEditor", "any", "Q", "",
        "alpha/a float cq; hsvValue/hsv float float float cq; mini/mini B c; parent/p str c; position/pos int int c; result/r - q;"
        "rgbValue/rgb float float float cq", ColorEditor},
};
// clang-format on

} // namespace

void RegisterColorCommands(CommandRegistry& commands)
{
    RegisterControls(commands, ROWS);
    commands.Register(COMMANDS);
}

} // namespace host::ui
