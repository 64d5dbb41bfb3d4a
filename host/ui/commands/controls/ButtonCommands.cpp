#include "ui/commands/Tables.h"

#include <QCheckBox>
#include <QDesktopServices>
#include <QLabel>
#include <QPushButton>
#include <QUrl>

namespace host::ui {

namespace {

void MakeButton(Element& element, const Call&)
{
    auto* button = new QPushButton(element.GetName());
    QObject::connect(button, &QPushButton::clicked, &element,
        [&element] { element.RunCallback(QStringLiteral("command"), {Value(0)}); });
    element.SetWidget(button);
}

void MakeText(Element& element, const Call&)
{
    auto* label = new QLabel(element.GetName());
    label->setTextFormat(Qt::PlainText);
    QObject::connect(label, &QLabel::linkActivated, label,
        [](const QString& link) { QDesktopServices::openUrl(QUrl(link)); });
    element.SetWidget(label);
}

void SetHyperlink(Edit& edit)
{
    edit.element.values.insert(QStringLiteral("hyperlink"), edit.Bool());
    edit.As<QLabel>()->setTextFormat(edit.Bool() ? Qt::RichText : Qt::PlainText);
}

void MakeCheckBox(Element& element, const Call&)
{
    auto* box = new QCheckBox(element.GetName());
    QObject::connect(box, &QCheckBox::clicked, &element, [&element](bool on) {
        const QPointer<Element> alive(&element);
        element.RunCallback(on ? QStringLiteral("onCommand") : QStringLiteral("offCommand"), {on});
        if (alive)
            alive->RunCallback(QStringLiteral("changeCommand"), {on});
    });
    element.SetWidget(box);
}

void MakeSeparator(Element& element, const Call&)
{
    auto* line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Plain);
    element.SetWidget(line);
}

void SetHorizontal(Edit& edit)
{
    edit.As<QFrame>()->setFrameShape(edit.Bool() ? QFrame::HLine : QFrame::VLine);
}

void SetSeparatorStyle(Edit& edit)
{
    edit.element.values.insert(QStringLiteral("style"), edit.Text());
    auto* line = edit.As<QFrame>();
    if (edit.Text() == QLatin1String("none"))
        line->setFrameShape(QFrame::NoFrame);
    else
        line->setFrameShadow(
            edit.Text() == QLatin1String("single") ? QFrame::Plain : QFrame::Sunken);
}

void SetTextAlignment(Edit& edit)
{
    edit.element.values.insert(QStringLiteral("align"), edit.Text());
    auto* label = edit.As<QLabel>();
    label->setAlignment(AlignmentFromWord(edit.Text(), label->alignment()));
}

void SetFont(Edit& edit)
{
    edit.element.values.insert(QStringLiteral("font"), edit.Text());
    edit.element.GetWidget()->setFont(FontFromWord(edit.Text(), edit.element.GetWidget()->font()));
}

// clang-format off
const Property BUTTON[] = {
    {"label", [](Edit& e) { e.As<QPushButton>()->setText(e.Text()); },
              [](Element& e) -> Value { return As<QPushButton>(e)->text(); }},
};

const Property TEXT[] = {
    {"hyperlink", SetHyperlink, nullptr},
    {"label",     [](Edit& e) { e.As<QLabel>()->setText(e.Text()); },
                  [](Element& e) -> Value { return As<QLabel>(e)->text(); }},
    {"align",     SetTextAlignment, nullptr},
    {"font",      SetFont, nullptr},
    {"wordWrap",  [](Edit& e) { e.As<QLabel>()->setWordWrap(e.Bool()); },
                  [](Element& e) -> Value { return As<QLabel>(e)->wordWrap(); }},
};

const Property CHECK_BOX[] = {
    {"label",    [](Edit& e) { e.As<QCheckBox>()->setText(e.Text()); },
                 [](Element& e) -> Value { return As<QCheckBox>(e)->text(); }},
    {"value",    [](Edit& e) { e.As<QCheckBox>()->setChecked(e.Bool()); },
                 [](Element& e) -> Value { return As<QCheckBox>(e)->isChecked(); }},
    {"editable", [](Edit& e) { e.As<QCheckBox>()->setEnabled(e.Bool()); },
                 [](Element& e) -> Value { return As<QCheckBox>(e)->isEnabled(); }},
};

const Property SEPARATOR[] = {
    {"horizontal", SetHorizontal, [](Element& e) -> Value { return As<QFrame>(e)->frameShape() == QFrame::HLine; }},
    {"style",      SetSeparatorStyle, nullptr},
};

const ControlRow ROWS[] = {
    {"button",    ControlKind, MakeButton, BUTTON,
        "actOnPress/aop B cqe; actionIsSubstitute/ais B cqe; align/al str cqe; command/c script cqe; label/l str cqe; recomputeSize/rs B cqe;"},
    {"text",      ControlKind, MakeText, TEXT,
        "align/al str cqe; dropRectCallback/drc script e; font/fn str cqe; hyperlink/hl B cqe; label/l str cqe; recomputeSize/rs B cqe;"
        "wordWrap/ww B cq;"},
    {"checkBox",  ControlKind, MakeCheckBox, CHECK_BOX,
        "align/al str cqe; changeCommand/cc script cqe; editable/ed B cqe; label/l str cqe; offCommand/ofc script cqe;"
        "onCommand/onc script cqe; recomputeSize/rs B cqe; value/v B cqe;"},
    {"separator", ControlKind, MakeSeparator, SEPARATOR, "horizontal/hr B cqe; style/st str cqe;"},
};
// clang-format on

} // namespace

void RegisterButtonCommands(CommandRegistry& commands)
{
    RegisterControls(commands, ROWS);
}

} // namespace host::ui
