// Typing aids and the clipboard: the rules stand in editing/, here they meet the cursor.

#include "editing/BracketEdits.h"
#include "editing/EditStep.h"
#include "editing/EditingOptions.h"
#include "editing/FlagText.h"
#include "editing/IndentEdits.h"
#include "editing/LineEdits.h"
#include "editing/NewLineEdits.h"
#include "editor/CodeEditor.h"
#include "settings/Settings.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>

namespace {

/// Marks a copied line, so that pasting puts it above the cursor's.
const QLatin1String LINE_FORMAT("text/tarnwickEditorLine");

} // namespace

EditingOptions CodeEditor::GetEditingOptions() const
{
    EditingOptions options;
    options.language = m_language;
    options.tabSize = m_tabSize;
    options.insertSpaces = m_insertSpaces;
    options.autoIndent = IsAutoIndentEnabled();
    options.smartIndent = IsSmartIndentEnabled();
    options.indentToParentheses = IsIndentToParenthesesEnabled();
    options.closeBrackets = IsInsertClosingBraceEnabled();
    options.closeQuotes = IsInsertClosingQuoteEnabled();
    options.backspaceToTabStop = IsBackspaceToTabStopEnabled();
    options.overwrite = overwriteMode();
    return options;
}

BlockDataSource CodeEditor::GetBlockDataSource() const
{
    return [this](const QTextBlock& block) { return GetBlockData(block); };
}

void CodeEditor::EditAtCursor(const std::function<void(QTextCursor&)>& operation)
{
    if (isReadOnly())
        return;
    QTextCursor cursor = textCursor();
    operation(cursor);
    setTextCursor(cursor);
}

void CodeEditor::InsertNewLine()
{
    EditAtCursor([this](QTextCursor& cursor) {
        ::InsertNewLine(cursor, GetEditingOptions(), GetBlockDataSource());
    });
}

void CodeEditor::UpdateIndentationOnNewLine(QTextCursor& cursor, const QTextBlock& previousBlock,
    const CodeEditorBlockData* previousData, int column, QChar previous, QChar next) const
{
    const NewLinePlace place{previousBlock, previousData, column, previous, next};
    ::UpdateIndentationOnNewLine(
        cursor, IndentOfNewLine(place, GetEditingOptions(), GetBlockDataSource()));
}

QChar CodeEditor::PrevNonWhitespace(const QString& text, int index)
{
    return ::PrevNonWhitespace(text, index);
}

QChar CodeEditor::NextNonWhitespace(const QString& text, int index)
{
    return ::NextNonWhitespace(text, index);
}

bool CodeEditor::GetOpeningBraceIndent(
    QChar brace, int position, QString& indent, const QTextBlock& block) const
{
    const CodeEditorBlockData* lineData = GetBlockData(block);
    return lineData
        && FindOpeningBraceIndent(brace, position, block, *lineData, GetBlockDataSource(), indent);
}

void CodeEditor::InsertOpeningBrace(QChar brace)
{
    EditAtCursor([&](QTextCursor& cursor) {
        ::InsertOpeningBrace(cursor, brace, GetEditingOptions(), GetBlockDataSource());
    });
}

void CodeEditor::InsertClosingBrace(QChar brace)
{
    EditAtCursor([&](QTextCursor& cursor) {
        ::InsertClosingBrace(cursor, brace, GetEditingOptions(), GetBlockDataSource());
    });
}

void CodeEditor::InsertQuote(QChar quote)
{
    EditAtCursor([&](QTextCursor& cursor) {
        ::InsertQuote(cursor, quote, GetEditingOptions(), GetBlockDataSource());
    });
}

void CodeEditor::WrapSelection(QTextCursor& cursor, QChar open, QChar close)
{
    ::WrapSelection(cursor, open, close);
}

bool CodeEditor::InsertBackspace()
{
    bool handled = false;
    EditAtCursor([&](QTextCursor& cursor) {
        handled = ::InsertBackspace(cursor, GetEditingOptions(), GetBlockDataSource());
    });
    return handled;
}

void CodeEditor::OnHomeKeyPressed(bool shift, bool ctrl)
{
    QTextCursor cursor = textCursor();
    GoHome(cursor, shift, ctrl);
    setTextCursor(cursor);
}

void CodeEditor::CustomCopy()
{
    if (textCursor().hasSelection()) {
        copy();
        return;
    }
    auto* mime = new QMimeData;
    mime->setText(GetCurrentLineText());
    mime->setData(LINE_FORMAT, QByteArrayLiteral("1"));
    QApplication::clipboard()->setMimeData(mime);
}

void CodeEditor::CustomCut()
{
    if (textCursor().hasSelection()) {
        cut();
    } else if (!isReadOnly()) {
        CustomCopy();
        DeleteLines();
    }
}

void CodeEditor::CustomPaste()
{
    const QMimeData* mime = QApplication::clipboard()->mimeData();
    if (textCursor().hasSelection() || !mime || mime->data(LINE_FORMAT).isEmpty()) {
        paste();
        return;
    }
    const QString line = mime->text();
    EditAtCursor([&line](QTextCursor& cursor) { InsertLineAbove(cursor, line); });
}

void CodeEditor::InsertFlag(const QString& longName)
{
    EditAtCursor([this, &longName](QTextCursor& cursor) {
        cursor.setPosition(cursor.selectionEnd());
        const QString before = GetText().left(cursor.position());
        // A step of its own, not a part of what was typed before it.
        cursor.beginEditBlock();
        cursor.insertText(m_language == CodeEditorLanguage::Python
                ? FlagText::InPython(longName, before)
                : FlagText::InMel(longName, before));
        cursor.endEditBlock();
    });
}

void CodeEditor::insertFromMimeData(const QMimeData* source)
{
    const QByteArray flag = source->data(QLatin1String(FlagText::MIME_FORMAT));
    if (flag.isEmpty()) {
        QPlainTextEdit::insertFromMimeData(source);
        return;
    }
    InsertFlag(QString::fromUtf8(flag));
    setFocus(Qt::OtherFocusReason);
}

void CodeEditor::ToggleOverwriteMode()
{
    Settings::overwriteEnabled = !Settings::overwriteEnabled;
    setOverwriteMode(Settings::overwriteEnabled);
    Q_EMIT OverwriteModeChanged();
}

void CodeEditor::undo()
{
    StepThroughHistory(&QPlainTextEdit::undo);
}

void CodeEditor::redo()
{
    StepThroughHistory(&QPlainTextEdit::redo);
}

void CodeEditor::StepThroughHistory(void (QPlainTextEdit::*operation)())
{
    if (isReadOnly())
        return;
    EditStep::TakeRecalledPlace(*document()); // of a step that somebody else undid
    (this->*operation)();
    const auto place = EditStep::TakeRecalledPlace(*document());
    if (!place)
        return;
    QTextCursor cursor = textCursor();
    place->ApplyTo(cursor);
    setTextCursor(cursor);
}
