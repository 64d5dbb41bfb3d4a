// Commands that change lines: one step to undo, which gives back the text, and a cursor in the
// text.

#include "editing/BracketEdits.h"
#include "editing/CommentEdits.h"
#include "editing/EditStep.h"
#include "editing/EditingOptions.h"
#include "editing/IndentEdits.h"
#include "editing/LineEdits.h"
#include "editing/NewLineEdits.h"
#include "fuzz/Fuzz.h"
#include "fuzz/FuzzHost.h"
#include "language/MelHighlighter.h"
#include "language/MelVariableSelection.h"
#include "language/PythonHighlighter.h"
#include "settings/ColorSettings.h"

#include <QPlainTextDocumentLayout>
#include <QTextCursor>
#include <QTextDocument>

#include <memory>

using fuzz::Expect;

namespace {

constexpr int MAXIMUM_COMMANDS = 20;
constexpr int REPEATED_LENGTH = 3000;

EditingOptions Options(fuzz::Input& input)
{
    EditingOptions options;
    options.language = static_cast<CodeEditorLanguage>(input.Number(3));
    options.tabSize = 1 + input.Number(9);
    const int switches = input.Number(256);
    options.insertSpaces = switches & 1;
    options.autoIndent = switches & 2;
    options.smartIndent = switches & 4;
    options.indentToParentheses = switches & 8;
    options.closeBrackets = switches & 16;
    options.closeQuotes = switches & 32;
    options.backspaceToTabStop = switches & 64;
    options.overwrite = switches & 128;
    return options;
}

std::unique_ptr<Highlighter> MakeHighlighter(CodeEditorLanguage language, QTextDocument& document)
{
    if (language == CodeEditorLanguage::Mel)
        return std::make_unique<MelHighlighter>(&document);
    if (language == CodeEditorLanguage::Python)
        return std::make_unique<PythonHighlighter>(&document);
    return std::make_unique<Highlighter>(&document);
}

/// Some changes would be told by what they changed: they have to fit the text before.
void ExpectFitting(const TextChanges& changes, int length)
{
    int end = 0;
    for (const TextChange& change : changes) {
        Expect(end <= change.position && change.removed >= 0
                && change.position + change.removed <= length,
            QStringLiteral("changes are in order and in the text"));
        end = change.position + change.removed;
    }
}

void Run(fuzz::Input& input, QTextCursor& cursor, const EditingOptions& options,
    const BlockDataSource& source)
{
    static const QChar BRACES[] = {QLatin1Char('('), QLatin1Char('['), QLatin1Char('{')};
    static const QChar CLOSING[] = {QLatin1Char(')'), QLatin1Char(']'), QLatin1Char('}')};
    static const QChar QUOTES[] = {QLatin1Char('"'), QLatin1Char('\''), QLatin1Char('`')};
    const int length = cursor.document()->characterCount() - 1;
    switch (input.Number(18)) {
    case 0: ExpectFitting(IncreaseIndent(cursor, input.Flag(), options), length); break;
    case 1: ExpectFitting(DecreaseIndent(cursor, options), length); break;
    case 2: ExpectFitting(ConvertTabsToSpaces(cursor, options), length); break;
    case 3: GoHome(cursor, input.Flag(), input.Flag()); break;
    case 4: ExpectFitting(MoveLine(cursor, input.Flag()), length); break;
    case 5: CopyLine(cursor, input.Flag()); break;
    case 6: DeleteLines(cursor); break;
    case 7: InsertLineAbove(cursor, input.Text(REPEATED_LENGTH)); break;
    case 8: EnsureNewLineAtEof(cursor); break;
    case 9: TrimTrailingWhiteSpaces(cursor, input.Flag()); break;
    case 10: InsertNewLine(cursor, options, source); break;
    case 11: WrapSelection(cursor, BRACES[input.Number(3)], CLOSING[input.Number(3)]); break;
    case 12: InsertOpeningBrace(cursor, BRACES[input.Number(3)], options, source); break;
    case 13: InsertClosingBrace(cursor, CLOSING[input.Number(3)], options, source); break;
    case 14: InsertQuote(cursor, QUOTES[input.Number(3)], options, source); break;
    case 15: InsertBackspace(cursor, options, source); break;
    case 16: ToggleComment(cursor, options); break;
    default: ToggleBlockComment(cursor, options, source);
    }
}

void ExpectUndone(QTextDocument& document, const QString& before, const CursorPlace& place)
{
    const QString after = document.toPlainText();
    if (after == before && !document.isUndoAvailable())
        return;
    document.undo();
    Expect(document.toPlainText() == before,
        QStringLiteral("undoing gives back\n%1\nbut gave\n%2").arg(before, document.toPlainText()));
    const auto recalled = EditStep::TakeRecalledPlace(document);
    Expect(!recalled || (recalled->anchor == place.anchor && recalled->position == place.position),
        QStringLiteral("the cursor is back where it was"));
    document.redo();
    Expect(document.toPlainText() == after, QStringLiteral("and doing it again"));
}

} // namespace

TE2_FUZZ_TARGET(LineCommands)
{
    fuzz::FuzzHost::Get();
    if (ColorSettings::codeEditorHighlightOrderedKeys.isEmpty())
        ColorSettings::Initialize();
    const EditingOptions options = Options(input);
    QTextDocument document;
    document.setDocumentLayout(new QPlainTextDocumentLayout(&document));
    const std::unique_ptr<Highlighter> highlighter = MakeHighlighter(options.language, document);
    document.setPlainText(input.Text(REPEATED_LENGTH));
    const BlockDataSource source
        = [&highlighter](const QTextBlock& block) { return highlighter->GetBlockData(block); };
    QTextCursor cursor(&document);
    for (int i = 0; i < MAXIMUM_COMMANDS && !input.AtEnd(); ++i) {
        const int last = document.characterCount() - 1;
        CursorPlace{input.Place(last), input.Place(last)}.ApplyTo(cursor);
        const CursorPlace place = CursorPlace::Of(cursor);
        const QString before = document.toPlainText();
        document.clearUndoRedoStacks();
        Run(input, cursor, options, source);
        Expect(cursor.position() >= 0 && cursor.position() < document.characterCount()
                && cursor.anchor() >= 0 && cursor.anchor() < document.characterCount(),
            QStringLiteral("the cursor is in the text"));
        WithDollarSign(cursor);
        ExpectUndone(document, before, place);
    }
}
