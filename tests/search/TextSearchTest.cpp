#include "search/TextSearch.h"

#include "editor/SearchExpression.h"
#include "search/FindMatching.h"
#include "search/PlainSearch.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QtTest>

#include <random>

namespace {

QString Described(const QVector<SearchResult>& hits)
{
    QStringList lines;
    for (const SearchResult& hit : hits)
        lines.append(QString("%1+%2 %3").arg(hit.position).arg(hit.length).arg(hit.lineText));
    return lines.join('\n');
}

QByteArray Written(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    file.write(bytes);
    return bytes;
}

/// Files of everything that makes reading difficult.
QByteArray MakeBytes(std::mt19937& random)
{
    static const QByteArray PIECES[] = {"find", "Find", "FIND", "Class", "ask", "f", "in", "d", "k",
        "s", " ", "  ", "\t", "_", "(", ".", "1", "\n", "\n", "\r\n", "\r", "\r\r\n", "\xc3\xa9",
        "\xc3\x89", "\xc5\xbf", "\xe2\x84\xaa", "\xef\xbb\xbf", "\xf0\x9f\x98\x80", "\xed\xa0\x80",
        "\xe9", "\xc3", "\xff", "\xe2\x80\xa8", "\xc2\xa0", "\xef\xbf\xbd", QByteArray(1, '\0'),
        "some quite ordinary text that goes on for a while"};
    constexpr int PLAIN = 21; // of the pieces
    static const QByteArray MARKS[] = {"\xef\xbb\xbf", "\xff\xfe", "\xfe\xff",
        QByteArray("\xff\xfe\0\0", 4), QByteArray("\0\0\xfe\xff", 4)};
    const auto upTo = [&random](size_t end) { return random() % end; };
    QByteArray bytes = upTo(8) == 0 ? MARKS[upTo(std::size(MARKS))] : QByteArray();
    const size_t kinds = upTo(3) != 0 ? PLAIN : std::size(PIECES);
    for (size_t count = upTo(upTo(20) == 0 ? 2000 : 40); count > 0; --count)
        bytes += PIECES[upTo(kinds)];
    return bytes;
}

} // namespace

class TextSearchTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void FindsWhatReadingLineByLineFinds_data();
    void FindsWhatReadingLineByLineFinds();
    void ReadsOneFileAfterTheOther();
    void MarksTheHitInItsLine_data();
    void MarksTheHitInItsLine();
    void ReadsFilesOnly();
    void NeedsWhatAPatternCannotDoWithout_data();
    void NeedsWhatAPatternCannotDoWithout();
    void GivesUpOnEndlessTrying();
    void StopsWhenTold();
};

void TextSearchTest::FindsWhatReadingLineByLineFinds_data()
{
    Columns<QString, bool>("typed", "isExpression");
    const char* const TEXTS[]
        = {"find", "Class", "ask", "k", "s", "sk", "f", "text that", ".", "(", "_", "\xc3\xa9",
            "find\xc3\xa9", "\xef\xbf\xbd", "f\xef\xbb\xbf", "\xc5\xbf", "\n", "d\nf", "\r"};
    for (const char* text : TEXTS)
        Row(text, QString::fromUtf8(text), false);
    const char* const EXPRESSIONS[] = {"find|ask", "fi(nd)?", "f\\w+d", "^find", "find$", "^$", "^",
        "$", "x*", "(?<=f)in", "in(?!d)", "\\bfind", "ask\\b", "find\\s+\\w", "[fF]ind", "k?s+",
        "a{0}sk", "fi{1,2}nd", "(?i)FIND", "\\x66ind", "\\Qfind\\E", "\\sin\\s*d", "^\\s*$",
        "ask.*find", "(f)(ind)\\1", "find\\Kd", "\xc3\xa9+", "\\W", "(?#find)ask", "[[:alpha:]]sk",
        "[]f]ind", "\\."};
    for (const char* text : EXPRESSIONS)
        Row(qPrintable("expression " + QString::fromUtf8(text)), QString::fromUtf8(text), true);
}

void TextSearchTest::FindsWhatReadingLineByLineFinds()
{
    QFETCH(QString, typed);
    QFETCH(bool, isExpression);
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.py");
    std::mt19937 random(typed.size() * 7 + isExpression);
    int found = 0;
    for (int i = 0; i < 60; ++i) {
        const QByteArray bytes = Written(path, MakeBytes(random));
        const QRegularExpression expression = CreateSearchRegEx(typed, i & 1, i & 2, isExpression);
        QVERIFY(expression.isValid());
        const QVector<SearchResult> expected = PlainSearch::InFile(path, expression);
        QVERIFY2(Described(FindMatchingInFile(path, expression)) == Described(expected),
            bytes.toPercentEncoding(" \n"));
        const QString text = QString::fromUtf8(bytes);
        QVERIFY2(Described(FindMatchingInText(path, "a.py", text, expression))
                == Described(PlainSearch::InText(text, expression)),
            bytes.toPercentEncoding(" \n"));
        found += expected.size();
    }
    // Line ends are no part of any line.
    QCOMPARE(found > 0, !typed.contains('\n') && !typed.contains('\r'));
}

/// One search has a buffer and an expression for all files.
void TextSearchTest::ReadsOneFileAfterTheOther()
{
    const QTemporaryDir folder;
    const QRegularExpression expression = CreateSearchRegEx("find", false, false, false);
    TextSearch search(expression, nullptr);
    std::mt19937 random(5);
    for (int i = 0; i < 300; ++i) {
        const QByteArray bytes = Written(folder.filePath("a"), MakeBytes(random));
        QCOMPARE(Described(search.SearchBytes(bytes.begin(), bytes.end())),
            Described(PlainSearch::InFile(folder.filePath("a"), expression)));
    }
}

void TextSearchTest::MarksTheHitInItsLine_data()
{
    // "marked": as they stand in the line
    Columns<QString, QByteArray, QStringList>("typed", "bytes", "marked");
    using L = QStringList;
    Row("plain", "ab", QByteArray("\t ab  ab \n"), L{"ab", "ab"});
    Row("expression", "a.", QByteArray("\t \xc3\xa9 ab ac\n"), L{"ab", "ac"});
    Row("blanks before", "\\s+ab", QByteArray("  ab\n"), L{"ab"});
    Row("blanks behind", "ab\\s+", QByteArray("  ab  \n"), L{"ab"});
}

void TextSearchTest::MarksTheHitInItsLine()
{
    QFETCH(QString, typed);
    QFETCH(QByteArray, bytes);
    TextSearch search(CreateSearchRegEx(typed, true, false, true), nullptr);
    QStringList marked;
    for (const SearchResult& hit : search.SearchBytes(bytes.begin(), bytes.end())) {
        const int from = qMax(0, hit.column);
        marked.append(hit.lineText.mid(from, hit.column + hit.length - from));
    }
    QTEST(marked, "marked");
}

void TextSearchTest::ReadsFilesOnly()
{
    const QTemporaryDir folder;
    const QRegularExpression any(".*");
    QVERIFY(FindMatchingInFile(folder.path(), any).isEmpty());
    QVERIFY(FindMatchingInFile(folder.filePath("missing"), any).isEmpty());
    QVERIFY(FindMatchingInFile("/dev/zero", any).isEmpty());
    Written(folder.filePath("a.py"), "abc\n");
    const QVector<SearchResult> hits
        = FindMatchingInFile(folder.filePath("a.py"), QRegularExpression("b"));
    QCOMPARE(hits.size(), 1);
    QCOMPARE(hits[0].filePath, folder.filePath("a.py"));
    QCOMPARE(hits[0].fileName, "a.py");
    QVERIFY(FindMatchingInFile(folder.filePath("a.py"), QRegularExpression()).isEmpty());
    QVERIFY(FindMatchingInFile(folder.filePath("a.py"), QRegularExpression("(")).isEmpty());
}

void TextSearchTest::NeedsWhatAPatternCannotDoWithout_data()
{
    Columns<QString, QStringList>("pattern", "texts");
    using L = QStringList;
    Row("text", "abc", L{"abc"});
    Row("escaped", "a\\.b\\(", L{"a.b("});
    Row("one of several", "abc|d", L{});
    Row("one of several in a group", "x(a|b)yz", L{"x", "yz"});
    Row("optional", "abc?d", L{"ab", "d"});
    Row("repeated", "abc+d", L{"abc", "d"});
    Row("counted", "abc{2,3}d", L{"ab", "d"});
    Row("no count", "{,3}d", L{"d"});
    Row("classes", "def\\s+_\\w+\\(self", L{"def", "_", "(self"});
    Row("set", "a[b\\]c]d", L{"a", "d"});
    Row("brackets in a set", "(?:[)]|x)y", L{"y"});
    Row("numbered character", "a\\x62", L{});
    Row("options", "a(?i)b", L{});
    Row("not ahead", "a(?!bc)d", L{"a", "d"});
    Row("accepted early", "a(*ACCEPT)b", L{});
}

void TextSearchTest::NeedsWhatAPatternCannotDoWithout()
{
    QFETCH(QString, pattern);
    QTEST(RequiredLiterals::Of(QRegularExpression(pattern)).texts, "texts");
}

void TextSearchTest::GivesUpOnEndlessTrying()
{
    TextSearch search(CreateSearchRegEx("(a+)+[xy]b", true, false, true), nullptr);
    const QByteArray endless = "axb\n" + QByteArray(200, 'a') + "b\naxb\n";
    QCOMPARE(search.SearchBytes(endless.begin(), endless.end()).size(), 1);
    QVERIFY(search.HasGivenUp());
    const QByteArray honest = "axb\n";
    QCOMPARE(search.SearchBytes(honest.begin(), honest.end()).size(), 1);
    QVERIFY(!search.HasGivenUp());
    search.SearchText(QString::fromLatin1(endless));
    QVERIFY(search.HasGivenUp());
}

void TextSearchTest::StopsWhenTold()
{
    TextSearch search(QRegularExpression("."), nullptr);
    search.SetPoll([] { return false; });
    const QByteArray bytes = QByteArray("a\n").repeated(100000);
    QVERIFY(search.SearchBytes(bytes.begin(), bytes.end()).size() < 1000);
    QVERIFY(search.SearchText(bytes).size() < 1000);
}

TE2_TEST(TextSearchTest)
#include "TextSearchTest.moc"
