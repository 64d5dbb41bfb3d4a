#include "editor/FindReplaceWidget.h"
#include "editor/SearchExpression.h"
#include "output/OutputTextEdit.h"
#include "settings/ColorSettings.h"
#include "settings/KeyBindings.h"
#include "settings/Settings.h"
#include "support/TestMain.h"

#include <QRandomGenerator>
#include <QRegularExpression>
#include <QSet>
#include <QTextBlock>
#include <QtTest>

class OutputFindTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_output.reset(); }
    void SearchesRoundTheEnds();
    void KeepsTheMatchThatGrowsWhileTyping();
    void CountsWhatIsAppendedWhileTheBarIsOpen();
    void CountsLinesOfAnyLengthWhileTheyCome();
    void MarksMatchesAndTheCurrentOne();
    void StartsWithTheWordUnderTheCursor_data();
    void StartsWithTheWordUnderTheCursor();
    void SearchesOnlyWhatWasSelected();
    void EscapeClosesTheBarAndDropsTheSelection();

private:
    void Search(const QString& text);
    int SelectedStart() { return m_output->GetSelectedStartPosition(); }

    KeyBindings m_keyBindings;
    std::unique_ptr<OutputTextEdit> m_output;
};

void OutputFindTest::init()
{
    ColorSettings::Initialize();
    Settings::outputSyntaxHighlightingEnabled = true;
    m_output = std::make_unique<OutputTextEdit>(&m_keyBindings);
    m_output->resize(600, 300);
    m_output->show();
}

void OutputFindTest::Search(const QString& text)
{
    m_output->ShowFindReplace(false, true);
    m_output->GetFindReplace()->SetSearchText(text);
}

void OutputFindTest::SearchesRoundTheEnds()
{
    m_output->AppendText("ab x ab x ab");
    Search("ab");
    QVERIFY(m_output->Find(0, false));
    QCOMPARE(SelectedStart(), 0);
    QVector<int> starts;
    for (int i = 0; i < 3; ++i) {
        m_output->FindNext();
        starts += SelectedStart();
    }
    QCOMPARE(starts, QVector<int>({5, 10, 0}));
    m_output->FindPrevious();
    QCOMPARE(SelectedStart(), 10);
    Search("nowhere");
    QVERIFY(!m_output->Find(0, false));
    QCOMPARE(SelectedStart(), 10);
}

void OutputFindTest::KeepsTheMatchThatGrowsWhileTyping()
{
    m_output->AppendText("fog fig fit");
    m_output->moveCursor(QTextCursor::Start);
    Search("f");
    QCOMPARE(SelectedStart(), 0);
    m_output->GetFindReplace()->SetSearchText("fi");
    QCOMPARE(m_output->GetSelectedText(), "fi");
    QCOMPARE(SelectedStart(), 4);
    m_output->GetFindReplace()->SetSearchText("fit");
    QCOMPARE(SelectedStart(), 8);
}

void OutputFindTest::CountsWhatIsAppendedWhileTheBarIsOpen()
{
    m_output->AppendText("ab\n");
    Search("ab");
    const auto* label = m_output->GetFindReplace()->findChild<QWidget*>("m_resultsLabel");
    QVERIFY(label);
    QTRY_COMPARE(label->property("text").toString(), "1 of 1");
    m_output->AppendText("more ab and ab\n");
    QTRY_VERIFY(label->property("text").toString().endsWith("of 3"));
    m_output->ClearAll();
    QTRY_COMPARE(label->property("text").toString(), "No Results");
    int count = -1;
    int current = -1;
    m_output->AppendText("ab ab");
    m_output->Find(1, false);
    m_output->GetSearchResults(CreateSearchRegEx("ab", false, false, false), count, current);
    QCOMPARE(count, 2);
    QCOMPARE(current, 2);
    // More than the match is no match.
    m_output->selectAll();
    m_output->GetSearchResults(CreateSearchRegEx("ab", false, false, false), count, current);
    QCOMPARE(count, 2);
    QCOMPARE(current, -1);
}

/// Lines that are several blocks grow, and the oldest ones go.
void OutputFindTest::CountsLinesOfAnyLengthWhileTheyCome()
{
    m_output->SetLineLimit(40);
    Search("needle");
    QRandomGenerator random(3);
    const QStringList texts = {"a needle\n", "need", "le", "\n", "x\nneedle needle\n\n",
        QString("needle ").repeated(4000), QString("nee").repeated(9000) + "\n"};
    const QRegularExpression expression = CreateSearchRegEx("needle", false, false, false);
    for (int i = 0; i < 150; ++i) {
        m_output->AppendText(texts.at(random.bounded(texts.size())));
        if (i % 40 == 39)
            m_output->ClearAll();
        if (i % 3 == 0)
            continue;
        int count = -1;
        int current = -1;
        m_output->GetSearchResults(expression, count, current);
        QCOMPARE(count, m_output->GetText().count("needle"));
    }
}

void OutputFindTest::MarksMatchesAndTheCurrentOne()
{
    m_output->AppendText("ab x ab\n");
    Search("ab");
    QVERIFY(m_output->Find(0, false));
    QVector<QPair<int, QColor>> marks;
    for (const QTextEdit::ExtraSelection& mark : m_output->extraSelections())
        marks.append({mark.cursor.selectionStart(), mark.format.background().color()});
    const QColor found = ColorSettings::GetOutputFormat(ColorSettings::FIND_REPLACE_MATCHING, false)
                             .background()
                             .color();
    const QColor current
        = ColorSettings::GetOutputFormat(ColorSettings::FIND_REPLACE_SELECTED, false)
              .background()
              .color();
    // Later ones paint over earlier ones.
    QVERIFY(marks.size() >= 3);
    QCOMPARE(marks.mid(marks.size() - 3),
        (QVector<QPair<int, QColor>>{{0, found}, {5, found}, {0, current}}));
    // What is selected anyway must not hide that it is the match; around it runs a line.
    QTextCursor first = m_output->textCursor();
    first.setPosition(0);
    const QPoint inside = m_output->cursorRect(first).topLeft() + QPoint(2, 2);
    QCOMPARE(m_output->viewport()->grab().toImage().pixelColor(inside), current);
    Settings::outputSyntaxHighlightingEnabled = false;
    m_output->UpdateExtraSelections();
    QVERIFY(m_output->extraSelections().isEmpty());
}

void OutputFindTest::StartsWithTheWordUnderTheCursor_data()
{
    Columns<int, int, QString>("anchor", "position", "text");
    Row("word", 1, 1, "first");
    Row("selection", 2, 5, "rst");
    Row("two lines keep what was there", 2, 9, "before");
}

void OutputFindTest::StartsWithTheWordUnderTheCursor()
{
    QFETCH(int, anchor);
    QFETCH(int, position);
    m_output->AppendText("first\nsecond\n");
    Search("before");
    m_output->CloseFindReplace();
    QTextCursor cursor = m_output->textCursor();
    cursor.setPosition(anchor);
    cursor.setPosition(position, QTextCursor::KeepAnchor);
    m_output->setTextCursor(cursor);
    m_output->ShowFindReplace(false, true);
    QTEST(m_output->GetFindReplace()->GetSearchText(), "text");
}

void OutputFindTest::SearchesOnlyWhatWasSelected()
{
    m_output->SetLineLimit(5);
    m_output->AppendText("ab\nab 1\nab 2\nab");
    Search("ab");
    QTextCursor cursor = m_output->textCursor();
    cursor.setPosition(3);
    cursor.setPosition(12, QTextCursor::KeepAnchor);
    m_output->setTextCursor(cursor);
    m_output->GetFindReplace()->SetFindInSelectionEnabled(true, true);
    QVector<int> starts;
    for (int i = 0; i < 3; ++i) {
        m_output->FindNext();
        starts += SelectedStart();
    }
    QCOMPARE(QSet<int>(starts.begin(), starts.end()), QSet<int>({3, 8}));
    // The oldest lines go, and the region with its text.
    m_output->AppendText("\nab\nab");
    m_output->FindNext();
    QCOMPARE(m_output->textCursor().block().text(), "ab 1");
    m_output->GetFindReplace()->SetFindInSelectionEnabled(false, true);
    QVERIFY(m_output->Find(m_output->GetText().size() - 3, false));
    QCOMPARE(SelectedStart(), m_output->GetText().size() - 2);
}

void OutputFindTest::EscapeClosesTheBarAndDropsTheSelection()
{
    m_output->AppendText("ab");
    Search("ab");
    QTest::keyClick(m_output.get(), Qt::Key_Escape);
    QVERIFY(!m_output->IsFindReplaceVisible());
    QCOMPARE(m_output->GetSelectedText(), QString());
}

TE2_TEST(OutputFindTest)
#include "OutputFindTest.moc"
