// Closing tabs and the host's window, with the questions that keep people's work.

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "settings/Settings.h"
#include "window/TarnwickEditor.h"

#include <QCloseEvent>
#include <QMessageBox>

QMessageBox::StandardButton TarnwickEditor::ShowUnsavedFileDialog(const QString& name)
{
    const bool all = name.isEmpty();
    QMessageBox box(QMessageBox::Question, all ? Settings::APPLICATION_TITLE : tr("Save"),
        all ? tr("Tarnwick Editor 2 files have been modified. Save all changes?")
            : tr("'%1' has been modified. Save changes?").arg(name),
        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, this);
    box.setDefaultButton(QMessageBox::Yes);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

bool TarnwickEditor::ShowConfirmCloseInternalBufferDialog(const QString& label)
{
    return QMessageBox::question(this, tr("Delete"),
               tr("Delete buffer '%1'?\n\nUnsaved contents will be lost.").arg(label),
               QMessageBox::Yes | QMessageBox::No, QMessageBox::No)
        == QMessageBox::Yes;
}

void TarnwickEditor::CloseCodeEditor(CodeEditorGroup* group, int index, bool ask)
{
    CodeEditor* const editor = group ? group->GetCodeEditor(index) : nullptr;
    if (!editor)
        return;
    const bool isBuffer = editor->GetType() == CodeEditorType::Buffer;
    if (ask && !(isBuffer ? PrepareClosingBuffer(editor) : PrepareClosingFile(editor)))
        return;
    if (!isBuffer)
        AddRecentFile(editor->GetFilePath());
    // A question lets the event loop run: the tab may stand elsewhere by now.
    group->DeleteCodeEditor(group->GetCodeEditorIndex(editor->GetFilePath()));
    RefreshCodeEditorGroups(false);
    if (group == GetActiveCodeEditorGroup() && group->GetCount() == 0)
        ActivateGroupWithEditors();
    OnActiveCodeEditorChanged();
    SaveState();
}

bool TarnwickEditor::PrepareClosingBuffer(CodeEditor* editor)
{
    const bool asks
        = Settings::showConfirmDialogOnInternalBufferClose && !editor->GetText().isEmpty();
    if (asks && !ShowConfirmCloseInternalBufferDialog(editor->GetLabel()))
        return false;
    DeleteFileByPath(editor->GetFilePath());
    return true;
}

bool TarnwickEditor::PrepareClosingFile(CodeEditor* editor)
{
    if (!editor->IsModified())
        return true;
    const auto answer = ShowUnsavedFileDialog(editor->GetLabel());
    if (answer == QMessageBox::Yes)
        return WriteCodeEditor(editor);
    return answer == QMessageBox::No;
}

/// The next group to work in when the active one has no editor any more.
void TarnwickEditor::ActivateGroupWithEditors()
{
    for (CodeEditorGroup* group : qAsConst(m_groups)) {
        if (group->GetCount() == 0)
            continue;
        SetActiveCodeEditorGroup(group, false);
        group->FocusCurrentCodeEditor();
        return;
    }
}

/// By path, as the places change with each tab that goes.
void TarnwickEditor::CloseTabs(CodeEditorGroup* group, const QStringList& paths)
{
    for (const QString& path : paths)
        CloseCodeEditor(group, group->GetCodeEditorIndex(path), true);
}

void TarnwickEditor::CloseFile()
{
    if (CodeEditorGroup* group = GetActiveCodeEditorGroup())
        CloseCodeEditor(group, group->GetCurrentIndex(), true);
}

void TarnwickEditor::CloseAllFiles()
{
    for (CodeEditorGroup* group : qAsConst(m_groups)) {
        QStringList paths;
        for (const CodeEditorProperties& properties : group->GetAllProperties())
            paths.append(properties.filePath);
        CloseTabs(group, paths);
    }
}

void TarnwickEditor::OnCloseTabRequested(CodeEditorGroup* group, int index)
{
    CloseCodeEditor(group, index, true);
}

void TarnwickEditor::OnCloseOtherTabsRequested(CodeEditorGroup* group, int index)
{
    QStringList paths;
    for (int tab = 0; tab < group->GetCount(); ++tab) {
        if (tab != index)
            paths.append(group->GetFilePath(tab));
    }
    CloseTabs(group, paths);
}

void TarnwickEditor::OnCloseTabsToRightRequested(CodeEditorGroup* group, int index)
{
    QStringList paths;
    for (int tab = index + 1; tab < group->GetCount(); ++tab)
        paths.append(group->GetFilePath(tab));
    CloseTabs(group, paths);
}

/// Asked when the host's main window is about to close. Buffers are kept whatever is answered.
bool TarnwickEditor::MayHostClose()
{
    SaveAll(true, false);
    if (Settings::saveAllOnExit || !Settings::showUnsavedFileDialogOnMayaExit
        || !ModifiedFilesExist())
        return true;
    const auto answer = ShowUnsavedFileDialog(QString());
    if (answer == QMessageBox::Yes)
        SaveAll(false, true);
    return answer != QMessageBox::Cancel;
}
