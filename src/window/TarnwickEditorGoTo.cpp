// Going to files, symbols and lines, and running commands by their names.

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "language/BaseParser.h"
#include "output/OutputTextEdit.h"
#include "settings/Settings.h"
#include "views/goto/GoToEntries.h"
#include "views/goto/GoToWidget.h"
#include "window/TarnwickEditor.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QMenu>
#include <QMenuBar>
#include <QSplitter>
#include <QTextBlock>

namespace {

constexpr int REMEMBERED_COMMANDS = 5;

using MenuPaths = QHash<const QAction*, QString>;

/// Under which menu each command stands first, such as "Edit › Line".
void CollectMenuPaths(const QList<QAction*>& actions, const QString& path, MenuPaths& paths)
{
    for (QAction* const action : actions) {
        if (const QMenu* const menu = action->menu()) {
            const QString title = menu->title().remove(QLatin1Char('&'));
            CollectMenuPaths(menu->actions(),
                path.isEmpty() ? title : QStringLiteral("%1 › %2").arg(path, title), paths);
        } else if (!action->isSeparator() && !paths.contains(action)) {
            paths.insert(action, path);
        }
    }
}

int BindingOf(GoToWidget::Mode mode)
{
    switch (mode) {
    case GoToWidget::Mode::Files: return KeyBindings::GotoFile;
    case GoToWidget::Mode::Symbols: return KeyBindings::GotoSymbolInFile;
    case GoToWidget::Mode::Line: return KeyBindings::GotoLine;
    case GoToWidget::Mode::Commands:
    case GoToWidget::Mode::Help: break;
    }
    return KeyBindings::None;
}

} // namespace

void TarnwickEditor::CreateGoTo()
{
    GoToWidget::Sources sources;
    sources.editor = [this] {
        const CodeEditor* const editor = GetActiveCodeEditor();
        return editor ? GoToWidget::Editor{true, editor->GetCursorPosition(),
                   editor->GetCurrentLine(), editor->GetLineCount()}
                      : GoToWidget::Editor();
    };
    sources.files = [this] { return GetGoToFiles(); };
    sources.symbols = [this] { return GetGoToSymbols(); };
    sources.commands = [this] { return GetGoToCommands(); };
    sources.shortcut = [this](GoToWidget::Mode mode) {
        return m_keyBindings.GetShortcut(BindingOf(mode)).toString(QKeySequence::NativeText);
    };
    m_goTo = new GoToWidget(sources, m_codeEditorSplitter, this);
    m_goTo->setObjectName(QStringLiteral("m_goTo"));
    using G = GoToWidget;
    using T = TarnwickEditor;
    connect(m_goTo, &G::FileChosen, this, &T::OnGoToFileChosen);
    connect(m_goTo, &G::SymbolPicked, this, &T::OnGoToSymbolPicked);
    connect(m_goTo, &G::LinePicked, this, &T::OnGoToLinePicked);
    connect(m_goTo, &G::CommandChosen, this, &T::OnGoToCommandChosen);
    connect(m_goTo, &G::PreviewEnded, this, &T::OnGoToPreviewEnded);
    connect(m_goTo, &G::FocusReturnRequested, this, &T::OnGoToFocusReturnRequested);
}

void TarnwickEditor::GoToFile()
{
    OpenGoTo(GoToWidget::Mode::Files);
}

void TarnwickEditor::GoToSymbolInFile()
{
    OpenGoTo(GoToWidget::Mode::Symbols);
}

void TarnwickEditor::GoToLine()
{
    OpenGoTo(GoToWidget::Mode::Line);
}

void TarnwickEditor::OpenGoTo(GoToWidget::Mode mode)
{
    if (m_goTo->isHidden()) {
        m_focusBeforeGoTo = QApplication::focusWidget();
        m_viewBeforeGoTo.Forget();
    }
    m_goTo->Open(mode);
}

/// The order in which editors are offered.
void TarnwickEditor::NoteUsedEditor()
{
    const CodeEditor* const editor = GetActiveCodeEditor();
    if (!editor)
        return;
    m_lastUsedPaths.removeOne(editor->GetFilePath());
    m_lastUsedPaths.prepend(editor->GetFilePath());
    // Those of closed editors go at times.
    if (m_lastUsedPaths.size() <= 2 * GetCodeEditorCount())
        return;
    const QStringList paths = GetCodeEditorPaths();
    const auto isClosed = [&paths](const QString& path) { return !paths.contains(path); };
    m_lastUsedPaths.erase(std::remove_if(m_lastUsedPaths.begin(), m_lastUsedPaths.end(), isClosed),
        m_lastUsedPaths.end());
}

QVector<GoToEntry> TarnwickEditor::GetGoToFiles() const
{
    QHash<QString, CodeEditorProperties> open;
    QStringList paths = m_lastUsedPaths;
    for (const CodeEditorGroup* const group : m_groups) {
        for (const CodeEditorProperties& properties : group->GetLastUsedEditors()) {
            open.insert(properties.filePath, properties);
            paths.append(properties.filePath);
        }
    }
    paths.removeDuplicates();
    QVector<GoToEntry> entries;
    for (const QString& path : qAsConst(paths)) {
        if (open.contains(path))
            entries.append(GoToEntries::OfEditor(open[path], Settings::workspaceFolders));
    }
    for (const QString& path : qAsConst(Settings::recentFiles)) {
        if (!open.contains(path))
            entries.append(GoToEntries::OfFile(path, Settings::workspaceFolders));
    }
    return entries;
}

QVector<GoToEntry> TarnwickEditor::GetGoToSymbols()
{
    const CodeEditor* const editor = GetActiveCodeEditor();
    if (!editor)
        return {};
    UpdateParser();
    const BaseParser* const parser = GetActiveCodeEditorGroup()->GetParser();
    // An editor that cannot be seen has not been parsed.
    if (!parser || parser->GetFilePath() != editor->GetFilePath())
        return {};
    return GoToEntries::OfSymbols(parser->GetItems(), [editor](int position) {
        return editor->document()->findBlock(position).blockNumber() + 1;
    });
}

/// By their places among the window's actions.
QVector<GoToEntry> TarnwickEditor::GetGoToCommands() const
{
    MenuPaths paths;
    CollectMenuPaths(m_menuBar->actions(), QString(), paths);
    const QList<QAction*> actions = this->actions();
    QVector<GoToEntry> entries;
    const auto add = [&](QAction* action) {
        if (action->text().isEmpty() || !action->isEnabled())
            return;
        GoToEntry entry;
        entry.text = action->text();
        entry.detail = paths.value(action);
        entry.shortcut = action->shortcut().toString(QKeySequence::NativeText);
        entry.value = actions.indexOf(action);
        entries.append(entry);
    };
    for (QAction* const action : m_lastCommands)
        add(action);
    for (QAction* const action : actions) {
        if (!m_lastCommands.contains(action))
            add(action);
    }
    NameHiddenCommands(entries);
    return entries;
}

/// Two commands have the same text; the one that is in no menu is told by what its keys are called.
void TarnwickEditor::NameHiddenCommands(QVector<GoToEntry>& entries) const
{
    const QList<QAction*> actions = this->actions();
    QHash<const QAction*, QString> labels;
    for (const KeyBinding& binding : m_keyBindings.GetKeySequences())
        labels.insert(binding.action, binding.label);
    for (GoToEntry& entry : entries) {
        const QString label = labels.value(actions[entry.value]);
        if (entry.detail.isEmpty() && label != entry.text)
            entry.detail = label;
    }
}

void TarnwickEditor::OnGoToFileChosen(const QString& path, int line, int column, bool inNextGroup)
{
    if (!Settings::codeEditorVisible)
        ToggleCodeEditor();
    if (!CodeEditorExists(path) && inNextGroup)
        OnOpenFileRequested((GetActiveCodeEditorGroupIndex() + 1) % m_groups.size(), -1, path);
    else if (!CodeEditorExists(path))
        OpenFile(path, false);
    if (!CodeEditorExists(path))
        return; // which has been told
    SetActiveCodeEditor(path);
    if (line > 0)
        OnGoToLinePicked(qMin(line, GetActiveCodeEditor()->GetLineCount()), column, true);
}

void TarnwickEditor::OnGoToSymbolPicked(int start, int end, bool chosen)
{
    if (CodeEditor* const editor = TakeGoToTarget(chosen))
        editor->SetCursorSelection(start, end);
}

void TarnwickEditor::OnGoToLinePicked(int line, int column, bool chosen)
{
    if (CodeEditor* const editor = TakeGoToTarget(chosen))
        editor->SetCurrentLine(line, column);
}

/// The editor that is about to show a place, to look at or to stay; null when there is none.
CodeEditor* TarnwickEditor::TakeGoToTarget(bool chosen)
{
    CodeEditor* const editor = GetActiveCodeEditor();
    if (!editor)
        return nullptr;
    m_viewBeforeGoTo.Take(editor);
    if (chosen)
        FocusGoToTarget();
    return editor;
}

/// The active editor, which may be hidden.
void TarnwickEditor::FocusGoToTarget()
{
    m_viewBeforeGoTo.Forget();
    if (!Settings::codeEditorVisible)
        ToggleCodeEditor();
    FocusActiveCodeEditor();
}

/// Back to where one was, unless one went on from there with a click into the editor.
void TarnwickEditor::OnGoToPreviewEnded()
{
    if (m_viewBeforeGoTo.GetEditor() == QApplication::focusWidget())
        m_viewBeforeGoTo.Forget();
    m_viewBeforeGoTo.Restore();
}

void TarnwickEditor::OnGoToFocusReturnRequested()
{
    if (m_focusBeforeGoTo && m_focusBeforeGoTo->isVisible())
        m_focusBeforeGoTo->setFocus(Qt::OtherFocusReason);
    else
        FocusActiveCodeEditor();
}

void TarnwickEditor::OnGoToCommandChosen(int command)
{
    QAction* const action = actions().value(command);
    if (!action)
        return;
    m_lastCommands.removeOne(action);
    m_lastCommands.prepend(action);
    if (m_lastCommands.size() > REMEMBERED_COMMANDS)
        m_lastCommands.removeLast();
    // Commands are for texts.
    if (!GetCodeEditorWithFocus() && !IsFocusInOutput())
        FocusActiveCodeEditor();
    action->trigger();
}
