// When the code editor asks its completer, and what becomes of the answer.

#include "editor/CodeEditor.h"
#include "editor/CodeEditorBlockData.h"
#include "language/MelAutoCompleter.h"
#include "language/PythonAutoCompleter.h"
#include "settings/Settings.h"

#include <QKeyEvent>
#include <QTextBlock>
#include <QTimer>

#include <utility>

namespace {

bool IsLetter(QChar character)
{
    return (character >= QLatin1Char('a') && character <= QLatin1Char('z'))
        || (character >= QLatin1Char('A') && character <= QLatin1Char('Z'))
        || character == QLatin1Char('_');
}

/// The character that a key types; null for every other key.
QChar TypedCharacter(const QKeyEvent& event)
{
    const bool isModified
        = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return !isModified && event.text().size() == 1 ? event.text().at(0) : QChar();
}

bool EndsWord(QChar character)
{
    return character == QLatin1Char('.') || character == QLatin1Char(' ')
        || character == QLatin1Char('\t') || character == QChar::ParagraphSeparator;
}

} // namespace

/// Made when first needed, as most editors are only read.
void CodeEditor::SetAutoCompleterFromLanguage()
{
    delete std::exchange(m_autoCompleter, nullptr);
}

AutoCompleter* CodeEditor::GetAutoCompleter()
{
    if (m_autoCompleter || m_language == CodeEditorLanguage::Text)
        return m_autoCompleter;
    if (m_language == CodeEditorLanguage::Mel) {
        m_autoCompleter = new MelAutoCompleter(this);
    } else {
        auto* const completer = new PythonAutoCompleter(this);
        connect(completer, &PythonAutoCompleter::NamesArrived, this,
            &CodeEditor::OnCompletionNamesArrived);
        m_autoCompleter = completer;
    }
    connect(m_autoCompleter, &AutoCompleter::Accepted, this, &CodeEditor::CompleteCode);
    connect(m_autoCompleter, &AutoCompleter::SelectionRested, this,
        &CodeEditor::OnCompletionSelectionRested);
    return m_autoCompleter;
}

bool CodeEditor::IsAutoCompleterVisible() const
{
    return m_autoCompleter && m_autoCompleter->isVisible();
}

void CodeEditor::HideAutoCompleter()
{
    if (m_autoCompleter)
        m_autoCompleter->hide();
}

bool CodeEditor::IsCompleteOnLettersEnabled() const
{
    switch (m_language) {
    case CodeEditorLanguage::Mel: return Settings::melCompleteOnLetters;
    case CodeEditorLanguage::Python: return Settings::pythonCompleteOnLetters;
    case CodeEditorLanguage::Text: return false;
    }
    return false;
}

bool CodeEditor::IsCompleteOnUserEnabled() const
{
    return m_language == CodeEditorLanguage::Mel ? Settings::melCompleteOnUser
                                                 : Settings::pythonCompleteOnUser;
}

/// Whether what stands left of the cursor is code. Python text within strings is never completed;
/// in MEL, where strings hold commands, on request.
bool CodeEditor::IsCompletionPlace(bool isExplicit) const
{
    if (isExplicit && m_language == CodeEditorLanguage::Mel)
        return true;
    const QTextCursor cursor = textCursor();
    const int column = cursor.positionInBlock() - 1;
    const CodeEditorBlockData* lineData = GetBlockData(cursor);
    return column < 0 || !lineData
        || !(lineData->IsIgnoredPosition(column) || lineData->IsSingleLineCommentPosition(column)
            || lineData->IsBlockCommentPosition(column));
}

void CodeEditor::UpdateAutoCompleter(bool isExplicit)
{
    AutoCompleter* completer = isReadOnly() ? nullptr : GetAutoCompleter();
    if (!completer)
        return;
    const QTextCursor cursor = textCursor();
    m_completionPosition = cursor.position();
    if (IsCompletionPlace(isExplicit) && completer->ValidateAndSetPrefix(cursor))
        completer->Update(cursor, cursorRect(), isExplicit);
    else
        completer->hide();
}

/// A list that comes by itself waits until the keys that were pressed already are in the text.
void CodeEditor::UpdateAutoCompleterLater()
{
    if (!m_completionTimer) {
        m_completionTimer = new QTimer(this);
        m_completionTimer->setSingleShot(true);
        m_completionTimer->setInterval(0);
        connect(m_completionTimer, &QTimer::timeout, this, &CodeEditor::OnCompletionDue);
    }
    m_completionPosition = textCursor().position();
    m_completionTimer->start();
}

void CodeEditor::OnCompletionDue()
{
    const QTextCursor cursor = textCursor();
    if (hasFocus() && !cursor.hasSelection() && cursor.position() == m_completionPosition)
        UpdateAutoCompleter(false);
}

void CodeEditor::OnCompletionNamesArrived(bool isExplicit)
{
    if (hasFocus() && !textCursor().hasSelection())
        UpdateAutoCompleter(isExplicit);
}

void CodeEditor::UpdateCompleterBeforeKey(const QKeyEvent& event)
{
    if (!IsAutoCompleterVisible())
        return;
    const bool leavesWord = event.key() == Qt::Key_Left || event.key() == Qt::Key_Right;
    const bool joinsWords
        = event.key() == Qt::Key_Backspace && EndsWord(CharacterAt(textCursor().position() - 1));
    if (leavesWord || joinsWords)
        m_autoCompleter->hide();
}

void CodeEditor::UpdateCompleterAfterKey(const QKeyEvent& event)
{
    const QChar typed = TypedCharacter(event);
    const bool isPython = m_language == CodeEditorLanguage::Python;
    if (isPython && typed == QLatin1Char('.')) {
        HideAutoCompleter();
        if (Settings::pythonCompleteOnDot)
            UpdateAutoCompleterLater();
        return;
    }
    if (IsAutoCompleterVisible()) {
        if (m_completionPosition != textCursor().position())
            UpdateAutoCompleter(false);
        return;
    }
    const bool startsFlag = m_language == CodeEditorLanguage::Mel && typed == QLatin1Char('-');
    if ((IsLetter(typed) || startsFlag) && IsCompleteOnLettersEnabled())
        UpdateAutoCompleterLater();
}

/// The completion key writes no blank, whatever the language.
bool CodeEditor::HandleCompletionKey(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Space || event->modifiers() != Qt::ControlModifier)
        return false;
    if (IsCompleteOnLettersEnabled() && IsCompleteOnUserEnabled())
        UpdateAutoCompleter(true);
    return true;
}

void CodeEditor::CompleteCode(const QString& text, int prefixLength)
{
    QTextCursor cursor = textCursor();
    const int end = cursor.position();
    cursor.setPosition(qMax(cursor.block().position(), end - prefixLength));
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    if (cursor.selectedText() != text)
        cursor.insertText(text);
    cursor.setPosition(cursor.selectionEnd());
    setTextCursor(cursor);
    ensureCursorVisible();
}

void CodeEditor::OnCompletionSelectionRested(const QString& name)
{
    const bool wanted = m_language == CodeEditorLanguage::Mel
        ? Settings::melAutoCompleteToQuickHelp
        : Settings::pythonAutoCompleteToQuickHelp;
    if (wanted)
        Q_EMIT QuickHelpChanged(name, false);
}
