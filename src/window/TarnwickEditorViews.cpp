// The side bar's views: what they are told, and what they ask for.

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "plugin/MayaUtil.h"
#include "settings/Settings.h"
#include "views/SideBar.h"
#include "views/explorer/OpenEditorsView.h"
#include "views/explorer/WorkspaceView.h"
#include "views/goto/GoToWidget.h"
#include "views/outline/OutlineView.h"
#include "window/PythonName.h"
#include "window/TarnwickEditor.h"

#include <QAction>
#include <QFileDialog>
#include <QTextBlock>

namespace {

QString WorkspaceFilters()
{
    return QStringLiteral("TE2 Workspace (*%1);;All Files(*.*)").arg(Settings::WORKSPACE_EXTENSION);
}

/// Where the workspace dialogs start: the folder of the first one, for as long as the program runs.
const QString& WorkspaceDialogDirectory()
{
    static const QString directory = Settings::GetWorkspacesDirectoryPath();
    return directory;
}

} // namespace

void TarnwickEditor::ConnectSideBar()
{
    using O = OpenEditorsView;
    using T = TarnwickEditor;
    connect(m_sideBar, &SideBar::HideRequested, this, [this] { SetSideBarVisible(false, true); });
    m_sideBar->SetQuickHelpScript([this] { return ScriptForHelp(); });
    connect(m_sideBar, &SideBar::FlagChosen, this, &T::InsertFlag);
    connect(m_sideBar, &SideBar::FileRequested, this, &T::ShowFileLine);
    connect(m_sideBar, &SideBar::CommandReferenceRequested, this, [this](const QString& command) {
        const CodeEditor* const editor = GetActiveCodeEditor();
        MayaUtil::CommandDocumentation(
            command, editor && editor->GetLanguage() == CodeEditorLanguage::Python);
    });
    connect(m_sideBar, &SideBar::FocusEditorRequested, this, &T::FocusActiveCodeEditor);
    const O* const openEditors = m_sideBar->GetOpenEditors();
    connect(openEditors, &O::ActivateRequested, this,
        [this](const QString& path) { SetActiveCodeEditor(path); });
    // As if the tab's own cross had been pressed.
    connect(openEditors, &O::CloseRequested, this, [this](const QString& path) {
        if (CodeEditorGroup* const group = GetCodeEditorGroupByPath(path))
            Q_EMIT group->CloseTabRequested(group, group->GetCodeEditorIndex(path));
    });
    connect(openEditors, &O::MenuRequested, this, [this](const QString& path, const QPoint& point) {
        if (CodeEditorGroup* const group = GetCodeEditorGroupByPath(path))
            group->ShowTabContextMenu(group->GetCodeEditorIndex(path), point);
    });
    connect(openEditors, &O::NewRequested, m_actions.newBuffer, &QAction::trigger);
    connect(openEditors, &O::SaveAllRequested, m_actions.saveAll, &QAction::trigger);
    connect(openEditors, &O::CloseAllRequested, m_actions.closeAllFiles, &QAction::trigger);
    connect(
        m_sideBar->GetOutline(), &OutlineView::SelectionChanged, this, [this](int start, int end) {
            if (CodeEditor* const editor = GetActiveCodeEditor())
                editor->SetCursorSelection(start, end);
        });
    ConnectWorkspace();
}

void TarnwickEditor::ConnectWorkspace()
{
    using T = TarnwickEditor;
    using W = WorkspaceView;
    const W* const workspace = m_sideBar->GetWorkspace();
    connect(workspace, &W::OpenFileRequested, this, [this](const QString& path) {
        OpenFile(path, false);
        SetActiveCodeEditor(path);
    });
    connect(workspace, &W::OpenInNextGroupRequested, this, [this](const QString& path) {
        const int next = (GetActiveCodeEditorGroupIndex() + 1) % GetCodeEditorGroupCount();
        OnOpenFileRequested(next, -1, path);
        SetActiveCodeEditor(path);
    });
    connect(workspace, &W::InsertPathRequested, this, &T::InsertPath);
    connect(workspace, &W::FindInFolderRequested, this, &T::FindInFolder);
    connect(workspace, &W::PathMoved, this, &T::OnPathMoved);
    connect(workspace, &W::PathDeleted, this, &T::OnPathDeleted);
    connect(workspace, &W::OpenWorkspaceRequested, this, &T::OpenWorkspace);
    connect(workspace, &W::SaveWorkspaceAsRequested, this, &T::SaveWorkspaceAs);
    connect(workspace, &W::WorkspaceModified, this, &T::OnWorkspaceModified);
}

/// Of a folder everything below it has moved too.
void TarnwickEditor::OnPathMoved(const QString& from, const QString& to)
{
    const QStringList paths = GetCodeEditorPaths();
    for (const QString& path : paths) {
        if (path == from || path.startsWith(from + QLatin1Char('/')))
            OnFilePathChanged(path, to + path.mid(from.size()));
    }
}

/// The texts of open files are nowhere but in their editors now.
void TarnwickEditor::OnPathDeleted(const QString& deleted)
{
    const QStringList paths = GetCodeEditorPaths();
    for (const QString& path : paths) {
        if (path == deleted || path.startsWith(deleted + QLatin1Char('/')))
            FollowFileChange(path);
    }
}

/// Other folders or files than before.
void TarnwickEditor::OnWorkspaceModified()
{
    m_sideBar->GetWorkspace()->UpdateAll();
    m_goTo->RefreshFiles();
}

/// As it stands, at the cursor of the active editor.
void TarnwickEditor::InsertPath(const QString& path)
{
    CodeEditor* const editor = GetActiveCodeEditor();
    if (!editor)
        return;
    editor->ClearSelectionAndInsertText(path);
    editor->setFocus(Qt::OtherFocusReason);
}

/// In the workspace, or among the open editors for what lies outside of it.
void TarnwickEditor::ShowInSideBar(const QString& path)
{
    ShowSideBarPage(SideBar::Page::Explorer);
    WorkspaceView* const workspace = m_sideBar->GetWorkspace();
    workspace->SetExpanded(true);
    if (workspace->SelectPath(path)) {
        workspace->FocusContent(Qt::ShortcutFocusReason);
        return;
    }
    Settings::openEditorsVisible = true;
    m_sideBar->UpdatePreferences();
    m_sideBar->GetOpenEditors()->Reveal(path);
}

void TarnwickEditor::UpdateOpenEditors()
{
    QVector<OpenEditorsView::Editor> editors;
    QHash<QString, bool> files;
    for (int i = 0; i < m_groups.size(); ++i) {
        for (int tab = 0; tab < m_groups[i]->GetCount(); ++tab) {
            const CodeEditorProperties properties = m_groups[i]->GetProperties(tab);
            const bool modified = m_groups[i]->IsModified(tab);
            editors.append({i, properties, modified});
            if (properties.type == CodeEditorType::File)
                files.insert(properties.filePath, modified);
        }
    }
    m_sideBar->GetOpenEditors()->SetEditors(editors);
    m_sideBar->GetWorkspace()->SetOpenFiles(files);
}

void TarnwickEditor::UpdateOpenEditorsSelection()
{
    const CodeEditor* const editor = GetActiveCodeEditor();
    m_sideBar->GetOpenEditors()->SelectEditor(editor ? editor->GetFilePath() : QString());
}

void TarnwickEditor::UpdateParser()
{
    if (CodeEditorGroup* const group = GetActiveCodeEditorGroup())
        group->UpdateParser();
}

void TarnwickEditor::OnParserUpdated(BaseParser* parser)
{
    m_sideBar->UpdateOutline(parser);
}

void TarnwickEditor::UpdateOutlineCursor()
{
    const CodeEditor* const editor = GetActiveCodeEditor();
    const QTextBlock line = editor ? editor->textCursor().block() : QTextBlock();
    const int start = qMax(0, line.position());
    m_sideBar->GetOutline()->SetCursorPosition(
        editor ? editor->GetCursorPosition() : 0, start, start + qMax(1, line.length()) - 1);
}

QString TarnwickEditor::ShowSaveWorkspaceDialog()
{
    QString path = QFileDialog::getSaveFileName(
        this, tr("Save Workspace"), WorkspaceDialogDirectory(), WorkspaceFilters());
    if (!path.isEmpty() && !path.endsWith(Settings::WORKSPACE_EXTENSION, Qt::CaseInsensitive))
        path += Settings::WORKSPACE_EXTENSION;
    return path;
}

QString TarnwickEditor::ShowOpenWorkspaceDialog()
{
    return QFileDialog::getOpenFileName(
        this, tr("Open File"), WorkspaceDialogDirectory(), WorkspaceFilters());
}

void TarnwickEditor::SaveWorkspaceAs()
{
    const QString path = ShowSaveWorkspaceDialog();
    if (!path.isEmpty())
        m_sideBar->SaveWorkspaceAs(path);
}

void TarnwickEditor::OpenWorkspace()
{
    const QString path = ShowOpenWorkspaceDialog();
    if (path.isEmpty())
        return;
    m_sideBar->OpenWorkspace(path);
    OnWorkspaceModified();
    ShowSideBarPage(SideBar::Page::Explorer);
}

void TarnwickEditor::AddFolderToWorkspace()
{
    const QStringList before = Settings::workspaceFolders;
    m_sideBar->GetWorkspace()->ShowAddFolderDialog();
    // Where it went.
    if (Settings::workspaceFolders != before)
        ShowSideBarPage(SideBar::Page::Explorer);
}

/// Help on what is selected in the editor, or on the word at its cursor.
void TarnwickEditor::ShowQuickHelp()
{
    const CodeEditor* const editor = GetCodeEditorWithFocus();
    ShowQuickHelpOn(editor ? NameForHelp(*editor) : QString());
}

void TarnwickEditor::OnQuickHelpChanged(const QString& text, bool isRequested)
{
    if (!isRequested) {
        m_sideBar->UpdateQuickHelp(text, false);
        return;
    }
    const CodeEditor* const editor = GetActiveCodeEditor();
    const bool isItsOwn = editor && (text.isEmpty() || text == editor->GetSelectedTextForExecute());
    ShowQuickHelpOn(isItsOwn ? NameForHelp(*editor) : text);
}

/// The focus goes along: the next letters filter the flags, or are a name where there was none.
void TarnwickEditor::ShowQuickHelpOn(const QString& name)
{
    ShowSideBarPage(SideBar::Page::QuickHelp);
    m_sideBar->UpdateQuickHelp(name, true);
    m_sideBar->FocusPage(Qt::ShortcutFocusReason);
}

/// The name that is selected or stands at the cursor, in Python with what stands before its dots.
QString TarnwickEditor::NameForHelp(const CodeEditor& editor)
{
    QTextCursor cursor = editor.textCursor();
    if (editor.GetLanguage() == CodeEditorLanguage::Python) {
        const QTextBlock line = cursor.block();
        const int start = cursor.selectionStart() - line.position();
        const int end = cursor.selectionEnd() - line.position();
        const QString name = PythonName::NameThrough(line.text(), start, end);
        if (!name.isEmpty())
            return name;
    }
    if (!cursor.hasSelection())
        cursor.select(QTextCursor::WordUnderCursor);
    return cursor.selectedText();
}

QuickHelpTopics::Script TarnwickEditor::ScriptForHelp() const
{
    const CodeEditor* const editor = GetActiveCodeEditor();
    if (!editor)
        return {};
    return {editor->GetLanguage(), editor->GetText(), editor->GetCurrentLine()};
}

void TarnwickEditor::ShowFileLine(const QString& path, int line)
{
    CodeEditor* const editor = GetCodeEditor(path, true);
    if (!editor)
        return;
    SetActiveCodeEditor(path);
    editor->SetCurrentLine(line);
}

void TarnwickEditor::InsertFlag(const QString& longName)
{
    CodeEditor* const editor = GetActiveCodeEditor();
    if (!editor)
        return;
    editor->InsertFlag(longName);
    editor->setFocus(Qt::OtherFocusReason);
}
