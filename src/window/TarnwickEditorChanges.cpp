// Files that other programs change, and the files that were used last.

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "files/FileText.h"
#include "settings/Settings.h"
#include "window/Question.h"
#include "window/TarnwickEditor.h"

#include <QAction>
#include <QFileInfo>
#include <QMenu>
#include <QScopedValueRollback>

void TarnwickEditor::OnFileChanged(const QString& path)
{
    if (QFileInfo::exists(path)) {
        if (!m_changedPaths.contains(path))
            m_changedPaths.append(path);
        return;
    }
    // The text is nowhere but in the editor now.
    if (CodeEditor* editor = GetCodeEditor(path))
        editor->SetModified(true);
}

void TarnwickEditor::CheckForFileChanges()
{
    if (m_checkingForFileChanges)
        return;
    const QScopedValueRollback<bool> checking(m_checkingForFileChanges, true);
    // What changes while a question stands is left to the next check.
    QStringList paths;
    paths.swap(m_changedPaths);
    if (!Settings::checkForModifiedFiles)
        return;
    for (const QString& path : qAsConst(paths))
        FollowFileChange(path);
}

void TarnwickEditor::FollowFileChange(const QString& path)
{
    const CodeEditor* const editor = GetCodeEditor(path);
    const QByteArray content = FileText::Fingerprint(path);
    // The watcher also tells of what this window has written, sooner or later.
    if (!editor || content == m_diskContents.value(path))
        return;
    // Asked once for each change.
    m_diskContents.insert(path, content);
    if (editor->IsModified()) {
        const auto answer = AskQuestion(this, tr("Reload"),
            tr("%1\n\nThis file has been modified by another program.\n"
               "Do you want to reload it?")
                .arg(path),
            QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
        if (answer != QMessageBox::Yes)
            return;
    }
    ReloadFile(path);
}

/// Keeps the cursor's place and what is in view.
void TarnwickEditor::ReloadFile(const QString& path)
{
    const QString text = GetFileText(path);
    CodeEditor* const editor = GetCodeEditor(path);
    if (text.isNull() || !editor)
        return;
    const int position = editor->GetCursorPosition();
    const int scrollValue = editor->GetVerticalScrollBarValue();
    editor->SetText(text);
    editor->SetModified(false);
    editor->SetCursorPosition(position, false, false);
    editor->SetVerticalScrollBarValue(scrollValue);
}

void TarnwickEditor::AddRecentFile(const QString& path)
{
    Settings::AddRecentFile(path);
    UpdateRecentFilesMenu();
}

void TarnwickEditor::ClearRecentFiles()
{
    Settings::ClearRecentFiles();
    UpdateRecentFilesMenu();
}

void TarnwickEditor::UpdateRecentFilesMenu()
{
    m_recentFilesMenu->clear();
    m_recentFilesMenu->addAction(m_reopenClosedFileAction);
    m_recentFilesMenu->addSeparator();
    const int count = qMin(Settings::recentFiles.size(), Settings::numRecentFiles);
    for (int i = 0; i < count; ++i) {
        // A name may hold what a menu would take for the mark of its key.
        QString text = Settings::recentFiles[i];
        QAction* const action
            = m_recentFilesMenu->addAction(text.replace(QLatin1Char('&'), QLatin1String("&&")));
        action->setData(Settings::recentFiles[i]);
        connect(action, &QAction::triggered, this, &TarnwickEditor::OpenRecentFile);
    }
    if (count > 0) {
        m_recentFilesMenu->addSeparator();
        m_recentFilesMenu->addAction(m_clearRecentFilesAction);
    }
}

void TarnwickEditor::OpenRecentFile()
{
    const auto* action = qobject_cast<QAction*>(sender());
    const QString path = action ? action->data().toString() : QString();
    if (!path.isEmpty())
        OpenFile(path, false);
}

void TarnwickEditor::ReopenClosedFile()
{
    for (const QString& path : qAsConst(Settings::recentFiles)) {
        if (CodeEditorExists(path))
            continue;
        OpenFile(path, false);
        return;
    }
}
