#include "editor/SearchExpression.h"

#include "editor/LineSearch.h"
#include "editor/SearchHistory.h"
#include "support/TestMain.h"

#include <QPoint>
#include <QRegularExpression>
#include <QtTest>

class SearchExpressionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void FindsWhatTheTogglesSay_data();
    void FindsWhatTheTogglesSay();
    void SeeksInLinesAsExpressionsDo_data();
    void SeeksInLinesAsExpressionsDo();
    void SeeksBesideBrokenText();
    void FindsNothingWithoutText();
    void KeepsAFaultForItsOwner();
    void GivesUpOnEndlessTrying();
    void LimitsNothingHonest();
    void ExpandsReplacements_data();
    void ExpandsReplacements();
    void WalksTheHistory();
    void SharesTheHistoryAndBoundsIt();
};

void SearchExpressionTest::FindsWhatTheTogglesSay_data()
{
    Columns<QString, bool, bool, bool, QString, QStringList>(
        "typed", "matchCase", "matchWord", "useExpression", "text", "found");
    using L = QStringList;
    Row("any case", "Sel", false, false, false, "sel SEL", L{"sel", "SEL"});
    Row("same case", "Sel", true, false, false, "sel Sel", L{"Sel"});
    Row("signs as they stand", "a.b(*", true, false, false, "axb(* a.b(*", L{"a.b(*"});
    Row("whole words", "ls", true, true, false, "else ls_ ls", L{"ls"});
    Row("letters of any script end no word", "gr", true, true, false, QString::fromUtf8("größe gr"),
        L{"gr"});
    Row("any case of any script", QString::fromUtf8("Ä"), false, false, false,
        QString::fromUtf8("ä"), L{QString::fromUtf8("ä")});
    Row("expression", "[ab]+\\d", false, false, true, "aB1 c2", L{"aB1"});
    Row("expression as a word", "a.c", true, true, true, "abcd abc", L{"abc"});
    Row("backslashes as they stand", "\\d", false, false, false, "1 \\d", L{"\\d"});
}

void SearchExpressionTest::FindsWhatTheTogglesSay()
{
    QFETCH(QString, typed);
    QFETCH(bool, matchCase);
    QFETCH(bool, matchWord);
    QFETCH(bool, useExpression);
    QFETCH(QString, text);
    const QRegularExpression expression
        = CreateSearchRegEx(typed, matchCase, matchWord, useExpression);
    for (const QRegularExpression& each : {expression, WithMatchLimit(expression)}) {
        QStringList found;
        for (auto matches = each.globalMatch(text); matches.hasNext();)
            found.append(matches.next().captured());
        QTEST(found, "found");
        found.clear();
        QVERIFY(LineSearch(each).Visit(QStringRef(&text), [&](int start, int end) {
            found.append(text.mid(start, end - start));
            return true;
        }));
        QTEST(found, "found");
    }
}

void SearchExpressionTest::SeeksInLinesAsExpressionsDo_data()
{
    Columns<QString, QString>("pattern", "line");
    // Behind a letter outside the first plane no word begins.
    const QString letter = QString::fromUcs4(U"\U00010400", 1);
    Row("empty matches", "x*", "xxaxb");
    Row("only empty matches", "^|$", "ab");
    Row("what is seen before", "(?<=a)b|a", "abab");
    Row("kept out", "a\\Kb", "abab");
    Row("words of signs", "\\b\\(\\b", "a(b (b a( (");
    Row("words", "\\bab\\b", "ab abab _ab ab" + letter + " " + letter + "ab ab");
    Row("an escape at the end", "\\ba\\\\b", "a\\b a\\ b");
    Row("case of signs", "k", QString::fromUtf8("kK\u212a"));
}

void SearchExpressionTest::SeeksInLinesAsExpressionsDo()
{
    QFETCH(QString, pattern);
    QFETCH(QString, line);
    const QRegularExpression expression(pattern,
        QRegularExpression::UseUnicodePropertiesOption | QRegularExpression::CaseInsensitiveOption);
    QVector<QPoint> expected;
    for (auto matches = expression.globalMatch(line); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        expected.append({match.capturedStart(), match.capturedEnd()});
    }
    QVERIFY(!expected.isEmpty());
    QVector<QPoint> found;
    QVERIFY(LineSearch(expression).Visit(QStringRef(&line), [&found](int start, int end) {
        found.append({start, end});
        return true;
    }));
    QCOMPARE(found, expected);
}

void SearchExpressionTest::SeeksBesideBrokenText()
{
    const QString line = "a1" + QString(QChar(0xd800)) + "b2";
    QStringList found;
    QVERIFY(LineSearch(QRegularExpression("\\w\\d"))
                .VisitMatches(QStringRef(&line), [&found](const QRegularExpressionMatch& match) {
                    found.append(match.captured());
                    return true;
                }));
    QCOMPARE(found, QStringList({"a1", "b2"}));
}

void SearchExpressionTest::FindsNothingWithoutText()
{
    QCOMPARE(CreateSearchRegEx("", true, true, true), QRegularExpression());
    QVERIFY(WithMatchLimit(QRegularExpression()).pattern().isEmpty());
}

void SearchExpressionTest::KeepsAFaultForItsOwner()
{
    QVERIFY(!CreateSearchRegEx("(a", true, false, true).isValid());
    QVERIFY(CreateSearchRegEx("(a", true, false, false).isValid());
    QVERIFY(!WithMatchLimit(CreateSearchRegEx("(a", true, false, true)).isValid());
    QVERIFY(DescribeFault("a[b").endsWith("(character 3)"));
    QVERIFY(DescribeFault("a[b]").isEmpty());
}

void SearchExpressionTest::GivesUpOnEndlessTrying()
{
    const QRegularExpression expression
        = WithMatchLimit(CreateSearchRegEx("(a+)+[xy]", true, false, true));
    const QString line = QString(60, 'a') + "c";
    // Once compiled by the toolkit's second way, too, which it takes after some uses.
    for (int i = 0; i < 30; ++i) {
        const QRegularExpressionMatch match = expression.match(line);
        QVERIFY(!match.hasMatch());
        QVERIFY(HasExceededMatchLimit(match));
    }
}

void SearchExpressionTest::LimitsNothingHonest()
{
    const QRegularExpression expression
        = WithMatchLimit(CreateSearchRegEx("(\\w+)\\s*=.*x", true, false, true));
    const QString line = QString(20000, 'a') + " = " + QString(20000, 'b') + "x";
    const QRegularExpressionMatch match = expression.match(line);
    QVERIFY(match.hasMatch());
    QVERIFY(!HasExceededMatchLimit(match));
    const QRegularExpressionMatch miss = expression.match("plain");
    QVERIFY(!miss.hasMatch() && !HasExceededMatchLimit(miss));
}

void SearchExpressionTest::ExpandsReplacements_data()
{
    Columns<QString, bool, QString, QString>("typed", "useExpression", "replacement", "expanded");
    Row("groups", "(\\w+)-(\\w+)", true, "\\2-\\1", "right-left");
    Row("no such group", "(\\w+)-right", true, "\\2\\1", "\\2left");
    Row("a group that took no part", "(x)?(left)", true, "<\\1\\2>", "<left>");
    Row("the match and named groups", "(?<first>l)eft", true, "<\\0\\g<first>\\g<0>>",
        "<leftlleft>");
    Row("no such name", "(l)eft", true, "\\g<x>\\g<>\\g<9>\\g", "\\g<x>\\g<>\\g<9>\\g");
    Row("line end and tab", "left", true, "a\\n\\tb", "a\n\tb");
    Row("a backslash", "(l)eft", true, "\\\\1\\\\n", "\\1\\n");
    Row("other escapes stay", "left", true, "\\d\\", "\\d\\");
    Row("a dollar is a dollar", "(left)", true, "$1", "$1");
    Row("plain search", "left", false, "\\1\\n\\\\", "\\1\\n\\\\");
}

void SearchExpressionTest::ExpandsReplacements()
{
    QFETCH(QString, typed);
    QFETCH(bool, useExpression);
    QFETCH(QString, replacement);
    QRegularExpression expression = CreateSearchRegEx(typed, true, false, useExpression);
    if (useExpression)
        expression = WithMatchLimit(expression);
    const QRegularExpressionMatch match = expression.match("left-right");
    QVERIFY(match.hasMatch());
    QTEST(ExpandReplacement(replacement, match), "expanded");
}

void SearchExpressionTest::WalksTheHistory()
{
    SearchHistory::Clear();
    SearchHistory history;
    QCOMPARE(history.GetOlder("draft"), "draft");
    for (const char* text : {"first", "second", "", "first"})
        history.Add(text);
    QCOMPARE(history.GetOlder("draft"), "first");
    QCOMPARE(history.GetOlder("first"), "second");
    QCOMPARE(history.GetOlder("second"), "second");
    QCOMPARE(history.GetNewer("second"), "first");
    QCOMPARE(history.GetNewer("first"), "draft");
    QCOMPARE(history.GetNewer("draft"), "draft");
    // With the newest text in the field the way begins behind it.
    SearchHistory another;
    QCOMPARE(another.GetOlder("first"), "second");
}

void SearchExpressionTest::SharesTheHistoryAndBoundsIt()
{
    SearchHistory::Clear();
    SearchHistory writer;
    for (int i = 0; i < 2 * SearchHistory::MAXIMUM_SIZE; ++i)
        writer.Add(QString::number(i));
    SearchHistory reader;
    QString text;
    int steps = 0;
    for (QString older = reader.GetOlder(text); older != text; older = reader.GetOlder(text)) {
        text = older;
        ++steps;
    }
    QCOMPARE(steps, SearchHistory::MAXIMUM_SIZE);
    QCOMPARE(text, QString::number(SearchHistory::MAXIMUM_SIZE));
    SearchHistory::Clear();
}

TE2_TEST(SearchExpressionTest)
#include "SearchExpressionTest.moc"
