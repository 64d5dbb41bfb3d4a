#include "output/OutputTextEdit.h"

#include "language/MelVariableSelection.h"
#include "output/TextTail.h"
#include "settings/ColorSettings.h"
#include "settings/KeyBindings.h"
#include "settings/Settings.h"
#include "support/TestMain.h"

#include <QRandomGenerator>
#include <QScrollBar>
#include <QSignalSpy>
#include <QtTest>

#include <functional>
#include <utility>

namespace {

/// What the console has to come out as: every piece of text by itself, at once.
class LiteralConsole
{
public:
    LiteralConsole() { m_edit.setUndoRedoEnabled(false); }

    void Append(const QString& text)
    {
        if (!m_isVisible) {
            m_pending += text;
            return;
        }
        QTextCursor cursor = m_edit.textCursor();
        cursor.movePosition(QTextCursor::End);
        cursor.insertText(text);
        m_edit.setTextCursor(cursor);
    }
    void SetVisible(bool visible)
    {
        m_isVisible = visible;
        if (visible && !m_pending.isEmpty())
            Append(std::exchange(m_pending, {}));
    }
    void Clear()
    {
        m_pending.clear();
        m_edit.clear();
    }
    QPlainTextEdit& GetEdit() { return m_edit; }

private:
    QPlainTextEdit m_edit;
    QString m_pending;
    bool m_isVisible = true;
};

QString RandomPiece(QRandomGenerator& random)
{
    static const QStringList PIECES = {QString(), "a", "b c", "\n", "\r", "\r\n", "one\ntwo\n",
        "\u2029", "x\u2028y", QString(QChar(0)), QString(QChar(0xd83c)), QString(QChar(0xdf0a)),
        QString(QChar(0xfdd0)), "# Error: z #\n", QString("1\n2\n3\n4\n5\n6\n7\n"),
        QString("many\n").repeated(40)};
    const QString piece = PIECES.at(random.bounded(PIECES.size()));
    // Numbers tell pieces that changed their places; without them, breaks meet across pieces.
    return random.bounded(3) == 0 ? piece : piece + QString::number(random.bounded(100));
}

void Select(
    QTextCursor cursor, int anchor, int position, const std::function<void(QTextCursor)>& set)
{
    cursor.setPosition(anchor);
    cursor.setPosition(position, QTextCursor::KeepAnchor);
    set(cursor);
}

} // namespace

class OutputTextEditTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void KeepsTextUntilItIsShown();
    void FindsTheLastLines_data();
    void FindsTheLastLines();
    void AnySequenceEqualsItsLiteralSteps_data();
    void AnySequenceEqualsItsLiteralSteps();
    void ASelectionSetAfterABurstStays();
    void EveryReaderSeesWhatWasAppended();
    void ClearsEverything();
    void ViewFollowsTheOutput();
    void StopsZoomingAtTheBounds_data();
    void StopsZoomingAtTheBounds();
    void MarksLinesByRules();
    void MarksWhatEqualsTheSelection_data();
    void MarksWhatEqualsTheSelection();
    void SkipsRulesThatAreNoExpression();
    void EndlessRulesHoldUpNobody();
    void MarksWhatKeysScrollIntoView();
    void AnEmptyTextMovesTheCursor();
    void DrawsNothingWithHighlightingOff();
    void DoubleClickTakesTheDollarSign_data();
    void DoubleClickTakesTheDollarSign();
    void SwallowsOtherWheelTurns();

private:
    /// The texts that extra selections cover, in their order.
    static QStringList Marked(OutputTextEdit& output);

    KeyBindings m_keyBindings;
};

void OutputTextEditTest::init()
{
    ColorSettings::Initialize();
    Settings::outputZoom = 0;
    Settings::outputSyntaxHighlightingEnabled = true;
    Settings::outputMatchedSelectionWordsOnly = false;
    Settings::outputDoubleClickIncludesDollarSign = true;
    Settings::outputMouseWheelChangesFontSize = true;
}

QStringList OutputTextEditTest::Marked(OutputTextEdit& output)
{
    output.document();
    output.UpdateExtraSelections();
    QStringList texts;
    for (const QTextEdit::ExtraSelection& selection : output.extraSelections())
        texts += selection.cursor.selectedText();
    return texts;
}

void OutputTextEditTest::KeepsTextUntilItIsShown()
{
    OutputTextEdit output(&m_keyBindings);
    output.AppendText("one\n");
    output.AppendText("two\n");
    QVERIFY(output.document()->isEmpty());
    output.show();
    QCOMPARE(output.GetText(), "one\ntwo\n");
    output.AppendText("three");
    output.hide();
    output.AppendText(" four");
    QCOMPARE(output.GetText(), "one\ntwo\nthree");
    output.show();
    QCOMPARE(output.GetText(), "one\ntwo\nthree four");
}

void OutputTextEditTest::AnySequenceEqualsItsLiteralSteps_data()
{
    Columns<uint>("seed");
    for (uint seed = 1; seed <= 20; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void OutputTextEditTest::AnySequenceEqualsItsLiteralSteps()
{
    QFETCH(uint, seed);
    QRandomGenerator random(seed);
    OutputTextEdit output(&m_keyBindings);
    LiteralConsole literal;
    QPlainTextEdit& expected = literal.GetEdit();
    output.resize(300, 100);
    output.show();
    for (int step = 0; step < 300; ++step) {
        switch (random.bounded(12)) {
        case 0: {
            const bool visible = random.bounded(3) > 0;
            output.setVisible(visible);
            literal.SetVisible(visible);
            break;
        }
        case 1: {
            const int limit = random.bounded(2) ? random.bounded(1, 30) : random.bounded(3) * 1000;
            output.SetLineLimit(limit);
            expected.setMaximumBlockCount(limit);
            break;
        }
        case 2: {
            const int end = expected.document()->characterCount();
            const int anchor = random.bounded(end);
            const int position = random.bounded(end);
            Select(output.textCursor(), anchor, position,
                [&output](const QTextCursor& cursor) { output.setTextCursor(cursor); });
            Select(expected.textCursor(), anchor, position,
                [&expected](const QTextCursor& cursor) { expected.setTextCursor(cursor); });
            break;
        }
        case 3: QCOMPARE(output.GetText(), expected.toPlainText()); break;
        case 4: QCOMPARE(output.blockCount(), expected.blockCount()); break;
        case 5: QCOMPARE(output.GetSelectedText(), expected.textCursor().selectedText()); break;
        case 6: QCOMPARE(output.textCursor().position(), expected.textCursor().position()); break;
        case 7: QCoreApplication::processEvents(); break;
        case 8:
            if (random.bounded(8) == 0) {
                output.ClearAll();
                literal.Clear();
            }
            break;
        default: {
            // Now and then so many in one turn that the console has to join them.
            const int count = random.bounded(10) == 0 ? 500 : random.bounded(1, 8);
            for (int i = 0; i < count; ++i) {
                const QString piece = RandomPiece(random);
                output.AppendText(piece);
                literal.Append(piece);
            }
        }
        }
    }
    QCOMPARE(output.GetText(), expected.toPlainText());
    QCOMPARE(output.textCursor().anchor(), expected.textCursor().anchor());
    QCOMPARE(output.textCursor().position(), expected.textCursor().position());
}

void OutputTextEditTest::FindsTheLastLines_data()
{
    Columns<QString, int, QString>("text", "lines", "tail");
    Row("empty", "", 1, "");
    Row("fewer than asked for", "a\nb", 3, "a\nb");
    Row("as many", "a\nb", 2, "a\nb");
    Row("the last", "a\nb\nc", 1, "c");
    Row("the empty one at the end counts", "a\nb\n", 2, "b\n");
    Row("carriage return and line feed are one", "a\r\nb\r\nc", 2, "b\r\nc");
    Row("the other way round they are two", "a\n\rb", 2, "\rb");
    Row("paragraph separator", "a\u2029b", 1, "b");
    Row("line separator is none", "a\u2028b", 1, "a\u2028b");
}

void OutputTextEditTest::FindsTheLastLines()
{
    QFETCH(QString, text);
    QFETCH(int, lines);
    QTEST(text.mid(TailStart(text, lines)), "tail");
}

void OutputTextEditTest::ASelectionSetAfterABurstStays()
{
    OutputTextEdit output(&m_keyBindings);
    output.show();
    output.AppendText("first\n");
    QTextCursor cursor = output.textCursor();
    cursor.setPosition(0);
    cursor.setPosition(5, QTextCursor::KeepAnchor);
    for (int i = 0; i < 5000; ++i)
        output.AppendText("more\n");
    output.setTextCursor(cursor);
    QCoreApplication::processEvents();
    QCOMPARE(output.GetSelectedText(), "first");
}

void OutputTextEditTest::EveryReaderSeesWhatWasAppended()
{
    OutputTextEdit output(&m_keyBindings);
    output.show();
    const auto burst = [&output] {
        for (int i = 0; i < 5000; ++i)
            output.AppendText(QString("%1\n").arg(i));
    };
    burst();
    QCOMPARE(output.blockCount(), 5001);
    burst();
    QCOMPARE(output.document()->blockCount(), 10001);
    burst();
    QCOMPARE(output.textCursor().blockNumber(), 15000);
    burst();
    output.selectAll();
    QVERIFY(output.GetSelectedTextForExecute().endsWith("4998\n4999\n"));
}

void OutputTextEditTest::ClearsEverything()
{
    OutputTextEdit output(&m_keyBindings);
    output.AppendText("# Error: hidden\n");
    output.ClearAll();
    output.show();
    QVERIFY(output.document()->isEmpty());
    for (int i = 0; i < 5000; ++i)
        output.AppendText("# Error: shown\n");
    QVERIFY(!Marked(output).isEmpty());
    output.AppendText("joined");
    output.ClearAll();
    QVERIFY(output.GetText().isEmpty());
    QVERIFY(output.extraSelections().isEmpty());
}

void OutputTextEditTest::ViewFollowsTheOutput()
{
    OutputTextEdit output(&m_keyBindings);
    output.resize(400, 200);
    output.show();
    for (int i = 0; i < 100; ++i)
        output.AppendText("line\n");
    QTRY_VERIFY(output.verticalScrollBar()->maximum() > 0);
    QTRY_COMPARE(output.verticalScrollBar()->value(), output.verticalScrollBar()->maximum());
    output.resize(400, 120);
    QCOMPARE(output.verticalScrollBar()->value(), output.verticalScrollBar()->maximum());
}

void OutputTextEditTest::StopsZoomingAtTheBounds_data()
{
    Columns<int, int, int>("zoom", "size", "stored");
    Row("none", 0, 9, 0);
    Row("bigger", 3, 12, 3);
    Row("at the upper bound", 15, 24, 15);
    Row("over it", 16, 24, 15);
    Row("at the lower bound", -3, 6, -3);
    Row("below it", -4, 6, -3);
}

void OutputTextEditTest::StopsZoomingAtTheBounds()
{
    QFETCH(int, zoom);
    OutputTextEdit output(&m_keyBindings);
    Settings::outputZoom = zoom;
    output.UpdateFont();
    QTEST(output.font().pointSize(), "size");
    QTEST(Settings::outputZoom, "stored");
}

void OutputTextEditTest::MarksLinesByRules()
{
    OutputTextEdit output(&m_keyBindings);
    output.resize(600, 300);
    output.show();
    output.AppendText("plain # Error: not at the start\n// Warning: // Warning: twice //\n");
    output.AppendText("# Result: 1 #\n");
    QCOMPARE(Marked(output), QStringList({"// Warning: // Warning: twice //", "# Result: 1 #"}));
    const QColor yellow("#dfe527");
    QCOMPARE(output.extraSelections()[0].format.foreground().color(), yellow);

    // A changed list of rules counts at once; an empty match must not hang.
    ExtraSelectionProperties rule = ColorSettings::outputUserDefinedSelections.first();
    rule.pattern = "t*";
    rule.wholeLine = false;
    ColorSettings::outputUserDefinedSelections = {rule};
    QCOMPARE(Marked(output), QStringList({"t", "t", "t", "t", "t", "t", "t"}));
}

void OutputTextEditTest::MarksWhatEqualsTheSelection_data()
{
    Columns<bool, int, int, QStringList>("wordsOnly", "start", "length", "marked");
    // "red fox redder red-fox $red\nred fox"
    Row("any text", false, 0, 3, QStringList{"red", "red", "red", "red", "red"});
    Row("whole words", true, 0, 3, QStringList{"red", "red", "red", "red"});
    Row("with a dollar sign", true, 23, 4, QStringList{"$red"});
    Row("two words", false, 0, 7, QStringList{"red fox", "red fox"});
    Row("two words are no word", true, 0, 7, QStringList());
    Row("hyphen", true, 15, 7, QStringList{"red-fox"});
    Row("two lines", false, 24, 7, QStringList());
    Row("part of a dollar word", true, 24, 3, QStringList{"red", "red", "red", "red"});
    Row("a blank", false, 3, 1, QStringList());
}

void OutputTextEditTest::MarksWhatEqualsTheSelection()
{
    QFETCH(bool, wordsOnly);
    QFETCH(int, start);
    QFETCH(int, length);
    Settings::outputMatchedSelectionWordsOnly = wordsOnly;
    OutputTextEdit output(&m_keyBindings);
    output.resize(600, 300);
    output.show();
    output.AppendText("red fox redder red-fox $red\nred fox");
    QTextCursor cursor = output.textCursor();
    cursor.setPosition(start);
    cursor.setPosition(start + length, QTextCursor::KeepAnchor);
    output.setTextCursor(cursor);
    QTEST(Marked(output), "marked");
}

/// Tried to the end, the first line alone would take years.
void OutputTextEditTest::EndlessRulesHoldUpNobody()
{
    const QString endless(60, 'a');
    ColorSettings::outputUserDefinedSelections
        = {{"endless", Qt::red, QColor(), "^(a+)+$", true, true, true},
            {"honest", Qt::blue, QColor(), "!", false, false, true}};
    OutputTextEdit output(&m_keyBindings);
    output.resize(600, 300);
    output.show();
    output.AppendText(endless + "!\naaa\n");
    QCOMPARE(Marked(output), QStringList({"aaa", "!"}));
    output.AppendText((endless + "\n").repeated(3));
    QCOMPARE(Marked(output).size(), 5);
}

void OutputTextEditTest::SkipsRulesThatAreNoExpression()
{
    ExtraSelectionProperties broken = ColorSettings::outputUserDefinedSelections.first();
    broken.pattern = "(";
    broken.regularExpression = true;
    ExtraSelectionProperties fixed = broken;
    fixed.regularExpression = false;
    fixed.wholeLine = false;
    ColorSettings::outputUserDefinedSelections = {broken, fixed};
    OutputTextEdit output(&m_keyBindings);
    output.show();
    static int warnings;
    warnings = 0;
    // The toolkit warns about each use of an expression that is none.
    const QtMessageHandler before = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString&) { ++warnings; });
    output.AppendText("a(b(\u2028(\n");
    const QStringList marked = Marked(output);
    qInstallMessageHandler(before);
    QCOMPARE(marked, QStringList({"(", "(", "("}));
    QCOMPARE(warnings, 0);
}

void OutputTextEditTest::MarksWhatKeysScrollIntoView()
{
    OutputTextEdit output(&m_keyBindings);
    output.resize(400, 150);
    output.show();
    output.AppendText(
        "# Error: far up #\n" + QString("a plain line of some length\n").repeated(500));
    QVERIFY(Marked(output).isEmpty());
    // The scroll bar says nothing about this.
    QTest::keyClick(&output, Qt::Key_Home, Qt::ControlModifier);
    QCOMPARE(output.verticalScrollBar()->value(), 0);
    const QPlainTextEdit& shown = output;
    QTRY_COMPARE(shown.extraSelections().size(), 1);
}

void OutputTextEditTest::AnEmptyTextMovesTheCursor()
{
    OutputTextEdit output(&m_keyBindings);
    output.show();
    output.AppendText("text");
    output.selectAll();
    output.AppendText("");
    QCOMPARE(output.GetSelectedText(), QString());
    QVERIFY(output.textCursor().atEnd());
}

void OutputTextEditTest::DrawsNothingWithHighlightingOff()
{
    OutputTextEdit output(&m_keyBindings);
    output.show();
    output.AppendText("# Error: a #\n");
    QCOMPARE(Marked(output).size(), 1);
    Settings::outputSyntaxHighlightingEnabled = false;
    QVERIFY(Marked(output).isEmpty());
}

void OutputTextEditTest::DoubleClickTakesTheDollarSign_data()
{
    // "text": "<" and ">" around what the toolkit selects
    Columns<QString, QString>("text", "selected");
    Row("a name behind its sign", "$<name> = 1", "$name");
    Row("without a sign", "<name>", "name");
    Row("B is no word character here", "B$<name>", "$name");
    Row("A is one", "A$<name>", "name");
    Row("Z is one", "Z$<name>", "name");
    Row("so is a small letter", "b$<name>", "name");
    Row("not a word", "$<a b>", "a b");
    Row("the sign itself", "($<$>)", "$");
    Row("the sign of a name", "(<$>name_1)", "$name_1");
    Row("the sign after a word", "a<$>name", "$");
    Row("at the very end", "x <$>", "$");
}

void OutputTextEditTest::DoubleClickTakesTheDollarSign()
{
    QFETCH(QString, text);
    QTextDocument document(QString(text).remove('<').remove('>'));
    QTextCursor cursor(&document);
    cursor.setPosition(text.indexOf('<'));
    cursor.setPosition(text.indexOf('>') - 1, QTextCursor::KeepAnchor);
    QTEST(WithDollarSign(cursor).selectedText(), "selected");

    // The same by hand, where the toolkit's own selection is what the row says.
    OutputTextEdit output(&m_keyBindings);
    output.resize(600, 200);
    output.show();
    output.AppendText(document.toPlainText());
    QTextCursor inside = output.textCursor();
    inside.setPosition(text.indexOf('<'));
    QTextCursor word = inside;
    word.select(QTextCursor::WordUnderCursor);
    if (word.selectedText() != cursor.selectedText())
        return;
    const QPoint place = output.cursorRect(inside).center() + QPoint(3, 0);
    QTest::mouseDClick(output.viewport(), Qt::LeftButton, {}, place);
    QTEST(output.GetSelectedText(), "selected");
}

void OutputTextEditTest::SwallowsOtherWheelTurns()
{
    OutputTextEdit output(&m_keyBindings);
    output.resize(300, 100);
    output.show();
    output.AppendText(QString("line\n").repeated(100));
    output.ScrollToEnd();
    QSignalSpy bigger(&output, &OutputTextEdit::IncreaseFontSizeRequested);
    const auto turn = [&output](Qt::KeyboardModifiers modifiers) {
        QWheelEvent event({5, 5}, output.mapToGlobal({5, 5}), {}, {0, 120}, Qt::NoButton, modifiers,
            Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(output.viewport(), &event);
    };
    const int bottom = output.verticalScrollBar()->value();
    turn(Qt::ControlModifier);
    turn(Qt::ControlModifier | Qt::ShiftModifier);
    Settings::outputMouseWheelChangesFontSize = false;
    turn(Qt::ControlModifier);
    QCOMPARE(bigger.count(), 1);
    QCOMPARE(output.verticalScrollBar()->value(), bottom);
    turn(Qt::NoModifier);
    QVERIFY(output.verticalScrollBar()->value() < bottom);
}

TE2_TEST(OutputTextEditTest)
#include "OutputTextEditTest.moc"
