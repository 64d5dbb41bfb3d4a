#include "editor/CodeEditor.h"
#include "settings/ColorSettings.h"
#include "settings/KeyBindings.h"
#include "settings/Settings.h"
#include "support/TestMain.h"
#include "window/chrome/Theme.h"

#include <QScreen>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTextBlock>
#include <QToolTip>
#include <QtTest>

namespace {

ParserMessage Message(const QString& text, int start, int end)
{
    ParserMessage message;
    message.message = text;
    message.start = start;
    message.end = end;
    return message;
}

/// Pixels within `area` whose channels together differ by less than `tolerance`.
int CountPixels(const QImage& image, const QColor& color, const QRect& area, int tolerance = 60)
{
    int count = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            count += qAbs(pixel.red() - color.red()) + qAbs(pixel.green() - color.green())
                    + qAbs(pixel.blue() - color.blue())
                < tolerance;
        }
    }
    return count;
}

QImage Grab(QWidget& widget)
{
    return widget.grab().toImage();
}

/// Where a line stands in the viewport.
QRect LineRect(const CodeEditor& editor, int line)
{
    const QTextCursor cursor(editor.document()->findBlockByNumber(line - 1));
    const QRect caret = editor.cursorRect(cursor);
    return {0, caret.top(), editor.viewport()->width(), caret.height()};
}

QRect CharacterRect(const CodeEditor& editor, int position)
{
    QTextCursor cursor(editor.document());
    cursor.setPosition(position);
    const QRect caret = editor.cursorRect(cursor);
    return {caret.left(), caret.top(), editor.fontMetrics().horizontalAdvance('x'), caret.height()};
}

void ShowToolTip(QWidget& widget, const QPoint& point)
{
    QHelpEvent event(QEvent::ToolTip, point, widget.mapToGlobal(point));
    QCoreApplication::sendEvent(&widget, &event);
}

QStringList Marked(const CodeEditor& editor, const QString& role)
{
    const QTextCharFormat format = ColorSettings::GetCodeEditorFormat(role, false);
    QStringList texts;
    for (const QTextEdit::ExtraSelection& selection : editor.extraSelections()) {
        if (selection.format == format)
            texts += QString("%1:%2")
                         .arg(selection.cursor.selectionStart())
                         .arg(selection.cursor.selectedText());
    }
    return texts;
}

QStringList Spans(const CodeEditor& editor, const QVector<CodeEditor::MarkedSpan>& spans)
{
    const QString text = editor.GetText();
    QStringList texts;
    for (const CodeEditor::MarkedSpan& span : spans)
        texts += QString("%1:%2").arg(span.start).arg(text.mid(span.start, span.end - span.start));
    return texts;
}

QStringList FoundText(const CodeEditor& editor)
{
    return Spans(editor, editor.GetFoundText());
}

} // namespace

class CodeEditorPaintingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { ColorSettings::Initialize(); }
    void init();
    void cleanup();
    void WavesStandUnderMessages();
    void NothingOfMessagesIsShownWhenSwitchedOff();
    void GuidesRunThroughLinesWithoutCode_data();
    void GuidesRunThroughLinesWithoutCode();
    void GutterShowsTheWorstMessage();
    void ErrorBarShowsMarksInPlace();
    void ToolTipsTellTheMessages();
    void MarksOccurrencesOfTheSelection_data();
    void MarksOccurrencesOfTheSelection();
    void MarksFoundTextAndTheCurrentMatch();
    void FindRegionFollowsEdits_data();
    void FindRegionFollowsEdits();
    void MarksMatchingBraces_data();
    void MarksMatchingBraces();
    void MarksOnlyWhatIsNearTheView();
    void HitsInTheBarFollowTheText();
    void ShowsTheDropOverlay();
    void ShowsAllLinesThatAnEditChanged_data();
    void ShowsAllLinesThatAnEditChanged();
    void OverwritingShowsABlock_data();
    void OverwritingShowsABlock();

private:
    CodeEditor& Open(const QString& text);

    KeyBindings m_keyBindings;
    std::unique_ptr<CodeEditor> m_editor;
};

void CodeEditorPaintingTest::init()
{
    m_editor = std::make_unique<CodeEditor>(
        CodeEditorProperties{CodeEditorType::Buffer, CodeEditorLanguage::Python, "p", "p"},
        &m_keyBindings);
    m_editor->resize(600, 400);
    m_editor->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_editor.get()));
}

void CodeEditorPaintingTest::cleanup()
{
    m_editor.reset();
    Settings::pythonDisplayErrors = true;
    Settings::codeEditorDisplayIndentationGuides = true;
    Settings::codeEditorMatchedSelectionWordsOnly = false;
}

CodeEditor& CodeEditorPaintingTest::Open(const QString& text)
{
    m_editor->SetText(text);
    QCoreApplication::processEvents();
    return *m_editor;
}

void CodeEditorPaintingTest::WavesStandUnderMessages()
{
    CodeEditor& editor = Open("first\nsecond\nthird");
    editor.UpdateErrorsAndWarnings(
        {Message("e", 6, 9)}, {Message("w", 13, 18), Message("end", 18, 18)}, {});
    const QImage image = Grab(*editor.viewport());
    const QColor red = ColorSettings::errorFormat.underlineColor();
    const QRect under = CharacterRect(editor, 6).united(CharacterRect(editor, 8));
    const QRect beside = CharacterRect(editor, 10).united(CharacterRect(editor, 11));
    QVERIFY(CountPixels(image, red, under) > under.width() / 4);
    QCOMPARE(CountPixels(image, red, beside), 0);
    QCOMPARE(CountPixels(image, red, LineRect(editor, 1)), 0);
    // An error at the very end of the text is shown behind it.
    const QColor yellow = ColorSettings::warningFormat.underlineColor();
    QVERIFY(CountPixels(image, yellow, CharacterRect(editor, 18).adjusted(2, 0, 0, 0), 250) > 0);
}

void CodeEditorPaintingTest::NothingOfMessagesIsShownWhenSwitchedOff()
{
    CodeEditor& editor = Open("first\nsecond");
    editor.UpdateErrorsAndWarnings({Message("e", 0, 5)}, {Message("w", 0, 5)}, {});
    QCOMPARE(editor.GetNumberOfErrors(), 1);
    QCOMPARE(editor.GetNumberOfWarnings(), 1);
    QCOMPARE(editor.GetErrorAndWarningsText(), "e");
    QSignalSpy changed(&editor, &CodeEditor::ErrorAndWarningTextChanged);
    Settings::pythonDisplayErrors = false;
    editor.UpdateFontsAndColors();
    QTRY_COMPARE(changed.count(), 1);
    QCOMPARE(editor.GetNumberOfErrors(), 0);
    QCOMPARE(editor.GetNumberOfWarnings(), 0);
    QVERIFY(editor.GetErrorAndWarningsText().isEmpty());
    const QImage image = Grab(editor);
    QCOMPARE(CountPixels(image, Theme::Color(Theme::Role::MarkError), image.rect()), 0);
    QCOMPARE(CountPixels(image, Theme::Color(Theme::Role::MarkWarning), image.rect()), 0);
}

void CodeEditorPaintingTest::GuidesRunThroughLinesWithoutCode_data()
{
    Columns<QString, QVector<int>>("text", "counts");
    Row("by steps", "a\n b\n    c\n     d\n\te", QVector<int>({0, 1, 1, 2, 1}));
    Row("blank lines take the next count", "    a\n\n  \n        b\n\nc",
        QVector<int>({1, 2, 2, 2, 0, 0}));
    Row("blank lines at the end have none", "    a\n\n", QVector<int>({1, 0, 0}));
    Row("no guide runs through a comment further left", "# x\n    # y\n        a",
        QVector<int>({0, 1, 2}));
}

void CodeEditorPaintingTest::GuidesRunThroughLinesWithoutCode()
{
    QFETCH(QString, text);
    CodeEditor& editor = Open(text);
    const QColor color
        = ColorSettings::GetCodeEditorFormat(ColorSettings::INDENTATION_GUIDES, false)
              .foreground()
              .color();
    const auto countGuides = [&] {
        const QImage image = Grab(*editor.viewport());
        const double left = editor.cursorRect(QTextCursor(editor.document())).left();
        const double step = editor.document()->defaultTextOption().tabStopDistance();
        QVector<int> counts;
        for (int line = 1; line <= editor.GetLineCount(); ++line) {
            int count = 0;
            const QRect row = LineRect(editor, line);
            for (int i = 0; i < 4; ++i) {
                const QRect stop(qRound(left + i * step), row.top(), 1, row.height());
                count += CountPixels(image, color, stop) == row.height();
            }
            counts += count;
        }
        return counts;
    };
    // The caret would cover a guide.
    editor.clearFocus();
    QTEST(countGuides(), "counts");
    Settings::codeEditorDisplayIndentationGuides = false;
    QCOMPARE(countGuides(), QVector<int>(editor.GetLineCount(), 0));
}

void CodeEditorPaintingTest::GutterShowsTheWorstMessage()
{
    CodeEditor& editor = Open("aa\nbb\ncc\ndd");
    editor.UpdateErrorsAndWarnings(
        {Message("e", 3, 5)}, {Message("w", 3, 5), Message("w", 6, 8)}, {Message("i", 9, 10)});
    auto* margin = editor.findChild<QWidget*>("m_lineNumbers");
    QVERIFY(margin);
    const QImage image = Grab(*margin);
    using R = Theme::Role;
    const R expected[] = {R::Canvas, R::MarkError, R::MarkWarning, R::MarkInfo};
    for (int line = 1; line <= 4; ++line) {
        for (const R role : {R::MarkError, R::MarkWarning, R::MarkInfo}) {
            const QRect row = LineRect(editor, line) & image.rect();
            QCOMPARE(CountPixels(image, Theme::Color(role), row) > 5, role == expected[line - 1]);
        }
    }
}

void CodeEditorPaintingTest::ErrorBarShowsMarksInPlace()
{
    CodeEditor& editor = Open(QString(20000, '\n'));
    editor.UpdateErrorsAndWarnings({Message("e", 10001, 10001)},
        {Message("first", 0, 0), Message("beside the error", 10000, 10000)},
        {Message("last", 20000, 20000)});
    QScrollBar& bar = *editor.verticalScrollBar();
    const auto rows = [&bar](Theme::Role role) {
        const QImage image = Grab(bar);
        QVector<int> found;
        for (int y = 0; y < image.height(); ++y) {
            if (CountPixels(image, Theme::Color(role), {image.width() / 2, y, 1, 1}) > 0)
                found += y;
        }
        return found;
    };
    const QVector<int> errors = rows(Theme::Role::MarkError);
    QCOMPARE(errors.size(), Theme::Dp(3));
    QVERIFY(qAbs(errors[1] - bar.height() / 2) < bar.height() / 10);
    // The warning on the same pixels is merged into the error.
    const QVector<int> warnings = rows(Theme::Role::MarkWarning);
    QCOMPARE(warnings.size(), Theme::Dp(3));
    QVERIFY(warnings.constLast() < bar.height() / 4);
    QVERIFY(rows(Theme::Role::MarkInfo).constFirst() > bar.height() * 3 / 4);
    // The bar leaves the mouse to the scroll bar.
    QCOMPARE(bar.childAt(bar.rect().center()), nullptr);
    ShowToolTip(bar, {bar.width() / 2, errors[1]});
    QVERIFY(QToolTip::text().contains("10002"));
    QVERIFY(QToolTip::text().indexOf(">e<") < QToolTip::text().indexOf("beside the error"));
}

void CodeEditorPaintingTest::ToolTipsTellTheMessages()
{
    CodeEditor& editor = Open("first\nsecond");
    editor.UpdateErrorsAndWarnings({Message("wrong <here>", 6, 9)}, {Message("odd", 6, 12)}, {});
    ShowToolTip(*editor.viewport(), CharacterRect(editor, 7).center());
    QTRY_VERIFY(QToolTip::isVisible());
    QVERIFY(QToolTip::text().contains("wrong &lt;here&gt;"));
    QVERIFY(QToolTip::text().indexOf("wrong") < QToolTip::text().indexOf("odd"));
    ShowToolTip(*editor.viewport(), CharacterRect(editor, 10).center());
    QVERIFY(!QToolTip::text().contains("wrong"));
    QVERIFY(QToolTip::text().contains("odd"));
    // A key takes the tool tip away.
    QTest::keyClick(&editor, Qt::Key_Left);
    QTRY_VERIFY(!QToolTip::isVisible());
    for (const QPoint& outside : {CharacterRect(editor, 2).center(),
             CharacterRect(editor, 12).center() + QPoint(60, 0), QPoint(100, 300)}) {
        ShowToolTip(*editor.viewport(), outside);
        QVERIFY(!QToolTip::isVisible());
    }
    auto* margin = editor.findChild<QWidget*>("m_lineNumbers");
    ShowToolTip(*margin, {margin->width() / 2, LineRect(editor, 2).center().y()});
    QVERIFY(QToolTip::text().contains("wrong") && QToolTip::text().contains("odd"));
    QToolTip::hideText();
}

void CodeEditorPaintingTest::MarksOccurrencesOfTheSelection_data()
{
    Columns<int, int, bool, QStringList>("start", "end", "wordsOnly", "marked");
    Row("everywhere", 0, 2, false, QStringList({"0:ab", "3:ab", "14:ab"}));
    Row("whole words", 0, 2, true, QStringList({"0:ab", "14:ab"}));
    Row("no whole word", 3, 5, true, QStringList());
    Row("blank", 2, 3, false, QStringList());
    Row("over lines", 8, 12, false, QStringList());
    Row("nothing selected", 1, 1, false, QStringList());
}

void CodeEditorPaintingTest::MarksOccurrencesOfTheSelection()
{
    QFETCH(int, start);
    QFETCH(int, end);
    QFETCH(bool, wordsOnly);
    Settings::codeEditorMatchedSelectionWordsOnly = wordsOnly;
    CodeEditor& editor = Open("ab abc AB\n\n+ (ab) y");
    editor.SetCursorSelection(start, end);
    QCoreApplication::processEvents();
    QTest::qWait(0);
    QTEST(Spans(editor, editor.GetOccurrences()), "marked");
    const QColor color
        = ColorSettings::GetCodeEditorFormat(ColorSettings::MATCHING_SELECTION, false)
              .background()
              .color();
    const QImage image = Grab(*editor.viewport());
    for (const CodeEditor::MarkedSpan& span : editor.GetOccurrences()) {
        // The selection's own colour covers it.
        if (span.start != start)
            QVERIFY(CountPixels(image, color, CharacterRect(editor, span.start)) > 10);
    }
    if (editor.GetOccurrences().isEmpty())
        QCOMPARE(CountPixels(image, color, image.rect(), 30), 0);
}

void CodeEditorPaintingTest::MarksFoundTextAndTheCurrentMatch()
{
    CodeEditor& editor = Open("ab\nab ab\nx");
    editor.SetSearchRegEx(QRegularExpression("ab|z*"));
    editor.SetCursorSelection(3, 5);
    QTRY_COMPARE(Marked(editor, ColorSettings::FIND_REPLACE_SELECTED), QStringList({"3:ab"}));
    QCOMPARE(FoundText(editor), QStringList({"0:ab", "3:ab", "6:ab"}));
    // The current match keeps its own colour although it is selected, and has an outline.
    const QImage image = Grab(*editor.viewport());
    const QRect match = CharacterRect(editor, 3).united(CharacterRect(editor, 4));
    const QColor fill
        = ColorSettings::GetCodeEditorFormat(ColorSettings::FIND_REPLACE_SELECTED, false)
              .background()
              .color();
    QVERIFY(CountPixels(image, fill, match) > match.width() * match.height() / 4);
    QVERIFY(CountPixels(image, Theme::Color(Theme::Role::MatchOutline), match) > match.width());

    editor.SetCursorSelection(3, 8);
    editor.SetSelectedSearchRegion();
    QTRY_COMPARE(FoundText(editor), QStringList({"3:ab", "6:ab"}));
    QCOMPARE(Marked(editor, ColorSettings::FIND_REPLACE_SELECTION), QStringList({"3:ab ab"}));
    editor.ClearFindInSelection();
    editor.SetSearchRegEx({});
    QTRY_VERIFY(FoundText(editor).isEmpty());
    QVERIFY(Marked(editor, ColorSettings::FIND_REPLACE_SELECTION).isEmpty());
}

void CodeEditorPaintingTest::FindRegionFollowsEdits_data()
{
    Columns<int, int, QString, int, int>("from", "to", "inserted", "start", "end");
    Row("before", 0, 1, "xyz", 6, 10);
    Row("at its start", 4, 5, "xyz", 4, 10);
    Row("inside", 5, 6, "", 4, 7);
    Row("at its end", 7, 8, "xyz", 4, 10);
    Row("behind", 9, 10, "xyz", 4, 8);
    Row("over its start", 2, 6, "", 2, 4);
    Row("over its end", 6, 10, "", 4, 6);
}

void CodeEditorPaintingTest::FindRegionFollowsEdits()
{
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(QString, inserted);
    CodeEditor& editor = Open("0123456789");
    editor.SetCursorSelection(4, 8);
    editor.SetSelectedSearchRegion();
    editor.SetCursorSelection(from, to);
    editor.textCursor().insertText(inserted);
    QVERIFY(editor.IsFindInSelectionEnabled());
    QTEST(editor.GetFindInSelectionStart(), "start");
    QTEST(editor.GetFindInSelectionEnd(), "end");
    editor.ClearFindInSelection();
    QCOMPARE(editor.GetFindInSelectionStart(), -1);
    QCOMPARE(editor.GetFindInSelectionEnd(), -1);
}

void CodeEditorPaintingTest::MarksMatchingBraces_data()
{
    Columns<QString, int, QStringList>("text", "position", "marked");
    Row("behind an opening one", "f(a(b))", 2, QStringList({"1:(", "6:)"}));
    Row("before an opening one", "f(a(b))", 1, QStringList({"1:(", "6:)"}));
    Row("behind a closing one", "f(a(b))", 6, QStringList({"5:)", "3:("}));
    Row("the one before the cursor first", "a[0](b)", 4, QStringList({"3:]", "1:["}));
    Row("by kind", "{(}", 1, QStringList({"0:{", "2:}"}));
    Row("over lines", "[\n[]\n(\n]", 7, QStringList({"7:]", "0:["}));
    Row("without a partner", "f((a)", 1, QStringList());
    Row("none here", "f(a)", 0, QStringList());
}

void CodeEditorPaintingTest::MarksMatchingBraces()
{
    QFETCH(QString, text);
    QFETCH(int, position);
    CodeEditor& editor = Open(text);
    editor.SetCursorPosition(text.size(), false, false);
    editor.SetCursorPosition(position, false, false);
    QTest::qWait(0);
    QTEST(Marked(editor, ColorSettings::MATCHING_BRACES), "marked");
}

void CodeEditorPaintingTest::MarksOnlyWhatIsNearTheView()
{
    CodeEditor& editor = Open(QString("word\n").repeated(5000));
    const int inView = editor.viewport()->height() / editor.fontMetrics().height();
    editor.SetCursorSelection(0, 4);
    QTRY_VERIFY(editor.GetOccurrences().size() > inView);
    QVERIFY(editor.GetOccurrences().size() < inView + 120);
    // Following the cursor scrolls without a word from the scroll bar.
    QTest::keyClick(&editor, Qt::Key_End, Qt::ControlModifier);
    editor.SetCursorSelection(editor.GetText().size() - 5, editor.GetText().size() - 1);
    const auto lastMarked = [&editor] {
        const QVector<CodeEditor::MarkedSpan>& spans = editor.GetOccurrences();
        const int position = spans.isEmpty() ? 0 : spans.constLast().start;
        return editor.document()->findBlock(position).blockNumber();
    };
    QTRY_COMPARE(lastMarked(), 4999);
    QVERIFY(editor.GetOccurrences().size() < inView + 120);
    editor.verticalScrollBar()->setValue(1000);
    QTRY_VERIFY(lastMarked() >= 1000);
}

void CodeEditorPaintingTest::HitsInTheBarFollowTheText()
{
    CodeEditor& editor = Open("a\nhit\n\nhit hit\nb");
    editor.SetSearchRegEx(QRegularExpression("hit"));
    QTRY_COMPARE(editor.GetSearchHitLines(), QVector<int>({1, 3}));
    editor.SetCursorPosition(0, false, false);
    editor.textCursor().insertText("x\n");
    QCOMPARE(editor.GetSearchHitLines(), QVector<int>({2, 4}));
    editor.textCursor().insertText("hit");
    QTRY_COMPARE(editor.GetSearchHitLines(), QVector<int>({1, 2, 4}));
    editor.SetSearchRegEx({});
    QVERIFY(editor.GetSearchHitLines().isEmpty());
}

void CodeEditorPaintingTest::ShowsTheDropOverlay()
{
    CodeEditor& editor = Open("text");
    auto* overlay = editor.findChild<QWidget*>("m_dropOverlay");
    QVERIFY(overlay && overlay->isHidden());
    editor.SetDropOverlayRect({0, 0, 200, 100});
    QTRY_COMPARE(overlay->geometry(), QRect(0, 0, 200, 100));
    QVERIFY(overlay->isVisible());
    QVERIFY(overlay->testAttribute(Qt::WA_TransparentForMouseEvents));
    const QPoint inside(150, 70);
    const QColor plain = Grab(*editor.viewport()).pixelColor(300, 200);
    QTRY_VERIFY(Grab(editor).pixelColor(inside).blue() > plain.blue() + 15);
    QCOMPARE(Grab(editor).pixelColor(400, 200), plain);
    editor.SetDropOverlayRect({200, 0, 200, 100});
    QTRY_COMPARE(overlay->geometry(), QRect(200, 0, 200, 100));
    editor.SetDropOverlayRect({});
    QVERIFY(overlay->isHidden());
    QTRY_COMPARE(Grab(editor).pixelColor(inside), plain);
}

void CodeEditorPaintingTest::ShowsAllLinesThatAnEditChanged_data()
{
    Columns<int, int, QString>("start", "end", "text");
    Row("typed at the end of a line", 2, 2, "x");
    Row("a line end moved into the line before", 1, 4, "x\n");
    Row("lines joined", 2, 3, "");
    Row("a string that the lines below become part of", 0, 1, "'''");
}

void CodeEditorPaintingTest::ShowsAllLinesThatAnEditChanged()
{
    QFETCH(int, start);
    QFETCH(int, end);
    QFETCH(QString, text);
    CodeEditor& editor = Open("ab\ncd\nef\ngh");
    editor.moveCursor(QTextCursor::End);
    const auto shown = [&editor] {
        const QPixmap screen = editor.screen()->grabWindow(editor.winId());
        return screen.toImage().convertToFormat(QImage::Format_RGB32);
    };
    const auto painted = [&editor] {
        QImage image(editor.size(), QImage::Format_RGB32);
        editor.render(&image);
        return image;
    };
    QTRY_COMPARE(shown(), painted());
    QTextCursor cursor(editor.document());
    cursor.setPosition(start);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    cursor.insertText(text);
    QTRY_COMPARE(shown(), painted());
}

void CodeEditorPaintingTest::OverwritingShowsABlock_data()
{
    Columns<int>("position");
    Row("on a character", 0);
    Row("at the line's end", 2);
}

void CodeEditorPaintingTest::OverwritingShowsABlock()
{
    QFETCH(int, position);
    CodeEditor& editor = Open("ii\nb");
    editor.activateWindow();
    editor.setFocus();
    QTRY_VERIFY(editor.hasFocus());
    editor.SetCursorPosition(position, false, false);
    const QRect cell = CharacterRect(editor, position);
    const QColor text = editor.palette().color(QPalette::Text);
    const auto share = [&] {
        return CountPixels(Grab(*editor.viewport()), text, cell) * 100
            / (cell.width() * cell.height());
    };
    // Either the caret's on or its off phase may be seen first.
    QTRY_VERIFY(share() > 10 && share() < 60);
    editor.setOverwriteMode(true);
    QTRY_VERIFY(share() > 60);
}

TE2_TEST(CodeEditorPaintingTest)
#include "CodeEditorPaintingTest.moc"
