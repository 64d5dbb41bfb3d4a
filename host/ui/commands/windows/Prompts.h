#pragma once

#include <QColor>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

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

/// What files or folders a script wants to know.
struct FileQuestion
{
    enum class Mode { AnyFile, ExistingFile, Folder, ExistingFiles };

    Mode mode = Mode::AnyFile;
    QString title;
    QString folder; ///< where to begin; a file's path chooses the file
    QString filter; ///< "Name (*.a *.b);;Other (*.c)"
    QString selectedFilter;
    QString accept; ///< text of the button; empty: the usual one
};

struct FileAnswer
{
    QStringList files; ///< none: cancelled
    QString filter;
};

using FileFunction = std::function<FileAnswer(const FileQuestion&)>;

/// Like SetPromptFunction, for dialogs that ask for files.
void SetFileFunction(FileFunction function);
/// Nothing is chosen in batch mode.
FileAnswer AskForFiles(const FileQuestion& question);

using ColorFunction = std::function<std::optional<QColor>(const QColor&)>;

/// Like SetPromptFunction, for dialogs that ask for a colour.
void SetColorFunction(ColorFunction function);
/// None when it was cancelled, and in batch mode.
std::optional<QColor> AskForColor(const QColor& color);

/// Asks the person at the screen; waits for the answer. Main thread only.
using PromptFunction = std::function<PromptAnswer(const Prompt&)>;

/// The function that confirmDialog and promptDialog ask. Tests and unattended runs put their own in
/// its place; an empty one brings the dialog back.
void SetPromptFunction(PromptFunction function);
PromptAnswer Ask(const Prompt& prompt);
/// Answers at once with the default button and the text as it is.
PromptAnswer AnswerWithDefault(const Prompt& prompt);

} // namespace host::ui
