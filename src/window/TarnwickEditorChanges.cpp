// Files that other programs change, and the files that were used last.

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "settings/Settings.h"
#include "window/TarnwickEditor.h"

#include <QAction>
#include <QFileInfo>
#include <QMenu>
#include <QMessageBox>
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
    if (Settings::checkForModifiedFiles) {
        const QStringList paths = m_changedPaths;
        for (const QString& path : paths) {
            if (m_savedPaths.contains(path))
                continue;
            // A question lets the event loop run: editors may go meanwhile.
            if (CodeEditor* editor = GetCodeEditor(path))
                ReloadFile(editor);
        }
    }
    m_changedPaths.clear();
    m_savedPaths.clear();
}

void TarnwickEditor::ReloadFile(CodeEditor* editor)
{
    const QString path = editor->GetFilePath();
    if (editor->IsModified()) {
        const auto answer = QMessageBox::question(this, tr("Reload"),
            tr("%1\n\nThis file has been modified by another program.\n"
               "Do you want to reload it?")
                .arg(path),
            QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
        editor = GetCodeEditor(path);
        if (answer != QMessageBox::Yes || !editor)
            return;
    }
    const QString text = GetFileText(path);
    if (text.isNull())
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
