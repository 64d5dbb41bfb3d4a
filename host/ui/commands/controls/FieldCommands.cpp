#include "ui/commands/Tables.h"
#include "ui/commands/controls/FieldGroup.h"

#include <QDoubleSpinBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextDocumentFragment>

#include <limits>

namespace host::ui {

namespace {

const QString CHANGE = QStringLiteral("changeCommand");
const QString ENTER = QStringLiteral("enterCommand");

void SetFont(Edit& edit)
{
    edit.element.values.insert(QStringLiteral("font"), edit.Text());
    edit.element.GetWidget()->setFont(FontFromWord(edit.Text(), edit.element.GetWidget()->font()));
}

// One line

constexpr int GROUP_FIELD_WIDTH = 160;

/// The field, or that of a group.
QLineEdit* Line(const Element& element)
{
    if (auto* line = qobject_cast<QLineEdit*>(element.GetWidget()))
        return line;
    return Group(element)->Field<QLineEdit>();
}

/// The change command runs when an edit is done, not for every key.
QLineEdit* NewLine(Element& element)
{
    auto* line = new QLineEdit;
    QObject::connect(line, &QLineEdit::returnPressed, &element,
        [&element, line] { element.RunCallback(ENTER, {line->text()}); });
    QObject::connect(line, &QLineEdit::textEdited, &element, [&element, line](const QString& text) {
        line->setProperty("edited", true);
        element.RunCallback(QStringLiteral("textChangedCommand"), {text});
    });
    QObject::connect(line, &QLineEdit::editingFinished, &element, [&element, line] {
        if (line->property("edited").toBool()) {
            line->setProperty("edited", false);
            element.RunCallback(CHANGE, {line->text()});
        }
    });
    return line;
}

void MakeTextField(Element& element, const Call&)
{
    element.SetWidget(NewLine(element));
}

void MakeTextGroup(Element& element, const Call& call)
{
    FieldGroup* group = NewGroup(call);
    group->Add(NewLine(element), GROUP_FIELD_WIDTH);
    element.SetWidget(group);
}

QPushButton* GroupButton(const Element& element)
{
    return Group(element)->Field<QPushButton>(1);
}

void MakeTextButtonGroup(Element& element, const Call& call)
{
    FieldGroup* group = NewGroup(call);
    group->Add(NewLine(element), GROUP_FIELD_WIDTH);
    auto* button = new QPushButton(element.GetName());
    QObject::connect(button, &QPushButton::clicked, &element,
        [&element] { element.RunCallback(QStringLiteral("buttonCommand")); });
    group->Add(button);
    element.SetWidget(group);
}

void SetText(Edit& edit)
{
    Line(edit.element)->setText(edit.Text());
    if (!edit.call.IsCreate())
        edit.element.RunCallback(QStringLiteral("textChangedCommand"), {edit.Text()});
}

// Several lines

/// A text field that tells when its edit is over: when it loses the focus, or at the Enter key of
/// the number pad.
class ScrollField : public QPlainTextEdit
{
public:
    explicit ScrollField(Element& element)
        : m_element(&element)
    { }

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        if (event->key() != Qt::Key_Enter) {
            QPlainTextEdit::keyPressEvent(event);
            if (m_element)
                m_element->RunCallback(QStringLiteral("keyPressCommand"));
            return;
        }
        Commit();
        if (m_element)
            m_element->RunCallback(ENTER, {toPlainText()});
    }
    void focusOutEvent(QFocusEvent* event) override
    {
        QPlainTextEdit::focusOutEvent(event);
        Commit();
    }

private:
    void Commit()
    {
        if (!document()->isModified() || !m_element)
            return;
        document()->setModified(false);
        m_element->RunCallback(CHANGE, {toPlainText()});
    }

    QPointer<Element> m_element;
};

QPlainTextEdit* Field(const Element& element)
{
    return As<QPlainTextEdit>(element);
}

void MakeScrollField(Element& element, const Call& call)
{
    auto* field = new ScrollField(element);
    const bool wraps = call.Has("wordWrap") && call.Bool("wordWrap");
    field->setLineWrapMode(wraps ? QPlainTextEdit::WidgetWidth : QPlainTextEdit::NoWrap);
    element.SetWidget(field);
}

void SetPosition(Edit& edit)
{
    QTextCursor cursor = Field(edit.element)->textCursor();
    const int last = Field(edit.element)->document()->characterCount() - 1;
    cursor.setPosition(edit.Int() == 0 ? last : qBound(0, edit.Int() - 1, last));
    Field(edit.element)->setTextCursor(cursor);
}

void SetFontSize(Edit& edit)
{
    QFont font = Field(edit.element)->font();
    font.setPointSize(qBound(4, edit.Int(), 96));
    Field(edit.element)->setFont(font);
}

// Numbers

template <typename Box>
void ConnectNumber(Element& element, Box* box)
{
    box->setButtonSymbols(QAbstractSpinBox::NoButtons);
    box->setKeyboardTracking(false);
    QObject::connect(box, QOverload<decltype(box->value())>::of(&Box::valueChanged), &element,
        [&element](auto value) { element.RunCallback(CHANGE, {Value(value)}); });
    QObject::connect(box, &Box::editingFinished, &element, [&element, box] {
        if (box->hasFocus())
            element.RunCallback(ENTER, {Value(box->value())});
    });
    element.SetWidget(box);
}

void MakeIntField(Element& element, const Call&)
{
    auto* box = new QSpinBox;
    box->setRange(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
    ConnectNumber(element, box);
}

void MakeFloatField(Element& element, const Call&)
{
    auto* box = new QDoubleSpinBox;
    constexpr double LIMIT = 1e12; // More digits than a field can show.
    box->setRange(-LIMIT, LIMIT);
    box->setDecimals(4);
    ConnectNumber(element, box);
}

/// Scripts set values without the field calling back.
template <typename Box, typename Set>
void Silently(Edit& edit, Set set)
{
    const QSignalBlocker blocker(edit.element.GetWidget());
    set(As<Box>(edit.element));
}

// clang-format off
const Property TEXT_FIELD[] = {
    {"text",              SetText, [](Element& e) -> Value { return Line(e)->text(); }},
    {"fileName",          SetText, [](Element& e) -> Value { return Line(e)->text(); }},
    {"editable",          [](Edit& e) { Line(e.element)->setReadOnly(!e.Bool()); },
                          [](Element& e) -> Value { return !Line(e)->isReadOnly(); }},
    {"font",              SetFont, nullptr},
    {"placeholderText",   [](Edit& e) { Line(e.element)->setPlaceholderText(e.Text()); },
                          [](Element& e) -> Value { return Line(e)->placeholderText(); }},
    {"insertionPosition", [](Edit& e) { Line(e.element)->setCursorPosition(e.Int() == 0 ? Line(e.element)->text().size() : e.Int() - 1); },
                          [](Element& e) -> Value { return Line(e)->cursorPosition() + 1; }},
    {"insertText",        [](Edit& e) { Line(e.element)->insert(e.Text()); }, nullptr},
    {"searchField",       [](Edit& e) { Line(e.element)->setClearButtonEnabled(e.Bool()); }, nullptr},
};

const Family TEXT_FAMILY{
    "alwaysInvokeEnterCommandOnReturn/aie B cqe; changeCommand/cc script ce; editable/ed B cqe; enterCommand/ec script ce;"
    "fileName/fi str cqe; font/fn str cqe; forceChangeCommand/fcc B cqe; insertText/it str ce; insertionPosition/ip int cqe;"
    "placeholderText/pht str cqe; receiveFocusCommand/rfc script ce; text/tx str cqe; textChangedCommand/tcc script ce;",
    TEXT_FIELD, &GROUP_FAMILY};

const Property TEXT_BUTTON[] = {
    {"buttonLabel",  [](Edit& e) { GroupButton(e.element)->setText(e.Text()); }, [](Element& e) -> Value { return GroupButton(e)->text(); }},
    {"enableButton", [](Edit& e) { GroupButton(e.element)->setEnabled(e.Bool()); }, [](Element& e) -> Value { return GroupButton(e)->isEnabled(); }},
};

const Property SCROLL_FIELD[] = {
    {"clear",             [](Edit& e) { Field(e.element)->clear(); }, nullptr},
    {"text",              [](Edit& e) { Field(e.element)->setPlainText(e.Text()); },
                          [](Element& e) -> Value { return Field(e)->toPlainText(); }},
    {"editable",          [](Edit& e) { Field(e.element)->setReadOnly(!e.Bool()); },
                          [](Element& e) -> Value { return !Field(e)->isReadOnly(); }},
    {"font",              SetFont, nullptr},
    {"fontPointSize",     SetFontSize, [](Element& e) -> Value { return Field(e)->font().pointSize(); }},
    {"insertionPosition", SetPosition, [](Element& e) -> Value { return Field(e)->textCursor().position() + 1; }},
    {"insertText",        [](Edit& e) { Field(e.element)->insertPlainText(e.Text()); }, nullptr},
    {"numberOfLines",     nullptr, [](Element& e) -> Value { return Field(e)->blockCount(); }},
    {"selection",         nullptr, [](Element& e) -> Value { return Field(e)->textCursor().selection().toPlainText(); }},
};

const Property INT_FIELD[] = {
    {"minValue", [](Edit& e) { Silently<QSpinBox>(e, [&](QSpinBox* box) { box->setMinimum(e.Int()); }); },
                 [](Element& e) -> Value { return As<QSpinBox>(e)->minimum(); }},
    {"maxValue", [](Edit& e) { Silently<QSpinBox>(e, [&](QSpinBox* box) { box->setMaximum(e.Int()); }); },
                 [](Element& e) -> Value { return As<QSpinBox>(e)->maximum(); }},
    {"step",     [](Edit& e) { e.As<QSpinBox>()->setSingleStep(e.Int()); },
                 [](Element& e) -> Value { return As<QSpinBox>(e)->singleStep(); }},
    {"value",    [](Edit& e) { Silently<QSpinBox>(e, [&](QSpinBox* box) { box->setValue(e.Int()); }); },
                 [](Element& e) -> Value { return As<QSpinBox>(e)->value(); }},
    {"editable", [](Edit& e) { e.As<QSpinBox>()->setReadOnly(!e.Bool()); },
                 [](Element& e) -> Value { return !As<QSpinBox>(e)->isReadOnly(); }},
};

const Property FLOAT_FIELD[] = {
    {"precision", [](Edit& e) { Silently<QDoubleSpinBox>(e, [&](QDoubleSpinBox* box) { box->setDecimals(qBound(0, e.Int(), 12)); }); },
                  [](Element& e) -> Value { return As<QDoubleSpinBox>(e)->decimals(); }},
    {"minValue",  [](Edit& e) { Silently<QDoubleSpinBox>(e, [&](QDoubleSpinBox* box) { box->setMinimum(e.Float()); }); },
                  [](Element& e) -> Value { return As<QDoubleSpinBox>(e)->minimum(); }},
    {"maxValue",  [](Edit& e) { Silently<QDoubleSpinBox>(e, [&](QDoubleSpinBox* box) { box->setMaximum(e.Float()); }); },
                  [](Element& e) -> Value { return As<QDoubleSpinBox>(e)->maximum(); }},
    {"step",      [](Edit& e) { e.As<QDoubleSpinBox>()->setSingleStep(e.Float()); },
                  [](Element& e) -> Value { return As<QDoubleSpinBox>(e)->singleStep(); }},
    {"value",     [](Edit& e) { Silently<QDoubleSpinBox>(e, [&](QDoubleSpinBox* box) { box->setValue(e.Float()); }); },
                  [](Element& e) -> Value { return As<QDoubleSpinBox>(e)->value(); }},
    {"editable",  [](Edit& e) { e.As<QDoubleSpinBox>()->setReadOnly(!e.Bool()); },
                  [](Element& e) -> Value { return !As<QDoubleSpinBox>(e)->isReadOnly(); }},
};

const ControlRow ROWS[] = {
    {"textField", ControlKind, MakeTextField, TEXT_FIELD,
        "alwaysInvokeEnterCommandOnReturn/aie B cqe; changeCommand/cc script ce; disableButtons/db B cqe; disableClearButton/dcb B cqe;"
        "disableHistoryButton/dhb B cqe; drawInactiveFrame/dif B cqe; editable/ed B cqe; enterCommand/ec script ce; fileName/fi str cqe;"
        "font/fn str cqe; insertText/it str ce; insertionPosition/ip int cqe; placeholderText/pht str cqe;"
        "receiveFocusCommand/rfc script ce; searchField/sf B c; text/tx str cqe; textChangedCommand/tcc script ce;"},
    {"textFieldGrp", ControlKind, MakeTextGroup, {}, "", nullptr, nullptr, CommonFlags::Control, &TEXT_FAMILY},
    {"textFieldButtonGrp", ControlKind, MakeTextButtonGroup, TEXT_BUTTON,
        "buttonCommand/bc script ce; buttonLabel/bl str cqe; enableButton/eb B cqe;",
        nullptr, nullptr, CommonFlags::Control, &TEXT_FAMILY},
    {"scrollField", ControlKind, MakeScrollField, SCROLL_FIELD,
        "changeCommand/cc script ce; clear/cl - ce; command/c str ce; editable/ed B cqe; enterCommand/ec script ce; font/fn str cqe;"
        "fontPointSize/fns int cqe; insertText/it str ce; insertionPosition/ip int cqe; keyPressCommand/kpc script ce;"
        "numberOfLines/nl int q; selection/sl - q; text/tx str cqe; wordWrap/ww B c; receiveFocusCommand/rfc script ce;"},
    {"intField", ControlKind, MakeIntField, INT_FIELD,
        "changeCommand/cc script ce; dragCommand/dc script ce; editable/ed B cqe; enterCommand/ec script ce; maxValue/max int cqe;"
        "minValue/min int cqe; receiveFocusCommand/rfc script ce; step/s int cqe; value/v int cqe;"},
    {"floatField", ControlKind, MakeFloatField, FLOAT_FIELD,
        "changeCommand/cc script ce; dragCommand/dc script ce; editable/ed B cqe; enterCommand/ec script ce; maxValue/max float cqe;"
        "minValue/min float cqe; precision/pre int cqe; receiveFocusCommand/rfc script ce; showTrailingZeros/tze B cqe;"
        "step/s float cqe; value/v float cqe;"},
    {"timeField", ControlKind, MakeFloatField, FLOAT_FIELD,
        "changeCommand/cc script ce; dragCommand/dc script ce; editable/ed B cqe; enterCommand/ec script ce; maxValue/max float cqe;"
        "minValue/min float cqe; precision/pre int cqe; receiveFocusCommand/rfc script ce; step/s float cqe; value/v float cqe;"},
};
// clang-format on

} // namespace

void RegisterFieldCommands(CommandRegistry& commands)
{
    RegisterControls(commands, ROWS);
}

} // namespace host::ui
