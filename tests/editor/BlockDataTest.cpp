#include "editor/CodeEditor.h"
#include "editor/CodeEditorBlockData.h"
#include "support/TestMain.h"

#include <QtTest>

namespace {

CodeEditorBlockData BracesOf(const QString& text)
{
    CodeEditorBlockData data;
    for (int i = 0; i < text.size(); ++i)
        data.AppendBrace(text.at(i), i);
    return data;
}

} // namespace

class BlockDataTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void FindsTheLastUnbalancedBrace_data();
    void FindsTheLastUnbalancedBrace();
    void RangesHoldBothTheirEnds();
    void FindsCommentMarkers();
    void ClearingKeepsWhatIsNotALine();
    void SquareBracketsMatchOnlyThemselves();
};

void BlockDataTest::FindsTheLastUnbalancedBrace_data()
{
    // "open": bracket and column, empty for none
    Columns<QString, int, QString, QString>("text", "column", "open", "close");
    Row("nothing", "a b", 2, "", "");
    Row("one opener", "f(a", 2, "(1", "");
    Row("closed again, but a closer is one", "f(a)", 3, "", ")3");
    Row("behind the column", "a (", 1, "", "");
    Row("at the column", "a (", 2, "(2", "");
    Row("outer of two", "f(g(a)", 5, "(1", ")5");
    Row("inner of two", "f(g(a", 4, "(3", "");
    Row("later kind wins", "({[", 2, "[2", "");
    Row("a closer of an earlier kind hides the next opener", ")[", 1, "", ")0");
    Row("closer", "a)", 1, "", ")1");
    Row("closer after a pair", "(a))", 3, "", ")3");
    Row("an opener of an earlier kind hides the next closer", "(]", 1, "(0", "");
}

void BlockDataTest::FindsTheLastUnbalancedBrace()
{
    QFETCH(QString, text);
    QFETCH(int, column);
    const CodeEditorBlockData data = BracesOf(text);
    const auto found = [&](bool (CodeEditorBlockData::*find)(int, QChar&, int&) const) {
        QChar brace;
        int position = 0;
        const bool any = (data.*find)(column, brace, position);
        return any ? brace + QString::number(position) : position == -1 ? QString("") : "?";
    };
    QTEST(found(&CodeEditorBlockData::GetLastOpenBrace), "open");
    QTEST(found(&CodeEditorBlockData::GetLastClosingBrace), "close");
}

void BlockDataTest::RangesHoldBothTheirEnds()
{
    CodeEditorBlockData data;
    data.AppendIgnorePosition(2, 4);
    data.AppendIgnorePosition(7, 7);
    QVector<int> ignored;
    for (int i = 0; i < 10; ++i) {
        if (data.IsIgnoredPosition(i))
            ignored.append(i);
        QVERIFY(!data.IsBlockCommentPosition(i) && !data.IsSingleLineCommentPosition(i));
    }
    QCOMPARE(ignored, (QVector<int>{2, 3, 4, 7}));
}

void BlockDataTest::FindsCommentMarkers()
{
    CodeEditorBlockData data;
    data.AppendBlockComment(2, 1);
    data.AppendBlockComment(8, -1);
    data.AppendBlockComment(12, 1);
    QCOMPARE(data.OpenBlockCommentPosition(1), -1);
    QCOMPARE(data.OpenBlockCommentPosition(11), 2);
    QCOMPARE(data.OpenBlockCommentPosition(12), 12);
    QCOMPARE(data.CloseBlockCommentPosition(7), 8);
    QCOMPARE(data.CloseBlockCommentPosition(8), -1);
}

void BlockDataTest::ClearingKeepsWhatIsNotALine()
{
    CodeEditorBlockData data = BracesOf("({[");
    data.AppendBlockComment(0, 1);
    data.SetIndent("  ");
    data.SetSmartIndentCount(2);
    data.SetNonCommentLength(3);
    data.SetEmpty(false);
    data.Clear();
    QVERIFY(data.GetBraces('(').isEmpty() && data.GetBraces('}').isEmpty()
        && data.GetBraces('[').isEmpty());
    QCOMPARE(data.OpenBlockCommentPosition(5), -1);
    QVERIFY(data.GetIndent().isEmpty());
    QCOMPARE(data.GetSmartIndentCount(), 0);
    QCOMPARE(data.GetNonCommentLength(), 3);
    QVERIFY(!data.IsEmpty());
}

void BlockDataTest::SquareBracketsMatchOnlyThemselves()
{
    QVERIFY(CodeEditor::IsMatchingBraces('(', ')'));
    QVERIFY(CodeEditor::IsMatchingBraces('{', '}'));
    QVERIFY(CodeEditor::IsMatchingBraces('[', '['));
    QVERIFY(!CodeEditor::IsMatchingBraces('[', ']'));
    QVERIFY(!CodeEditor::IsMatchingBraces('(', '}'));
    QCOMPARE(CodeEditor::GetMatchingBrace('['), QChar(']'));
    QVERIFY(CodeEditor::GetMatchingBrace('<').isNull());
}

TE2_TEST(BlockDataTest)
#include "BlockDataTest.moc"
