// The console: cut lines read as if nothing were cut, and foreign rules do no harm to any text.

#include "fuzz/Fuzz.h"
#include "fuzz/FuzzHost.h"
#include "output/LongLines.h"
#include "output/OutputTextEdit.h"
#include "output/SelectionPattern.h"
#include "output/TextTail.h"
#include "plugin/OutputFraming.h"
#include "settings/ColorSettings.h"
#include "settings/KeyBindings.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

using fuzz::Expect;

namespace {

constexpr int LONGEST_WHOLE = 20;
constexpr int PIECE = 8;
constexpr int MAXIMUM_STEPS = 30;
constexpr int REPEATED_LENGTH = 2000;

void Insert(QTextDocument& document, const QString& text)
{
    QTextCursor cursor(&document);
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(text);
}

void CutLines(fuzz::Input& input)
{
    QTextDocument cut;
    QTextDocument whole;
    LongLines lines(&cut, LONGEST_WHOLE, PIECE);
    for (int i = 0; i < MAXIMUM_STEPS && !input.AtEnd(); ++i) {
        if (input.Number(8) == 0) {
            const int limit = input.Number(10);
            lines.SetLineLimit(limit);
            whole.setMaximumBlockCount(limit);
        }
        const QString text = input.Text(REPEATED_LENGTH);
        if (lines.IsNeededFor(text))
            lines.Append(text);
        else
            Insert(cut, text);
        Insert(whole, text);
        Expect(lines.WithoutBreaks(cut.toPlainText(), 0) == whole.toPlainText(),
            QStringLiteral("reads as if nothing were cut:\n%1").arg(whole.toPlainText()));
        Expect(lines.GetLineCount() == whole.blockCount(), QStringLiteral("so many lines"));
    }
    for (QTextBlock block = cut.begin(); block.isValid(); block = block.next()) {
        Expect(block.length() - 1 <= (LongLines::Continues(block) ? PIECE : LONGEST_WHOLE),
            QStringLiteral("no block is too long"));
    }
}

void ExpectTail(const QString& text, int lines)
{
    QTextDocument document;
    document.setMaximumBlockCount(lines);
    Insert(document, text);
    QTextDocument tail;
    Insert(tail, text.mid(TailStart(text, lines)));
    Expect(document.toPlainText() == tail.toPlainText(),
        QStringLiteral("the last %1 lines of\n%2").arg(lines).arg(text));
}

void ExpectPattern(const QString& selected, const QString& text, int switches)
{
    const SelectionPattern pattern
        = MakeSelectionPattern(selected, (switches & 1) != 0, (switches & 2) != 0);
    if (pattern.text.isEmpty())
        return;
    const int found = FindPattern(pattern, text, 0);
    Expect(found < 0 || text.midRef(found, pattern.text.size()) == pattern.text,
        QStringLiteral("what is found is the pattern"));
}

/// One console for all inputs: to make one is what takes long.
OutputTextEdit& Console()
{
    static KeyBindings bindings;
    static OutputTextEdit* const console = [] {
        ColorSettings::Initialize();
        auto* made = new OutputTextEdit(&bindings);
        made->resize(400, 300);
        made->show();
        return made;
    }();
    return *console;
}

void ShowText(fuzz::Input& input)
{
    OutputTextEdit& console = Console();
    const int switches = input.Number(256);
    const ExtraSelectionProperties rule(QStringLiteral("rule"), QColor(1, 2, 3), QColor(),
        input.Text(200), (switches & 1) != 0, (switches & 2) != 0, true);
    ColorSettings::outputUserDefinedSelections = {rule};
    console.ClearAll();
    console.SetLineLimit(switches / 4);
    QTextDocument plain;
    plain.setMaximumBlockCount(switches / 4);
    OutputFraming framing;
    while (!input.AtEnd()) {
        const auto type = static_cast<MCommandMessage::MessageType>(input.Number(7));
        const QString text
            = framing.Frame(input.Text(REPEATED_LENGTH), type).value_or(OutputText()).text;
        console.AppendText(text);
        Insert(plain, text);
    }
    console.UpdateExtraSelections();
    Expect(console.GetText() == plain.toPlainText(),
        QStringLiteral("the console\n%1\nshows\n%2").arg(console.GetText(), plain.toPlainText()));
    console.UpdateExtraSelections();
    for (const QTextEdit::ExtraSelection& selection : console.extraSelections()) {
        Expect(selection.cursor.selectionEnd() < console.document()->characterCount(),
            QStringLiteral("marks lie in the text"));
    }
}

} // namespace

TE2_FUZZ_TARGET(ConsoleTexts)
{
    switch (input.Number(4)) {
    case 0: CutLines(input); break;
    case 1: {
        const int lines = 1 + input.Number(20);
        ExpectTail(input.Text(REPEATED_LENGTH), lines);
        break;
    }
    case 2: {
        const int switches = input.Number(4);
        const QString selected = input.Text();
        ExpectPattern(selected, input.Text(), switches);
        break;
    }
    default: ShowText(input);
    }
}
