#include "editor/CodeEditor.h"

#include "editor/CodeEditorLineNumbers.h"
#include "settings/KeyBindings.h"
#include "settings/Settings.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QSaveFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QtTest>

namespace {

using Language = CodeEditorLanguage;

/// Puts the text into the editor; "|" marks the cursor, "<" the anchor (which may stand on either
/// side of it).
void SetMarkedText(CodeEditor& editor, QString text)
{
    const int anchor = QString(text).remove('|').indexOf('<');
    const int position = QString(text).remove('<').indexOf('|');
    text.remove('<').remove('|');
    editor.SetText(text);
    editor.SetCursorSelection(anchor < 0 ? position : anchor, position);
}

/// The reverse of SetMarkedText.
QString MarkedText(const CodeEditor& editor)
{
    QString text = editor.GetText();
    const QTextCursor cursor = editor.textCursor();
    const int shift = cursor.anchor() > cursor.position() ? 1 : 0;
    text.insert(cursor.position(), '|');
    if (cursor.hasSelection())
        text.insert(cursor.anchor() + shift, '<');
    return text;
}

} // namespace

class CodeEditorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void ExecutesWhatIsSelectedWithLineFeeds_data();
    void ExecutesWhatIsSelectedWithLineFeeds();
    void CountsColumnsWithTabsExpanded_data();
    void CountsColumnsWithTabsExpanded();
    void GoesOnlyToLinesThatExist_data();
    void GoesOnlyToLinesThatExist();
    void AnswersOneChangePerPause();
    void GivesAnEmptyTextThatIsNotNull();
    void QuotesItsTextForPython_data();
    void QuotesItsTextForPython();
    void InsertsAtTheFarEndOfTheSelection_data();
    void InsertsAtTheFarEndOfTheSelection();
    void FourthColumnsWhenTheTabSizeIsNone();
    void WrapsALongTextAtTheWidthItHasNow();
    void AsksTheOptionsOfItsLanguage();
    void PressesKeys_data();
    void PressesKeys();
    void CopiesWholeLines();
    void UndoesTypingAidsByKey();
    void ChangesNothingThatIsReadOnly();
    void KeepsMessagesWithTheirLines();
    void LeavesExecuteKeysToTheWindow_data();
    void LeavesExecuteKeysToTheWindow();
    void ZoomsByTheWheelWithCtrlAlone();
    void KnowsItsQuotes();
    void ClicksInTheMarginSelectLines_data();
    void ClicksInTheMarginSelectLines();
    void TellsOfMessagesOnlyWhenTheyChange();
    void HighlightingMovesNoMessages();
    void ShowsItsMenuInOrder_data();
    void ShowsItsMenuInOrder();
    void TheMarginHasTheMenuOfTheText();
    void NamesItselfWithItsState();
    void KeepsWatchingAReplacedFile();
    void LeavesDraggedFilesAlone();
    void ADroppedFlagIsWrittenAsTheLanguageDoes();
    void AsksForHelpOnTheSelection();

private:
    KeyBindings m_keyBindings;
};

void CodeEditorTest::cleanup()
{
    Settings::tabsSizeDefault = 4;
    Settings::overwriteEnabled = false;
    Settings::codeEditorMouseWheelChangesFontSize = true;
}

void CodeEditorTest::ExecutesWhatIsSelectedWithLineFeeds_data()
{
    Columns<QString, QString, QString>("marked", "selected", "line");
    Row("nothing selected", "  a = 1  |\nb", "", "a = 1");
    Row("three lines", "x\n<  a\n\tb\n c |\n", "  a\n\tb\n c ", "c");
    Row("backwards, blanks kept", "|\t a <b", "\t a ", "a b");
    Row("a blank line", "a\n \t |\nb", "", "");
}

void CodeEditorTest::ExecutesWhatIsSelectedWithLineFeeds()
{
    QFETCH(QString, marked);
    CodeEditor editor({}, &m_keyBindings);
    SetMarkedText(editor, marked);
    QTEST(editor.GetSelectedTextForExecute(), "selected");
    QTEST(editor.GetCurrentLineForExecute(), "line");
}

void CodeEditorTest::CountsColumnsWithTabsExpanded_data()
{
    Columns<QString, int, int, int>("marked", "line", "column", "length");
    Row("empty document", "|", 1, 1, 0);
    Row("behind a tab and a letter", "\ta|b", 1, 6, 0);
    Row("tab after one letter", "a\t|", 1, 5, 0);
    Row("tab on a stop takes a whole one", "abcd\t|", 1, 9, 0);
    Row("a selection over a line end", "ab<c\nde|", 2, 3, 4);
    Row("selected backwards", "a|bc<", 1, 2, 2);
}

void CodeEditorTest::CountsColumnsWithTabsExpanded()
{
    QFETCH(QString, marked);
    CodeEditor editor({}, &m_keyBindings);
    SetMarkedText(editor, marked);
    int line = 0;
    int column = 0;
    int length = 0;
    editor.GetCursorStatus(line, column, length);
    QTEST(line, "line");
    QTEST(column, "column");
    QTEST(length, "length");
}

void CodeEditorTest::GoesOnlyToLinesThatExist_data()
{
    Columns<int, QString>("line", "expected");
    Row("before the first", 0, "a\nb|b\nc");
    Row("far before", -7, "a\nb|b\nc");
    Row("first", 1, "|a\nbb\nc");
    Row("last", 3, "a\nbb\n|c");
    Row("behind the last", 4, "a\nb|b\nc");
}

void CodeEditorTest::GoesOnlyToLinesThatExist()
{
    QFETCH(int, line);
    CodeEditor editor({}, &m_keyBindings);
    SetMarkedText(editor, "a\nb|b\nc");
    editor.SetCurrentLine(line);
    QTEST(MarkedText(editor), "expected");
    QVERIFY(!editor.centerOnScroll());
}

void CodeEditorTest::AnswersOneChangePerPause()
{
    CodeEditor editor({CodeEditorType::Buffer, Language::Mel, "/x/y.mel", "MEL"}, &m_keyBindings);
    editor.SetText("");
    QSignalSpy changed(&editor, &CodeEditor::TextChanged);
    QTRY_COMPARE(changed.count(), 1);
    changed.clear();
    for (int i = 0; i < 10; ++i)
        QTest::keyClick(&editor, Qt::Key_A);
    QVERIFY(changed.isEmpty());
    QTRY_COMPARE(changed.count(), 1);
    QCOMPARE(changed[0][0].toString(), "/x/y.mel");
    QCOMPARE(changed[0][1].toString(), QString(10, 'a'));
}

void CodeEditorTest::GivesAnEmptyTextThatIsNotNull()
{
    const CodeEditor editor({}, &m_keyBindings);
    QVERIFY(editor.GetText().isEmpty());
    QVERIFY(!editor.GetText().isNull());
    QVERIFY(editor.CharacterAt(-1).isNull());
    QVERIFY(editor.CharacterAt(1000).isNull());
}

void CodeEditorTest::QuotesItsTextForPython_data()
{
    Columns<QString, QString>("text", "expected");
    Row("blanks at the very end go", "a = 1 \t", "a = 1\\n");
    Row("blanks at other line ends stay", "a \nb", "a \\nb\\n");
    Row("blanks before a last line end go", "a \n", "a\\n\\n");
    Row("backslashes before quotes", "print(\"\\n\")", "print(\\\"\\\\n\\\")\\n");
}

void CodeEditorTest::QuotesItsTextForPython()
{
    QFETCH(QString, text);
    CodeEditor editor({}, &m_keyBindings);
    editor.SetText(text);
    QTEST(editor.GetTextForPythonProcessing(), "expected");
}

void CodeEditorTest::InsertsAtTheFarEndOfTheSelection_data()
{
    Columns<QString, QString>("marked", "expected");
    Row("no selection", "a|b", "aX|b");
    Row("forwards", "a<b|c", "abX|c");
    Row("backwards", "a|b<c", "abX|c");
}

void CodeEditorTest::InsertsAtTheFarEndOfTheSelection()
{
    QFETCH(QString, marked);
    CodeEditor editor({}, &m_keyBindings);
    SetMarkedText(editor, marked);
    editor.ClearSelectionAndInsertText("X");
    QTEST(MarkedText(editor), "expected");
}

void CodeEditorTest::FourthColumnsWhenTheTabSizeIsNone()
{
    Settings::tabsSizeDefault = 0;
    const CodeEditor editor({}, &m_keyBindings);
    QCOMPARE(editor.SpacesForTab(), QString(4, ' '));
}

void CodeEditorTest::WrapsALongTextAtTheWidthItHasNow()
{
    CodeEditor editor({}, &m_keyBindings);
    editor.resize(900, 300);
    editor.show();
    editor.SetText(QString("a line that is somewhat longer than half of the view ").repeated(2)
        + QString("\n").repeated(5000));
    editor.resize(400, 300);
    QCoreApplication::processEvents();
    QCOMPARE(editor.document()->firstBlock().layout()->lineCount(), 1);
    Settings::wordWrapEnabled = true;
    editor.UpdateTextOptions();
    QCoreApplication::processEvents();
    const QTextLayout* layout = editor.document()->firstBlock().layout();
    QVERIFY(layout->lineCount() > 1);
    QVERIFY(layout->lineAt(0).naturalTextWidth() <= editor.viewport()->width());
    editor.resize(300, 300);
    QCoreApplication::processEvents();
    QVERIFY(layout->lineAt(0).naturalTextWidth() <= editor.viewport()->width());
}

void CodeEditorTest::AsksTheOptionsOfItsLanguage()
{
    const CodeEditor text({CodeEditorType::Buffer, Language::Text, "t", "t"}, &m_keyBindings);
    const CodeEditor mel({CodeEditorType::Buffer, Language::Mel, "m", "m"}, &m_keyBindings);
    const CodeEditor python({CodeEditorType::Buffer, Language::Python, "p", "p"}, &m_keyBindings);
    Settings::pylintEnabled = true;
    Settings::melSmartIndent = false;
    QVERIFY(!text.IsPylintEnabled() && !mel.IsPylintEnabled() && python.IsPylintEnabled());
    QVERIFY(!text.IsSmartIndentEnabled() && !mel.IsSmartIndentEnabled()
        && python.IsSmartIndentEnabled());
    Settings::pylintEnabled = false;
    Settings::melSmartIndent = true;

    // The language's own column counts only when it does not use the defaults.
    Settings::tabsAutoIndentMel = false;
    QVERIFY(mel.IsAutoIndentEnabled());
    Settings::tabsUseDefaultsMel = false;
    QVERIFY(
        !mel.IsAutoIndentEnabled() && python.IsAutoIndentEnabled() && text.IsAutoIndentEnabled());
    Settings::tabsUseDefaultsMel = true;
    Settings::tabsAutoIndentMel = true;
}

void CodeEditorTest::PressesKeys_data()
{
    Columns<QString, int, int, QString>("marked", "key", "modifiers", "expected");
    const int none = Qt::NoModifier;
    const int shift = Qt::ShiftModifier;
    const int keypad = Qt::KeypadModifier;
    Row("return", "a|b", int(Qt::Key_Return), none, "a\n|b");
    Row("shift+return", "a|b", int(Qt::Key_Return), shift, "a\n|b");
    Row("shift+keypad enter is a key without modifiers, so it executes", "a|b", int(Qt::Key_Enter),
        (shift | keypad), "a|b");
    Row("ctrl+return", "a|b", int(Qt::Key_Return), int(Qt::ControlModifier), "a|b");
    Row("ctrl+space writes nothing", "a|", int(Qt::Key_Space), int(Qt::ControlModifier), "a|");
    Row("alt and a letter leave the selection alone", "a<b|c", int(Qt::Key_F), int(Qt::AltModifier),
        "a<b|c");
    Row("cut and copy keys", "a<b|c", int(Qt::Key_X), int(Qt::ControlModifier), "a|c");
    Row("tab", "a|b", int(Qt::Key_Tab), none, "a    |b");
    Row("backtab", "      a|", int(Qt::Key_Backtab), shift, "  a|");
    Row("home to the first word", "    ab|", int(Qt::Key_Home), none, "    |ab");
    Row("shift+home", "  ab|", int(Qt::Key_Home), shift, "  |ab<");
    Row("ctrl+home", "a\nb|", int(Qt::Key_Home), int(Qt::ControlModifier), "|a\nb");
}

void CodeEditorTest::PressesKeys()
{
    QFETCH(QString, marked);
    QFETCH(int, key);
    QFETCH(int, modifiers);
    CodeEditor editor({}, &m_keyBindings);
    SetMarkedText(editor, marked);
    QTest::keyClick(&editor, Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    QTEST(MarkedText(editor), "expected");
}

void CodeEditorTest::CopiesWholeLines()
{
    CodeEditor editor({}, &m_keyBindings);
    SetMarkedText(editor, "one\ntw|o\nthree");
    QTest::keyClick(&editor, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), "two");
    editor.SetCursorPosition(10, false, false);
    QTest::keyClick(&editor, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(MarkedText(editor), "one\ntwo\ntwo\nth|ree");
    QTest::keyClick(&editor, Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(MarkedText(editor), "one\ntwo\ntwo\n|");
    // A selection is replaced, and what is selected is copied as ever.
    editor.SetCursorSelection(0, 3);
    QTest::keyClick(&editor, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(MarkedText(editor), "three|\ntwo\ntwo\n");
    editor.SetCursorSelection(1, 3);
    QTest::keyClick(&editor, Qt::Key_C, Qt::ControlModifier);
    QTest::keyClick(&editor, Qt::Key_V, Qt::ControlModifier);
    QTest::keyClick(&editor, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(MarkedText(editor), "thrhr|ee\ntwo\ntwo\n");
}

void CodeEditorTest::UndoesTypingAidsByKey()
{
    CodeEditor editor({CodeEditorType::Buffer, Language::Python, "p", "p"}, &m_keyBindings);
    SetMarkedText(editor, "a |b\nc<");
    QTest::keyClick(&editor, '(');
    QCOMPARE(MarkedText(editor), "a (|b\nc<)");
    QTest::keyClick(&editor, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(MarkedText(editor), "a |b\nc<");
    QTest::keyClick(&editor, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(MarkedText(editor), "a (|b\nc<)");
    // Plain typing is undone by the toolkit, which must not bring an older place back.
    QTest::keyClick(&editor, Qt::Key_X);
    editor.undo();
    QCOMPARE(editor.GetText(), "a (b\nc)");
}

void CodeEditorTest::ChangesNothingThatIsReadOnly()
{
    CodeEditor editor({CodeEditorType::Buffer, Language::Mel, "m", "m"}, &m_keyBindings);
    SetMarkedText(editor, "    a\n   <  b | ");
    editor.setReadOnly(true);
    for (const int key : {int(Qt::Key_Return), int(Qt::Key_Tab), int(Qt::Key_ParenLeft)})
        QTest::keyClick(&editor, Qt::Key(key));
    QTest::keyClick(&editor, Qt::Key_X, Qt::ControlModifier);
    editor.MoveLine(true);
    editor.ToggleBlockComment();
    editor.TrimTrailingWhiteSpaces(true);
    QCOMPARE(MarkedText(editor), "    a\n   <  b | ");
}

void CodeEditorTest::KeepsMessagesWithTheirLines()
{
    CodeEditor editor({CodeEditorType::Buffer, Language::Python, "p", "p"}, &m_keyBindings);
    SetMarkedText(editor, "<\ta = b\n\tc = d|\ne = f");
    ParserMessage message;
    message.start = 12; // d
    message.end = 13;
    editor.UpdateErrorsAndWarnings({message}, {}, {});
    const auto marked = [&editor] {
        const CodeEditorMark mark = editor.GetMarks().GetMarks(MarkSeverity::Error).value(0);
        return QString("%1 of line %2")
            .arg(editor.GetText().mid(mark.start, mark.end - mark.start))
            .arg(mark.line);
    };
    editor.ToggleComment();
    QCOMPARE(editor.GetText(), "    # a = b\n    # c = d\ne = f");
    QCOMPARE(marked(), "d of line 1");
    editor.IncreaseIndent(false);
    QCOMPARE(marked(), "d of line 1");
    editor.MoveLine(false);
    QCOMPARE(marked(), "d of line 2");
    editor.MoveLine(true);
    QCOMPARE(marked(), "d of line 1");
}

void CodeEditorTest::LeavesExecuteKeysToTheWindow_data()
{
    Columns<int, int>("key", "modifiers");
    Row("keypad enter", int(Qt::Key_Enter), int(Qt::KeypadModifier));
    Row("ctrl+keypad enter", int(Qt::Key_Enter), int(Qt::ControlModifier | Qt::KeypadModifier));
    Row("shift+keypad enter", int(Qt::Key_Enter), int(Qt::ShiftModifier | Qt::KeypadModifier));
}

void CodeEditorTest::LeavesExecuteKeysToTheWindow()
{
    struct Window : QWidget
    {
        void keyPressEvent(QKeyEvent* event) override { enters += event->key() == Qt::Key_Enter; }
        int enters = 0;
    } window;
    QFETCH(int, key);
    QFETCH(int, modifiers);
    CodeEditor editor({}, &m_keyBindings, &window);
    QTest::keyClick(&editor, Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    QCOMPARE(window.enters, 1);
    QVERIFY(editor.GetText().isEmpty());
}

void CodeEditorTest::ZoomsByTheWheelWithCtrlAlone()
{
    CodeEditor editor({}, &m_keyBindings);
    QSignalSpy bigger(&editor, &CodeEditor::IncreaseFontSizeRequested);
    QSignalSpy smaller(&editor, &CodeEditor::DecreaseFontSizeRequested);
    const auto turn = [&editor](int delta, Qt::KeyboardModifiers modifiers) {
        QWheelEvent event({5, 5}, editor.mapToGlobal({5, 5}), {}, {0, delta}, Qt::NoButton,
            modifiers, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(editor.viewport(), &event);
    };
    turn(120, Qt::ControlModifier);
    turn(-120, Qt::ControlModifier);
    turn(0, Qt::ControlModifier);
    turn(120, Qt::ControlModifier | Qt::ShiftModifier);
    turn(120, Qt::NoModifier);
    Settings::codeEditorMouseWheelChangesFontSize = false;
    turn(120, Qt::ControlModifier);
    QCOMPARE(bigger.count(), 1);
    QCOMPARE(smaller.count(), 1);
}

void CodeEditorTest::KnowsItsQuotes()
{
    const CodeEditor mel({CodeEditorType::Buffer, Language::Mel, "m", "m"}, &m_keyBindings);
    const CodeEditor python({CodeEditorType::Buffer, Language::Python, "p", "p"}, &m_keyBindings);
    QVERIFY(mel.IsQuoteForLanguage('"') && python.IsQuoteForLanguage('"'));
    QVERIFY(mel.IsQuoteForLanguage('`') && !python.IsQuoteForLanguage('`'));
    QVERIFY(!mel.IsQuoteForLanguage('\'') && python.IsQuoteForLanguage('\''));
}

void CodeEditorTest::ClicksInTheMarginSelectLines_data()
{
    Columns<QString, int, int, int, QString>(
        "marked", "pressed", "released", "modifiers", "expected");
    const int none = Qt::NoModifier;
    const int shift = Qt::ShiftModifier;
    Row("a line with its end", "|a\nb\nc", 2, 2, none, "a\n<b\n|c");
    Row("the last line", "|a\nb\nc", 3, 3, none, "a\nb\n<c|");
    Row("dragged down", "a\nb\nc|", 1, 2, none, "<a\nb\n|c");
    Row("dragged up", "a\nb\nc|", 2, 1, none, "|a\nb\n<c");
    Row("with shift from the cursor", "a\nb|\nc", 3, 3, shift, "a\n<b\nc|");
    Row("with shift from lines selected upwards", "|a\nb\n<c\nd", 3, 3, shift, "a\n<b\nc\n|d");
}

void CodeEditorTest::ClicksInTheMarginSelectLines()
{
    QFETCH(QString, marked);
    QFETCH(int, pressed);
    QFETCH(int, released);
    QFETCH(int, modifiers);
    CodeEditor editor({}, &m_keyBindings);
    editor.resize(300, 200);
    SetMarkedText(editor, marked);
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));
    auto* margin = editor.findChild<QWidget*>("m_lineNumbers");
    const auto place = [&editor](int line) {
        const CodeEditor::VisibleLine visible
            = editor.GetVisibleLines(editor.viewport()->rect()).at(line - 1);
        return QPoint(5, visible.top + visible.height / 2);
    };
    const auto keys = Qt::KeyboardModifiers(modifiers);
    QTest::mousePress(margin, Qt::LeftButton, keys, place(pressed));
    QMouseEvent move(QEvent::MouseMove, place(released), Qt::NoButton, Qt::LeftButton, keys);
    QCoreApplication::sendEvent(margin, &move);
    QTest::mouseRelease(margin, Qt::LeftButton, keys, place(released));
    QTEST(MarkedText(editor), "expected");
}

void CodeEditorTest::TellsOfMessagesOnlyWhenTheyChange()
{
    CodeEditor editor({CodeEditorType::Buffer, Language::Python, "p", "p"}, &m_keyBindings);
    SetMarkedText(editor, "a|\nb\nc");
    QSignalSpy told(&editor, &CodeEditor::ErrorAndWarningTextChanged);
    ParserMessage message;
    message.message = "wrong";
    message.line = 1;
    message.column = 0;
    editor.UpdateErrorsAndWarnings({message}, {}, {});
    QCOMPARE(told.count(), 1);
    QVERIFY(editor.GetErrorAndWarningsText().isEmpty());
    editor.UpdateErrorsAndWarnings({message}, {}, {});
    QCOMPARE(told.count(), 1);
    editor.SetCurrentLine(2);
    QTRY_COMPARE(told.count(), 2);
    QCOMPARE(editor.GetErrorAndWarningsText(), "wrong");
    // The message stays with its line, the cursor with its own.
    editor.SetCursorPosition(0, false, false);
    QTRY_COMPARE(told.count(), 3);
    QTest::keyClick(&editor, Qt::Key_Return);
    editor.SetCurrentLine(3);
    QCOMPARE(editor.GetErrorAndWarningsText(), "wrong");
    QTRY_COMPARE(told.count(), 4);
    QTest::keyClick(&editor, Qt::Key_Delete);
    QTRY_COMPARE(told.count(), 5);
    QCOMPARE(editor.GetNumberOfErrors(), 0);
}

void CodeEditorTest::HighlightingMovesNoMessages()
{
    CodeEditor editor({CodeEditorType::Buffer, Language::Python, "p", "p"}, &m_keyBindings);
    editor.SetText("one two");
    ParserMessage message;
    message.start = 0;
    message.end = 3;
    editor.UpdateErrorsAndWarnings({message}, {}, {});
    // New formats are a change of everything to the layout, also together with the next key.
    QTextLayout::FormatRange range;
    range.length = 3;
    range.format.setFontItalic(true);
    editor.document()->firstBlock().layout()->setFormats({range});
    editor.document()->markContentsDirty(0, 7);
    QCOMPARE(editor.GetNumberOfErrors(), 1);
    editor.moveCursor(QTextCursor::End);
    QTest::keyClick(&editor, Qt::Key_A);
    QCOMPARE(editor.GetNumberOfErrors(), 1);
    editor.SetText("one two");
    QCOMPARE(editor.GetNumberOfErrors(), 0);
}

void CodeEditorTest::ShowsItsMenuInOrder_data()
{
    Columns<int, QStringList>("language", "expected");
    const QStringList common = {"Cut", "Copy", "Paste", "", "Select All", "", "Execute",
        "Execute Line", "Execute All", "", "Save Script to Shelf", "", "Insert Path...", ""};
    Row("mel", int(Language::Mel), (common + QStringList({"Quick Help", "Command Reference"})));
    Row("python", int(Language::Python),
        (common + QStringList({"Python", "", "Quick Help", "Command Reference"})));
}

void CodeEditorTest::ShowsItsMenuInOrder()
{
    QFETCH(int, language);
    CodeEditor editor({CodeEditorType::Buffer, Language(language), "x", "x"}, &m_keyBindings);
    editor.show();
    Q_EMIT editor.customContextMenuRequested({5, 5});
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QCOMPARE(menu->pos(), editor.viewport()->mapToGlobal({5, 5}));
    QStringList labels;
    for (const QAction* action : menu->actions())
        labels += action->text();
    QTEST(labels, "expected");
}

void CodeEditorTest::TheMarginHasTheMenuOfTheText()
{
    CodeEditor editor({CodeEditorType::Buffer, Language::Python, "x", "x"}, &m_keyBindings);
    editor.show();
    auto* const margin = editor.findChild<CodeEditorLineNumbers*>();
    const QPoint place = margin->mapToGlobal({3, 5});
    QContextMenuEvent event(QContextMenuEvent::Mouse, {3, 5}, place);
    QCoreApplication::sendEvent(margin, &event);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QCOMPARE(menu->pos(), place);
    QCOMPARE(menu->actions()[0]->text(), QString("Cut"));
}

void CodeEditorTest::NamesItselfWithItsState()
{
    CodeEditor editor({CodeEditorType::Buffer, Language::Mel, "x", "MEL"}, &m_keyBindings);
    QCOMPARE(editor.accessibleName(), "MEL");
    QTest::keyClick(&editor, Qt::Key_A);
    QCOMPARE(editor.accessibleName(), "MEL, modified");
    editor.SetProperties({CodeEditorType::Buffer, Language::Mel, "x", "other"}, false);
    QCOMPARE(editor.accessibleName(), "other, modified");
    editor.SetModified(false);
    QCOMPARE(editor.accessibleName(), "other");
}

void CodeEditorTest::KeepsWatchingAReplacedFile()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath("a.py");
    const auto write = [](const QString& file, const QByteArray& text) {
        QSaveFile save(file); // A save by another program: a new file in the place of the old one.
        return save.open(QIODevice::WriteOnly) && save.write(text) >= 0 && save.commit();
    };
    QVERIFY(write(path, "1"));
    CodeEditor editor({CodeEditorType::File, Language::Python, path, "a.py"}, &m_keyBindings);
    QSignalSpy changed(&editor, &CodeEditor::FileChanged);
    QVERIFY(write(path, "22"));
    QTRY_VERIFY(!changed.isEmpty());
    QCOMPARE(changed.constLast().constFirst().toString(), path);
    changed.clear();
    QVERIFY(write(path, "333"));
    QTRY_VERIFY(!changed.isEmpty());
    // The watch follows the path, and a buffer has none.
    const QString other = directory.filePath("b.py");
    QVERIFY(write(other, "1"));
    editor.SetProperties({CodeEditorType::File, Language::Python, other, "b.py"}, false);
    changed.clear();
    QVERIFY(write(path, "4"));
    QVERIFY(write(other, "2"));
    QTRY_VERIFY(!changed.isEmpty());
    for (const QList<QVariant>& arguments : changed)
        QCOMPARE(arguments.constFirst().toString(), other);
}

void CodeEditorTest::LeavesDraggedFilesAlone()
{
    CodeEditor editor({}, &m_keyBindings);
    const auto isTaken = [&editor](const QMimeData& data) {
        QDragEnterEvent event({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(editor.viewport(), &event);
        return event.isAccepted();
    };
    QMimeData text;
    text.setText("x");
    QVERIFY(isTaken(text));
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile("/x/y.py")});
    files.setText("/x/y.py");
    QVERIFY(!isTaken(files));
}

void CodeEditorTest::ADroppedFlagIsWrittenAsTheLanguageDoes()
{
    CodeEditorProperties properties;
    properties.language = CodeEditorLanguage::Python;
    CodeEditor editor(properties, &m_keyBindings);
    editor.resize(400, 200);
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));
    SetMarkedText(editor, "|cmds.ls(long=True)");
    QTextCursor target = editor.textCursor();
    target.setPosition(17);
    QMimeData flag;
    flag.setText("-type");
    flag.setData("text/tarnwickEditorFlag", "type");
    const QPoint place = editor.cursorRect(target).center();
    QDragEnterEvent enter(place, Qt::CopyAction, &flag, Qt::LeftButton, {});
    QCoreApplication::sendEvent(editor.viewport(), &enter);
    QDropEvent drop(place, Qt::CopyAction, &flag, Qt::LeftButton, {});
    QCoreApplication::sendEvent(editor.viewport(), &drop);
    QCOMPARE(editor.GetText(), QString("cmds.ls(long=True, type=)"));
    editor.undo();
    QCOMPARE(editor.GetText(), QString("cmds.ls(long=True)"));
}

void CodeEditorTest::AsksForHelpOnTheSelection()
{
    CodeEditor editor({}, &m_keyBindings);
    SetMarkedText(editor, "a<b\nc|");
    QSignalSpy asked(&editor, &CodeEditor::QuickHelpChanged);
    editor.QuickHelp();
    QCOMPARE(asked.count(), 1);
    QCOMPARE(asked[0][0].toString(), "b\nc");
    QVERIFY(asked[0][1].toBool());
}

TE2_TEST(CodeEditorTest)
#include "CodeEditorTest.moc"
