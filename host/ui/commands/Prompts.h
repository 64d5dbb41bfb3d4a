#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace host::ui {

/// A question with buttons, and perhaps a line of text to fill in.
struct Prompt
{
    QString title;
    QString message;
    QStringList buttons;
    QString defaultButton;
    QString cancelButton; ///< what Escape presses
    QString dismissText; ///< the answer when the dialog is closed without a button
    QString icon; ///< "information", "warning", "critical", "question" or ""
    bool hasText = false;
    bool multiLine = false;
    QString text; ///< what the field starts with
};

struct PromptAnswer
{
    QString button;
    QString text;
};

/// Asks the person at the screen; waits for the answer. Main thread only.
using PromptFunction = std::function<PromptAnswer(const Prompt&)>;

/// The function that confirmDialog and promptDialog ask. Tests and unattended runs put their own in
/// its place; an empty one brings the dialog back.
void SetPromptFunction(PromptFunction function);
PromptAnswer Ask(const Prompt& prompt);
/// Answers at once with the default button and the text as it is.
PromptAnswer AnswerWithDefault(const Prompt& prompt);

} // namespace host::ui
