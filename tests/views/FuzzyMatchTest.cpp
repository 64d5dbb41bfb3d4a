#include "views/goto/FuzzyMatch.h"

#include "support/TestMain.h"
#include "views/goto/GoToFilter.h"

#include <QRandomGenerator>
#include <QtTest>

using namespace FuzzyMatch;

class FuzzyMatchTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Scores_data();
    void Scores();
    void AgreesWithTryingEverything();
    void FiltersAsIfAnew();
    void TellsTheBestInOrder();
};

namespace {

bool IsStart(const QString& text, int index)
{
    if (index == 0)
        return true;
    const QChar before = text[index - 1];
    return QString("/_-. ").contains(before) || (before.isLower() && text[index].isUpper());
}

/// What one way to place a word's letters counts.
int Count(const QString& text, int nameStart, const QVector<int>& hits)
{
    int score = 0;
    int skipped = 0;
    for (int i = 0; i < hits.size(); ++i) {
        score += IsStart(text, hits[i]) ? 8 : 0;
        score += hits[i] >= nameStart ? 3 : 0;
        if (i == 0)
            continue;
        score += hits[i] == hits[i - 1] + 1 ? 5 : 0;
        skipped += hits[i] - hits[i - 1] - 1;
    }
    return score - qMin(skipped, 10);
}

/// The best of all ways.
int TryEverything(
    const QString& word, bool matchCase, const QString& text, int nameStart, QVector<int>& hits)
{
    if (hits.size() == word.size())
        return Count(text, nameStart, hits);
    int best = NO_MATCH;
    for (int i = hits.isEmpty() ? 0 : hits.last() + 1; i < text.size(); ++i) {
        const QChar found = matchCase ? text[i] : text[i].toLower();
        if (found != word[hits.size()])
            continue;
        hits.append(i);
        best = qMax(best, TryEverything(word, matchCase, text, nameStart, hits));
        hits.removeLast();
    }
    return best;
}

int Reference(const QString& typed, const QString& text, int nameStart)
{
    const bool matchCase = typed != typed.toLower();
    int sum = 0;
    for (const QString& word : typed.split(' ', Qt::SkipEmptyParts)) {
        QVector<int> hits;
        const int score = TryEverything(word, matchCase, text, nameStart, hits);
        if (score == NO_MATCH)
            return NO_MATCH;
        sum += score;
    }
    return sum;
}

QString Generated(QRandomGenerator& random, const char* letters, int longest)
{
    const QString alphabet(letters);
    QString text;
    for (int length = random.bounded(1, longest + 1); length > 0; --length)
        text += alphabet[random.bounded(alphabet.size())];
    return text;
}

} // namespace

void FuzzyMatchTest::Scores_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("nameStart");
    QTest::addColumn<int>("score");
    QTest::addColumn<QVector<int>>("hits");
    const auto row = [](const char* name, const char* typed, const char* text, int nameStart,
                         int score, const QVector<int>& hits) {
        QTest::newRow(name) << typed << text << nameStart << score << hits;
    };
    // clang-format off
    row("nothing typed",           "",      "abc",         0, 0,             {});
    row("start of the name",       "a",     "abc",         0, 8 + 3,         {0});
    row("in the folder",           "a",     "abc/x",       4, 8,             {0});
    row("inside of a word",        "b",     "abc",         0, 3,             {1});
    row("one behind the other",    "bc",    "abc",         0, 3 + 3 + 5,     {1, 2});
    row("skipped",                 "ac",    "xabc",        0, 3 + 3 - 1,     {1, 3});
    row("skips count to ten",      "ac",    "xabbbbbbbbbbbbbc", 0, 6 - 10,   {1, 15});
    row("word starts",             "gtf",   "go_to.file",  0, 33 - 4,        {0, 3, 6});
    row("after a step",            "lf",    "goLineFind",  0, 22 - 3,        {2, 6});
    row("the later run is better", "abc",   "a/b/xabc",    4, 9 + 10,        {5, 6, 7});
    row("case counts",             "lF",    "goLFlF",      0, 3 + 3 + 5 + 8, {4, 5});
    row("case does not",           "LF",    "xlf",         0, NO_MATCH,      {});
    row("words in any order",      "b a",   "ab",          0, 3 + 11,        {0, 1});
    row("a word that is not",      "a c",   "ab",          0, NO_MATCH,      {});
    row("not in this order",       "ba",    "ab",          0, NO_MATCH,      {});
    row("umlauts fold",            "\u00e4", "x\u00c4",    0, 8 + 3,         {1});
    row("longer than the text",    "aaa",   "aa",          0, NO_MATCH,      {});
    // clang-format on
}

void FuzzyMatchTest::Scores()
{
    QFETCH(QString, typed);
    QFETCH(QString, text);
    QFETCH(int, nameStart);
    const Pattern pattern(typed);
    QTEST(Score(pattern, text, nameStart), "score");
    QTEST(Hits(pattern, text, nameStart), "hits");
}

void FuzzyMatchTest::AgreesWithTryingEverything()
{
    QRandomGenerator random(7);
    int matches = 0;
    for (int round = 0; round < 20000; ++round) {
        const QString text = Generated(random, "aabbAB/_. ", 18);
        const QString typed = Generated(random, round % 3 ? "aab" : "abA ", 4);
        const int nameStart = text.lastIndexOf('/') + 1;
        const int expected = Reference(typed, text, nameStart);
        const Pattern pattern(typed);
        const QByteArray what = QString("'%1' in '%2'").arg(typed, text).toUtf8();
        QVERIFY2(Score(pattern, text, nameStart) == expected, what);
        if (expected == NO_MATCH || pattern.words.size() != 1)
            continue;
        // The hits are a way that counts as much.
        QVERIFY2(Count(text, nameStart, Hits(pattern, text, nameStart)) == expected, what);
        ++matches;
    }
    QVERIFY(matches > 1000);
}

void FuzzyMatchTest::FiltersAsIfAnew()
{
    QRandomGenerator random(11);
    QVector<GoToEntry> entries(3000);
    for (GoToEntry& entry : entries)
        entry.text = Generated(random, "abcdAB/_", 20);
    GoToFilter filter;
    for (const char* typed : {"a", "ab", "ab ", "ab c", "ab cA", "ab c", "d", ""}) {
        filter.SetText(typed, entries);
        for (int i = 0; i < 5; ++i) {
            entries.append(entries[i]);
            filter.Extend(entries);
        }
        GoToFilter fresh;
        fresh.SetText(typed, entries);
        QCOMPARE(filter.GetBest(), fresh.GetBest());
    }
}

void FuzzyMatchTest::TellsTheBestInOrder()
{
    QVector<GoToEntry> entries(500);
    for (int i = 0; i < entries.size(); ++i)
        entries[i].text = i % 100 == 50 ? "best" : "xbest";
    entries[0].onlyWhenTyped = true;
    GoToFilter filter;
    filter.SetText(QString(), entries);
    QCOMPARE(filter.GetBest().size(), GoToFilter::MAXIMUM_MATCHES);
    QCOMPARE(filter.GetBest().first(), 1);
    filter.SetText("best", entries);
    const QVector<int> best = filter.GetBest();
    QCOMPARE(best.size(), GoToFilter::MAXIMUM_MATCHES);
    QCOMPARE(best.mid(0, 7), QVector<int>({50, 150, 250, 350, 450, 0, 1}));
}

TE2_TEST(FuzzyMatchTest)
#include "FuzzyMatchTest.moc"
