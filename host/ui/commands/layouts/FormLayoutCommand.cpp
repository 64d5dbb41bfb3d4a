#include "ui/commands/Tables.h"
#include "ui/commands/layouts/FormBox.h"

namespace host::ui {

namespace {

FormBox* Form(const Element& element)
{
    return static_cast<FormBox*>(element.GetContent()->layout());
}

void MakeForm(Element& element, const Call&)
{
    auto* widget = new QWidget;
    new FormBox(widget);
    element.SetWidget(widget, widget);
    InterfaceModel::Current().SetCurrentParent(&element);
}

bool EdgeFromWord(const QString& word, FormEdge& edge)
{
    static const QStringList words{QStringLiteral("left"), QStringLiteral("top"),
        QStringLiteral("right"), QStringLiteral("bottom")};
    const int index = words.indexOf(word);
    if (index >= 0)
        edge = static_cast<FormEdge>(index);
    return index >= 0;
}

/// The child that a word of an attachment names.
QWidget* Child(Edit& edit, const QString& name)
{
    const QVector<Element*> found = InterfaceModel::Current().FindAll(name, ANY_CONTROL);
    for (Element* element : found) {
        if (element->GetParent() == &edit.element)
            return element->GetWidget();
    }
    edit.error = InterfaceModel::NotFound(name);
    return nullptr;
}

struct AttachmentRow
{
    const char* flag;
    Attachment::To to;
    int controlAt; ///< index of the argument that names the other control; -1: none
    int positionAt;
};

const AttachmentRow ATTACHMENTS[] = {
    {"attachNone", Attachment::To::None, -1, -1},
    {"attachForm", Attachment::To::Form, -1, -1},
    {"attachOppositeForm", Attachment::To::OppositeForm, -1, -1},
    {"attachControl", Attachment::To::Control, 3, -1},
    {"attachOppositeControl", Attachment::To::OppositeControl, 3, -1},
    {"attachPosition", Attachment::To::Position, -1, 3},
};

void AttachOne(Edit& edit, const AttachmentRow& row, int use)
{
    FormEdge edge = LeftEdge;
    const QWidget* child = Child(edit, edit.Text(0, use));
    if (!child)
        return;
    if (!EdgeFromWord(edit.Text(1, use), edge)) {
        edit.error = QStringLiteral("Edges are called left, top, right and bottom, not '%1'.")
                         .arg(edit.Text(1, use));
        return;
    }
    Attachment attachment;
    attachment.to = row.to;
    if (row.to != Attachment::To::None)
        attachment.offset = Scaled(edit.Int(2, use));
    if (row.positionAt >= 0)
        attachment.position = edit.Int(row.positionAt, use);
    if (row.controlAt >= 0)
        attachment.control = Child(edit, edit.Text(row.controlAt, use));
    if (edit.error.isEmpty())
        Form(edit.element)->Attach(child, edge, attachment);
}

void Attach(Edit& edit)
{
    for (const AttachmentRow& row : ATTACHMENTS) {
        if (qstrcmp(row.flag, edit.flag) != 0)
            continue;
        for (int use = 0; use < edit.UseCount() && edit.error.isEmpty(); ++use)
            AttachOne(edit, row, use);
    }
}

// clang-format off
const Property FORM[] = {
    {"numberOfDivisions",     [](Edit& e) { Form(e.element)->SetDivisions(e.Int()); },
                              [](Element& e) -> Value { return Form(e)->GetDivisions(); }},
    {"attachNone",            Attach, nullptr},
    {"attachForm",            Attach, nullptr},
    {"attachOppositeForm",    Attach, nullptr},
    {"attachControl",         Attach, nullptr},
    {"attachOppositeControl", Attach, nullptr},
    {"attachPosition",        Attach, nullptr},
    {"childArray",            nullptr, [](Element& e) -> Value { return ChildNames(e, ANY_CONTROL); }},
    {"numberOfChildren",      nullptr, [](Element& e) -> Value { return ChildNames(e, ANY_CONTROL).size(); }},
};

const ControlRow ROWS[] = {
    {"formLayout", LayoutKind, MakeForm, FORM,
        "attachControl/ac str str int str cem; attachForm/af str str int cem; attachNone/an str str cem;"
        "attachOppositeControl/aoc str str int str cem; attachOppositeForm/aof str str int cem; attachPosition/ap str str int int cem;"
        "childArray/ca - q; numberOfChildren/nch - q; numberOfDivisions/nd int cqe;"},
};
// clang-format on

} // namespace

void RegisterFormLayout(CommandRegistry& commands)
{
    RegisterControls(commands, ROWS);
}

} // namespace host::ui
