#include "ui/commands/Tables.h"

#include <QGuiApplication>

namespace host::ui {

namespace {

Outcome SetFocus(Call& call)
{
    Element* element = nullptr;
    const Outcome found = FindElement(call.ObjectText(), ANY_CONTROL | WindowKind, element);
    if (!found.Ok())
        return found;
    element->GetWidget()->setFocus(Qt::OtherFocusReason);
    return {};
}

constexpr struct
{
    Qt::KeyboardModifier key;
    int bit;
} MODIFIERS[] = {
    {Qt::ShiftModifier, 1},
    {Qt::ControlModifier, 4},
    {Qt::AltModifier, 8},
    {Qt::MetaModifier, 16},
};

Outcome GetModifiers(Call&)
{
    int bits = 0;
    for (const auto& row : MODIFIERS) {
        if (QGuiApplication::keyboardModifiers() & row.key)
            bits |= row.bit;
    }
    return bits;
}

const CommandRow COMMANDS[] = {
    {"setFocus", "none", "", "String", "", SetFocus},
    {"getModifiers", "int", "", "", "", GetModifiers},
};

} // namespace

void RegisterFocusCommands(CommandRegistry& commands)
{
    commands.Register(COMMANDS);
}

} // namespace host::ui
