// Keys, wheel and context menu of the code editor.

#include "editor/CodeEditor.h"
#include "language/MelVariableSelection.h"
#include "settings/KeyBindings.h"
#include "settings/Settings.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QTextBlock>
#include <QToolTip>

#include <utility>

void CodeEditor::keyPressEvent(QKeyEvent* event)
{
    if (QToolTip::isVisible())
        QToolTip::hideText();
    UpdateCompleterBeforeKey(*event);
    const bool handled = HandleMenuKey(event) || HandleKeypadEnter(event) || HandleReturn(event)
        || HandleNavigationKey(event) || HandlePairKey(event) || HandleCompletionKey(event)
        || HandleClipboardKey(event) || HandleBackspace(event);
    if (!handled)
        QPlainTextEdit::keyPressEvent(event);
    UpdateCompleterAfterKey(*event);
}

/// A character that a dead key or an input method made is like one that has a key of its own.
void CodeEditor::inputMethodEvent(QInputMethodEvent* event)
{
    const QString text = event->commitString();
    const bool isTyped = text.size() == 1 && text.at(0).isPrint()
        && event->preeditString().isEmpty() && event->replacementLength() == 0 && !isReadOnly();
    if (!isTyped) {
        // What is being composed is no word yet, and several words may come at once.
        HideAutoCompleter();
        QPlainTextEdit::inputMethodEvent(event);
        return;
    }
    QInputMethodEvent composed(QString(), event->attributes());
    QPlainTextEdit::inputMethodEvent(&composed);
    QKeyEvent key(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, text);
    keyPressEvent(&key);
    event->accept();
}

/// A letter with Alt belongs to menus, and must not replace what is selected. Where Alt makes
/// characters it does not come alone, but on macOS.
bool CodeEditor::HandleMenuKey(QKeyEvent* event)
{
#ifdef Q_OS_MACOS
    constexpr Qt::KeyboardModifiers MENUS = Qt::MetaModifier;
#else
    constexpr Qt::KeyboardModifiers MENUS = Qt::AltModifier | Qt::MetaModifier;
#endif
    const bool isTyped = !event->text().isEmpty() && event->text().at(0).isPrint();
    if (!isTyped || !(event->modifiers() & MENUS) || event->modifiers() & Qt::ControlModifier)
        return false;
    event->ignore();
    return true;
}

/// The keypad's Enter executes: sent again as Ctrl+Enter, it is ignored here and taken by the
/// window.
bool CodeEditor::HandleKeypadEnter(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Enter || event->modifiers() & Qt::ControlModifier)
        return false;
    if (event->modifiers() & (Qt::AltModifier | Qt::MetaModifier))
        event->ignore();
    else if (event->modifiers() & Qt::ShiftModifier)
        SendKeyAgain(Qt::Key_Enter, Qt::NoModifier);
    else
        SendKeyAgain(Qt::Key_Enter, Qt::ControlModifier);
    return true;
}

bool CodeEditor::HandleReturn(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        return false;
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
    if (modifiers == Qt::ShiftModifier)
        SendKeyAgain(Qt::Key_Return, Qt::NoModifier);
    else if (modifiers & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        event->ignore();
    else
        InsertNewLine();
    return true;
}

bool CodeEditor::HandleNavigationKey(QKeyEvent* event)
{
    const bool shift = event->modifiers() & Qt::ShiftModifier;
    const bool ctrl = event->modifiers() & Qt::ControlModifier;
    switch (event->key()) {
    case Qt::Key_Escape: Q_EMIT EscapeKeyPressed(); return true;
    case Qt::Key_Tab: IncreaseIndent(false); return true;
    case Qt::Key_Backtab: DecreaseIndent(); return true;
    case Qt::Key_Home: OnHomeKeyPressed(shift, ctrl); return true;
    case Qt::Key_Insert:
        if (shift || ctrl)
            return false;
        ToggleOverwriteMode();
        return true;
    default: return false;
    }
}

/// Brackets and quotes.
bool CodeEditor::HandlePairKey(QKeyEvent* event)
{
    // By what the key types: where a bracket has its key depends on the keyboard.
    const QString text = event->text();
    const bool isCommand = (event->modifiers() & ~Qt::ShiftModifier) == Qt::ControlModifier;
    if (text.size() != 1 || isCommand || isReadOnly())
        return false;
    const QChar character = text.at(0);
    if (IsOpeningBrace(character))
        InsertOpeningBrace(character);
    else if (IsClosingBrace(character))
        InsertClosingBrace(character);
    else if (IsQuoteForLanguage(character))
        InsertQuote(character);
    else
        return false;
    return true;
}

bool CodeEditor::HandleBackspace(QKeyEvent* event)
{
    return event->key() == Qt::Key_Backspace && event->modifiers() == Qt::NoModifier
        && InsertBackspace();
}

bool CodeEditor::HandleClipboardKey(QKeyEvent* event)
{
    static constexpr std::pair<QKeySequence::StandardKey, void (CodeEditor::*)()> KEYS[] = {
        {QKeySequence::Cut, &CodeEditor::CustomCut},
        {QKeySequence::Copy, &CodeEditor::CustomCopy},
        {QKeySequence::Paste, &CodeEditor::CustomPaste},
        {QKeySequence::Undo, &CodeEditor::undo},
        {QKeySequence::Redo, &CodeEditor::redo},
    };
    for (const auto& [sequence, operation] : KEYS) {
        if (!event->matches(sequence))
            continue;
        (this->*operation)();
        return true;
    }
    return false;
}

void CodeEditor::SendKeyAgain(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QKeyEvent again(QEvent::KeyPress, key, modifiers);
    QApplication::sendEvent(this, &again);
}

void CodeEditor::wheelEvent(QWheelEvent* event)
{
    if (event->modifiers() != Qt::ControlModifier
        || !Settings::codeEditorMouseWheelChangesFontSize) {
        QPlainTextEdit::wheelEvent(event);
        return;
    }
    if (event->angleDelta().y() > 0)
        Q_EMIT IncreaseFontSizeRequested();
    else if (event->angleDelta().y() < 0)
        Q_EMIT DecreaseFontSizeRequested();
}

void CodeEditor::mouseDoubleClickEvent(QMouseEvent* event)
{
    QPlainTextEdit::mouseDoubleClickEvent(event);
    if (m_language == CodeEditorLanguage::Mel && Settings::melDoubleClickIncludesDollarSign)
        setTextCursor(WithDollarSign(textCursor()));
}

void CodeEditor::ShowContextMenu(const QPoint& point)
{
    // Without a loop of its own: the editor may be closed while the menu is open.
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    FillContextMenu(*menu);
    // The point is the viewport's.
    menu->popup(viewport()->mapToGlobal(point));
}

void CodeEditor::FillContextMenu(QMenu& menu)
{
    using K = KeyBindings;
    const bool hasSelection = textCursor().hasSelection();
    AddMenuEntry(menu, tr("Cut"), K::Cut, &CodeEditor::CustomCut)->setEnabled(hasSelection);
    AddMenuEntry(menu, tr("Copy"), K::Copy, &CodeEditor::CustomCopy)->setEnabled(hasSelection);
    AddMenuEntry(menu, tr("Paste"), K::Paste, &CodeEditor::CustomPaste)->setEnabled(canPaste());
    menu.addSeparator();
    AddMenuEntry(menu, tr("Select All"), K::SelectAll, &CodeEditor::selectAll);
    menu.addSeparator();
    AddMenuEntry(menu, tr("Execute"), K::Execute, &CodeEditor::Execute);
    AddMenuEntry(menu, tr("Execute Line"), K::ExecuteLine, &CodeEditor::ExecuteLine);
    AddMenuEntry(menu, tr("Execute All"), K::ExecuteAll, &CodeEditor::ExecuteAll);
    menu.addSeparator();
    AddMenuEntry(
        menu, tr("Save Script to Shelf"), K::SaveScriptToShelf, &CodeEditor::SaveScriptToShelf);
    menu.addSeparator();
    AddMenuEntry(menu, tr("Insert Path..."), K::InsertPath, &CodeEditor::InsertPath);
    menu.addSeparator();
    if (m_language == CodeEditorLanguage::Python) {
        AddPythonMenu(menu);
        menu.addSeparator();
    }
    AddMenuEntry(menu, tr("Quick Help"), K::QuickHelp, &CodeEditor::QuickHelp);
    AddMenuEntry(
        menu, tr("Command Reference"), K::CommandReference, &CodeEditor::CommandDocumentation)
        ->setEnabled(m_language != CodeEditorLanguage::Text);
}

void CodeEditor::AddPythonMenu(QMenu& menu)
{
    using K = KeyBindings;
    QMenu& python = *menu.addMenu(QStringLiteral("Python"));
    AddMenuEntry(
        python, QStringLiteral("dir( )"), K::PythonSelectionDir, &CodeEditor::PythonDirSelection);
    AddMenuEntry(python, QStringLiteral("help( )"), K::PythonSelectionHelp,
        &CodeEditor::PythonHelpSelection);
    python.addSeparator();
    AddMenuEntry(python, QStringLiteral("Update Module State"), K::PythonUpdateModuleState,
        &CodeEditor::PythonUpdateModuleState);
    AddMenuEntry(python, QStringLiteral("Revert Module State"), K::PythonRevertModuleState,
        &CodeEditor::PythonRevertModuleState);
    python.addSeparator();
    QAction* onExecute = AddMenuEntry(python, QStringLiteral("Revert Module State on Execute"),
        K::PythonRevertModuleStateOnExecute, &CodeEditor::TogglePythonRevertModuleStateOnExecute);
    onExecute->setCheckable(true);
    onExecute->setChecked(Settings::pythonRevertModuleStateOnExecute);
}

QAction* CodeEditor::AddMenuEntry(
    QMenu& menu, const QString& label, int binding, void (CodeEditor::*slot)())
{
    QAction* action = menu.addAction(label, this, slot);
    action->setShortcut(m_keyBindings->GetShortcut(binding));
    action->setShortcutVisibleInContextMenu(true);
    return action;
}
