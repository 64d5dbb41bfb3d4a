// A document that is edited looks as one that was highlighted in one go.

#include "editor/CodeEditorBlockData.h"
#include "fuzz/Fuzz.h"
#include "fuzz/FuzzHost.h"
#include "language/MelHighlighter.h"
#include "language/PythonHighlighter.h"
#include "settings/ColorSettings.h"

#include <QPlainTextDocumentLayout>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

using fuzz::Expect;

namespace {

constexpr int MAXIMUM_EDITS = 20;
constexpr int REPEATED_LENGTH = 4000;

/// A document with the layout that editors use, and its highlighter.
struct Script
{
    explicit Script(int language)
    {
        document.setDocumentLayout(new QPlainTextDocumentLayout(&document));
        highlighter = language == 0 ? new PythonHighlighter(&document)
            : language == 1         ? static_cast<Highlighter*>(new MelHighlighter(&document))
                                    : new Highlighter(&document);
    }

    QTextDocument document;
    Highlighter* highlighter = nullptr;
};

QString Braces(const CodeEditorBlockData& data, QChar kind)
{
    QString text;
    for (const MatchingCharInfo& brace : data.GetBraces(kind))
        text += QStringLiteral("%1%2%3").arg(kind).arg(brace.position).arg(brace.direction);
    return text;
}

/// All that a line is known by: its state, its look, its data.
QString Described(Script& script, const QTextBlock& block)
{
    const CodeEditorBlockData* const data = script.highlighter->GetBlockData(block);
    Expect(data, QStringLiteral("every line has data"));
    QString text = QStringLiteral("%1|%2|%3|%4|%5|")
                       .arg(block.userState())
                       .arg(data->GetIndent())
                       .arg(data->GetSmartIndentCount())
                       .arg(data->GetNonCommentLength())
                       .arg(data->IsEmpty());
    for (const char kind : {'(', '[', '{'})
        text += Braces(*data, QLatin1Char(kind));
    for (int i = 0; i < block.length(); ++i) {
        text += QString::number(4 * data->IsIgnoredPosition(i)
            + 2 * data->IsSingleLineCommentPosition(i) + data->IsBlockCommentPosition(i));
    }
    for (const QTextLayout::FormatRange& range : block.layout()->formats()) {
        Expect(range.start >= 0 && range.start + range.length < block.length(),
            QStringLiteral("a look lies within its line"));
        text += QStringLiteral("|%1+%2 %3")
                    .arg(range.start)
                    .arg(range.length)
                    .arg(range.format.foreground().color().name());
    }
    return text;
}

void Edit(fuzz::Input& input, QTextDocument& document)
{
    QTextCursor cursor(&document);
    const int length = document.characterCount() - 1;
    cursor.beginEditBlock();
    do {
        cursor.setPosition(input.Place(document.characterCount() - 1));
        cursor.setPosition(
            qMin(document.characterCount() - 1, cursor.position() + input.Number(60)),
            QTextCursor::KeepAnchor);
        cursor.insertText(input.Text(REPEATED_LENGTH));
    } while (input.Flag() && document.characterCount() < 2 * length);
    cursor.endEditBlock();
}

void Change(fuzz::Input& input, Script& script)
{
    switch (input.Number(8)) {
    case 0: script.document.undo(); break;
    case 1: script.document.redo(); break;
    case 2: {
        const int first = input.Place(script.document.blockCount() - 1);
        script.highlighter->EnsureHighlighted(first, first + 5);
        break;
    }
    default: Edit(input, script.document);
    }
}

void ExpectSame(Script& edited, Script& fresh)
{
    const int last = edited.document.blockCount() - 1;
    edited.highlighter->EnsureHighlighted(0, last);
    fresh.highlighter->EnsureHighlighted(0, last);
    QTextBlock other = fresh.document.begin();
    for (QTextBlock block = edited.document.begin(); block.isValid(); block = block.next()) {
        const QString shown = Described(edited, block);
        const QString expected = Described(fresh, other);
        Expect(shown == expected, [&] {
            return QStringLiteral("line %1 \"%2\"\nedited: %3\nfresh:  %4")
                .arg(block.blockNumber())
                .arg(block.text(), shown, expected);
        });
        other = other.next();
    }
}

} // namespace

TE2_FUZZ_TARGET(HighlighterEdits)
{
    fuzz::FuzzHost::Get();
    if (ColorSettings::codeEditorHighlightOrderedKeys.isEmpty())
        ColorSettings::Initialize();
    const int language = input.Number(3);
    Script edited(language);
    edited.document.setPlainText(input.Text(REPEATED_LENGTH));
    for (int i = 0; i < MAXIMUM_EDITS && !input.AtEnd(); ++i)
        Change(input, edited);
    Script fresh(language);
    fresh.document.setPlainText(edited.document.toPlainText());
    // What cannot stand in a text to be set may have been typed.
    if (fresh.document.toPlainText() == edited.document.toPlainText()
        && fresh.document.blockCount() == edited.document.blockCount())
        ExpectSame(edited, fresh);
}
