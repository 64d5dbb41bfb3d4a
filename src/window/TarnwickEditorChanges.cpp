// Files that other programs change, and the files that were used last.

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "files/FileText.h"
#include "files/TextFormat.h"
#include "plugin/Logger.h"
#include "settings/Settings.h"
#include "window/Question.h"
#include "window/TarnwickEditor.h"

#include <QAction>
#include <QFileInfo>
#include <QMenu>
#include <QScopedValueRollback>
#include <QTimer>

namespace {

/// Programs that save by replacing take the old file away before the new one is there.
constexpr int REPLACING_TIME = 500; // ms

/// Whether the file has become what its editor shows.
bool HoldsText(const QString& path, const CodeEditor& editor)
{
    QByteArray bytes;
    return FileText::ReadBytes(path, bytes)
        && ReadFormatted(bytes, FileText::ChosenCodec()).text == editor.GetStoredText();
}

} // namespace

/// What is there again waits for the next check, which finds it without being told.
void TarnwickEditor::OnFileChanged(const QString& path)
{
    if (QFileInfo(path).isFile())
        return;
    QTimer::singleShot(REPLACING_TIME, this, [this, path] {
        if (!QFileInfo(path).isFile())
            FollowFileChange(path);
    });
}

void TarnwickEditor::CheckForFileChanges()
{
    if (m_checkingForFileChanges || !Settings::checkForModifiedFiles)
        return;
    const QScopedValueRollback<bool> checking(m_checkingForFileChanges, true);
    // All of them: nobody is told of everything that happens in folders of other machines.
    const QStringList paths = GetCodeEditorPaths();
    for (const QString& path : paths) {
        if (QFileInfo(path).isFile())
            FollowFileChange(path);
        else
            OnFileChanged(path);
    }
}

void TarnwickEditor::FollowFileChange(const QString& path)
{
    CodeEditor* const editor = GetCodeEditor(path);
    if (!editor)
        return;
    editor->RenewFileWatch();
    switch (m_diskContents.TakeChange(path)) {
    case DiskContents::Change::None: break;
    case DiskContents::Change::Content: TakeFileChange(path, *editor); break;
    // The text is nowhere but in the editor now.
    case DiskContents::Change::Gone: editor->SetModified(true); break;
    case DiskContents::Change::Unreadable:
        Logger::Error(QStringLiteral("Failed to open file: %1").arg(path));
        break;
    }
}

void TarnwickEditor::TakeFileChange(const QString& path, CodeEditor& editor)
{
    if (editor.IsModified() && HoldsText(path, editor)) {
        ReadText(path, CodeEditorType::File);
        editor.SetModified(false);
        return;
    }
    if (editor.IsModified()) {
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
    m_recentFilesMenu->addAction(m_actions.reopenClosedFile);
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
        m_recentFilesMenu->addAction(m_actions.clearRecentFiles);
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
