#include "ui/commands/Tables.h"
#include "ui/commands/windows/Prompts.h"

namespace host::ui {

namespace {

/// What the person typed last; asked for after the dialog was closed.
QString lastText;

Prompt ReadPrompt(const Call& call)
{
    Prompt prompt;
    prompt.title = call.Has("title") ? call.Text("title") : QStringLiteral("Confirm");
    prompt.message = call.Text("message");
    prompt.buttons = call.Texts("button");
    if (prompt.buttons.isEmpty())
        prompt.buttons
            += call.Has("defaultButton") ? call.Text("defaultButton") : QStringLiteral("Confirm");
    prompt.defaultButton
        = call.Has("defaultButton") ? call.Text("defaultButton") : prompt.buttons.first();
    prompt.cancelButton = call.Text("cancelButton");
    prompt.dismissText
        = call.Has("dismissString") ? call.Text("dismissString") : QStringLiteral("dismiss");
    return prompt;
}

Outcome ConfirmDialog(Call& call)
{
    Prompt prompt = ReadPrompt(call);
    prompt.icon = call.Text("icon");
    return Ask(prompt).button;
}

Outcome PromptForText(Call& call)
{
    if (call.IsQuery())
        return lastText;
    Prompt prompt = ReadPrompt(call);
    prompt.hasText = true;
    prompt.multiLine = call.Has("scrollableField");
    prompt.text = call.Text("text");
    const PromptAnswer answer = Ask(prompt);
    lastText = answer.text;
    return answer.button;
}

// clang-format off
const CommandRow COMMANDS[] = {
    {"confirmDialog", "string", "", "",
        "annotation/ann str cm; backgroundColor/bgc float float float c; button/b str cm; cancelButton/cb str c; defaultButton/db str c;"
        "dismissString/ds str c; icon/icn str c; message/m str c; messageAlign/ma str c; parent/p str c; title/t str c", ConfirmDialog},
    {"promptDialog", "string", "Q", "",
        "button/b str cm; cancelButton/cb str c; defaultButton/db str c; dismissString/ds str c; message/m str c; messageAlign/ma str c;"
        "parent/p str c; scrollableField/sf - c; style/st str c; text/tx str cq; title/t str c", PromptForText},
};
// clang-format on

} // namespace

void RegisterDialogCommands(CommandRegistry& commands)
{
    commands.Register(COMMANDS);
}

} // namespace host::ui
