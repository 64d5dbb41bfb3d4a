// Closing tabs and the host's window, with the questions that keep people's work. A question lets
// the event loop run: tabs may have moved or gone when it is answered, so they are known by their
// paths.

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "settings/Settings.h"
#include "window/FormatQuestion.h"
#include "window/Question.h"
#include "window/RecoveryKeeper.h"
#include "window/TarnwickEditor.h"

#include <QScopedValueRollback>

TarnwickEditor::UnsavedAnswer TarnwickEditor::ShowUnsavedFileDialog(const QString& name)
{
    const bool all = name.isEmpty();
    const QMessageBox::StandardButton answer
        = AskQuestion(this, all ? Settings::APPLICATION_TITLE : tr("Save"),
            all ? tr("Tarnwick Editor 2 files have been modified. Save all changes?")
                : tr("'%1' has been modified. Save changes?").arg(name),
            QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes);
    switch (answer) {
    case QMessageBox::Yes: return UnsavedAnswer::Save;
    case QMessageBox::No: return UnsavedAnswer::Discard;
    default: return UnsavedAnswer::Cancel;
    }
}

bool TarnwickEditor::ShowConfirmCloseInternalBufferDialog(const QString& label)
{
    return AskQuestion(this, tr("Delete"),
               tr("Delete buffer '%1'?\n\nUnsaved contents will be lost.").arg(label),
               QMessageBox::Yes | QMessageBox::No, QMessageBox::No)
        == QMessageBox::Yes;
}

bool TarnwickEditor::CloseCodeEditor(CodeEditorGroup* group, int index, bool ask)
{
    if (!group || !group->GetCodeEditor(index))
        return true;
    const CodeEditorProperties properties = group->GetProperties(index);
    const bool isBuffer = properties.type == CodeEditorType::Buffer;
    const CloseAnswer answer = !ask ? CloseAnswer::Close
        : isBuffer                  ? PrepareClosingBuffer(properties)
                                    : PrepareClosingFile(properties);
    CodeEditorGroup* const owner = GetCodeEditorGroupByPath(properties.filePath);
    if (answer != CloseAnswer::Close || !owner)
        return answer != CloseAnswer::Cancel;
    if (!isBuffer)
        AddRecentFile(properties.filePath);
    m_diskContents.Remove(properties.filePath);
    m_fileFormats.remove(properties.filePath);
    owner->DeleteCodeEditor(owner->GetCodeEditorIndex(properties.filePath));
    UpdateSearchResults(properties.filePath);
    ActivateGroupWithEditors();
    RefreshCodeEditorGroups(false);
    return true;
}

TarnwickEditor::CloseAnswer TarnwickEditor::PrepareClosingBuffer(
    const CodeEditorProperties& properties)
{
    const bool asks = Settings::showConfirmDialogOnInternalBufferClose
        && !GetCodeEditor(properties.filePath)->GetText().isEmpty();
    if (asks && !ShowConfirmCloseInternalBufferDialog(properties.label))
        return CloseAnswer::Keep;
    DeleteFileByPath(properties.filePath);
    return CloseAnswer::Close;
}

TarnwickEditor::CloseAnswer TarnwickEditor::PrepareClosingFile(
    const CodeEditorProperties& properties)
{
    if (!GetCodeEditor(properties.filePath)->IsModified())
        return CloseAnswer::Close;
    const UnsavedAnswer answer = ShowUnsavedFileDialog(properties.label);
    if (answer != UnsavedAnswer::Save)
        return answer == UnsavedAnswer::Discard ? CloseAnswer::Close : CloseAnswer::Cancel;
    CodeEditor* const editor = GetCodeEditor(properties.filePath);
    return editor && WriteCodeEditor(editor) ? CloseAnswer::Close : CloseAnswer::Cancel;
}

/// An empty group must not stay active while others have editors: what is opened next would split
/// the window for no reason.
void TarnwickEditor::ActivateGroupWithEditors()
{
    const int active = GetActiveCodeEditorGroupIndex();
    for (int distance = 0; distance < m_groups.size(); ++distance) {
        for (const int index : {active - distance, active + distance}) {
            CodeEditorGroup* const group = GetCodeEditorGroupByIndex(index);
            if (group && group->GetCount() > 0) {
                SetActiveCodeEditorGroup(group, false);
                return;
            }
        }
    }
}

/// One after the other; a question that is cancelled ends it. What is asked about is shown.
void TarnwickEditor::CloseTabs(const QStringList& paths)
{
    SaveBatch batch;
    batch.files = paths.size();
    const QScopedValueRollback<SaveBatch*> rollback(m_saveBatch, &batch);
    for (const QString& path : paths) {
        CodeEditorGroup* const group = GetCodeEditorGroupByPath(path);
        if (!group)
            continue;
        const int index = group->GetCodeEditorIndex(path);
        const bool isBuffer = group->GetType(index) == CodeEditorType::Buffer;
        if (isBuffer ? !group->GetText(index).isEmpty() : group->IsModified(index))
            group->SetCurrentIndex(index);
        if (!CloseCodeEditor(group, index, true))
            break;
    }
    OnActiveCodeEditorChanged();
    FocusActiveCodeEditor();
    SaveState();
}

void TarnwickEditor::CloseFile()
{
    if (const CodeEditor* editor = GetActiveCodeEditor())
        CloseTabs({editor->GetFilePath()});
}

void TarnwickEditor::CloseAllFiles()
{
    CloseTabs(GetCodeEditorPaths());
}

void TarnwickEditor::OnCloseTabRequested(CodeEditorGroup* group, int index)
{
    CloseTabs({group->GetFilePath(index)});
}

void TarnwickEditor::OnCloseOtherTabsRequested(CodeEditorGroup* group, int index)
{
    QStringList paths;
    for (int tab = 0; tab < group->GetCount(); ++tab) {
        if (tab != index)
            paths.append(group->GetFilePath(tab));
    }
    CloseTabs(paths);
}

void TarnwickEditor::OnCloseTabsToRightRequested(CodeEditorGroup* group, int index)
{
    QStringList paths;
    for (int tab = index + 1; tab < group->GetCount(); ++tab)
        paths.append(group->GetFilePath(tab));
    CloseTabs(paths);
}

/// Asked when the host's main window is about to close. Buffers are kept whatever is answered.
bool TarnwickEditor::MayHostClose()
{
    SaveAll(true, false);
    if (Settings::saveAllOnExit || !Settings::showUnsavedFileDialogOnMayaExit
        || !ModifiedFilesExist())
        return true;
    const UnsavedAnswer answer = ShowUnsavedFileDialog(QString());
    if (answer == UnsavedAnswer::Discard && m_recovery)
        m_recovery->GiveUpFiles();
    if (answer != UnsavedAnswer::Save)
        return answer == UnsavedAnswer::Discard;
    SaveAll(false, true);
    // What could not be saved would be lost now.
    return !ModifiedFilesExist();
}
