#include "ui/commands/Tables.h"
#include "ui/commands/windows/Prompts.h"

#include <QFileInfo>

namespace host::ui {

namespace {

using Mode = FileQuestion::Mode;

/// By the number that -fileMode gives.
const Mode FILE_MODES[]
    = {Mode::AnyFile, Mode::ExistingFile, Mode::Folder, Mode::Folder, Mode::ExistingFiles};

Outcome FileDialog2(Call& call)
{
    const int mode = call.Has("fileMode") ? call.Int("fileMode") : 0;
    if (mode < 0 || mode >= static_cast<int>(std::size(FILE_MODES)))
        return Error{QStringLiteral("File modes are numbered 0 to 4, not %1.").arg(mode)};
    FileQuestion question;
    question.mode = FILE_MODES[mode];
    question.title = call.Has("caption") ? call.Text("caption") : QStringLiteral("File");
    question.folder = call.Text("startingDirectory");
    question.filter = call.Text("fileFilter");
    question.selectedFilter = call.Text("selectFileFilter");
    question.accept = call.Text("okCaption");
    const FileAnswer answer = AskForFiles(question);
    QStringList files = answer.files;
    if (!files.isEmpty() && call.Has("returnFilter") && call.Bool("returnFilter"))
        files += answer.filter;
    return files;
}

/// The mask is a folder and a pattern in one: "/tmp/*.mel".
Outcome FileDialog(Call& call)
{
    FileQuestion question;
    question.mode = call.Int("mode") == 1 ? Mode::AnyFile : Mode::ExistingFile;
    question.title = call.Has("title") ? call.Text("title") : QStringLiteral("File");
    const QString mask = call.Text("directoryMask");
    const QString pattern = mask.mid(mask.lastIndexOf(QLatin1Char('/')) + 1);
    question.folder = mask.left(mask.size() - pattern.size());
    if (!call.Text("defaultFileName").isEmpty())
        question.folder += call.Text("defaultFileName");
    if (!pattern.isEmpty())
        question.filter = QStringLiteral("%1 (%1)").arg(pattern);
    return AskForFiles(question).files.value(0);
}

// clang-format off
const CommandRow COMMANDS[] = {
    {"fileDialog2", "string[]", "", "",
        "buttonBoxOrientation/bbo int c; cancelCaption/cc str c; caption/cap str c; dialogStyle/ds int c; fileFilter/ff str c;"
        "fileMode/fm int c; fileTypeChanged/ftc str c; hideNameEdit/hne - c; objectName/on str c; okCaption/okc str c; optionsUICancel/oca str c;"
        "optionsUICommit/ocm str c; optionsUICommit2/oc2 str c; optionsUICreate/ocr str c; optionsUIInit/oin str c; optionsUITitle/ott str c;"
        "returnFilter/rf B c; selectionChanged/sc str c;"
        "selectFileFilter/sff str c; setProjectBtnEnabled/spe B c; startingDirectory/dir str c", FileDialog2},
    {"fileDialog", "string", "", "",
        "application/app - c; defaultFileName/dfn str c; directoryMask/dm str c; mode/m int c; title/t str c", FileDialog},
};
// clang-format on

} // namespace

void RegisterFileDialogCommands(CommandRegistry& commands)
{
    commands.Register(COMMANDS);
}

} // namespace host::ui
