// Commands of the editor window that ask for something first, or tell it.

#include "editor/CodeEditor.h"
#include "files/SafeFile.h"
#include "plugin/Logger.h"
#include "settings/Settings.h"
#include "window/AboutDialog.h"
#include "window/InsertPathDialog.h"
#include "window/TarnwickEditor.h"

#include <QDir>
#include <QFileDialog>
#include <QPointer>
#include <QTextCursor>

void TarnwickEditor::ShowInsertPathDialog()
{
    const QPointer<CodeEditor> editor = GetActiveCodeEditor();
    if (!editor)
        return;
    const bool isFile = editor->GetType() == CodeEditorType::File;
    InsertPathDialog dialog(
        isFile ? QFileInfo(editor->GetFilePath()).absolutePath() : QString(), this);
    if (dialog.exec() != QDialog::Accepted || !editor)
        return;
    // A step of its own for undo, not a part of what was typed before it.
    QTextCursor step(editor->document());
    step.beginEditBlock();
    editor->ClearSelectionAndInsertText(dialog.GetText());
    step.endEditBlock();
    editor->setFocus(Qt::OtherFocusReason);
}

void TarnwickEditor::OpenPylintrc()
{
    QString path = Settings::pylintConfigPath;
    if (path.isEmpty() || !QFileInfo(path).isFile())
        path = ShowNewPylintrcDialog();
    if (path.isEmpty())
        return;
    OpenFile(path, false);
    SetActiveCodeEditor(path);
}

/// Makes a configuration where the user wants it, or takes the one that is there; its path, empty
/// when there is none.
QString TarnwickEditor::ShowNewPylintrcDialog()
{
    const QString missing = Settings::pylintConfigPath;
    const QString start = missing.isEmpty()
        ? QDir(Settings::GetUserConfigDirectory()).filePath(QStringLiteral("pylintrc"))
        : missing;
    const QString path = QFileDialog::getSaveFileName(this, tr("Create pylintrc"), start,
        tr("All Files(*.*)"), nullptr, QFileDialog::DontConfirmOverwrite);
    if (path.isEmpty())
        return path;
    QString reason;
    if (!QFileInfo::exists(path) && !SafeFile::Write(path, "[MAIN]\n", reason)) {
        Logger::Error(QStringLiteral("Failed to write to file: %1 (%2)").arg(path, reason));
        return QString();
    }
    Settings::pylintConfigPath = path;
    WriteUserConfigs();
    return path;
}

void TarnwickEditor::ShowAboutDialog()
{
    AboutDialog dialog(this);
    dialog.exec();
}
