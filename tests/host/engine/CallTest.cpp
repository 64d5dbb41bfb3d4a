#include "engine/CommandRegistry.h"
#include "support/TestMain.h"

#include <QtTest>

using namespace host;

Q_DECLARE_METATYPE(QVector<host::Word>)

namespace {

Outcome Nothing(Call&)
{
    return {};
}

const CommandRow ROW = {"gadget", "string", "QE", "[String...]",
    "label/l str cqe; size/s int float cqem; fast/f - cqe; on/o B cqe; list/ls str[] cqv;"
    "command/c script cqe; count/n uint c; alone/al - q",
    Nothing};
const CommandRow ONE_OBJECT = {"single", "none", "", "Int", "verbose/v - c", Nothing};
const CommandRow EVENT = {"listener", "int", "", "", "event/e str script c", Nothing};

Word Text(const char* text)
{
    return {QString(text), {}, false, {}};
}

Word Number(double number)
{
    return {number, {}, false, {}};
}

/// "-l" becomes a flag, digits a number, "on" a number with its spelling, the rest text.
QVector<Word> MelWords(const QString& line)
{
    QVector<Word> words;
    for (const QString& word : line.split(' ', Qt::SkipEmptyParts)) {
        bool isNumber = false;
        const int number = word.toInt(&isNumber);
        if (isNumber)
            words += Word{number, word, false, {}};
        else if (word == "on" || word == "off")
            words += Word{word == "on" ? 1 : 0, word, false, {}};
        else if (word.startsWith('-'))
            words += Word::FlagNamed(word.mid(1));
        else
            words += Word{word, {}, false, {}};
    }
    return words;
}

class SomeFunction : public Callable
{
public:
    Outcome Call(const QVector<Value>&) override { return {}; }
    QString Description() const override { return "<function build>"; }
};

} // namespace

/// How MEL words and Python arguments become one and the same checked call.
class CallTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void MelErrorsNameTheFlag_data();
    void MelErrorsNameTheFlag();
    void FlagsStandAnywhereAmongObjects();
    void RepeatedFlagsKeepTheirOrder();
    void QueriesTakeNoValues();
    void AQueryListMayStandEmpty();
    void AListRunsToTheNextFlagAndSpreadsArrays();
    void WordsForYesAndNo();
    void ObjectsWantedAsTextKeepTheirSpelling();
    void ArraysSpreadOverTheObjects();
    void ObjectCountsAreChecked_data();
    void ObjectCountsAreChecked();
    void ShortNameOfAFlagMayBeThatOfAMode();
    void PythonErrorsSpeakPython_data();
    void PythonErrorsSpeakPython();
    void PythonFalseLeavesAPlainFlagOut();
    void PythonQueryMayCarryTheName();
    void PythonRepeatsFlagsWithLists();
    void PythonFunctionsAreScripts();
    void MissingArgumentsReadAsNothing();

private:
    const Command m_command{ROW};
};

void CallTest::MelErrorsNameTheFlag_data()
{
    Columns<QString, QString>("line", "error");
    Row("unknown", "-foo 1", "Invalid flag '-foo'");
    Row("no abbreviation", "-lab x", "Invalid flag '-lab'");
    Row("missing value", "-label", "Flag '-label' must be passed a string argument");
    Row("flag instead of value", "-label -fast", "Flag '-label' must be passed a string argument");
    Row("second value missing", "-size 5", "Flag '-size' must be passed a double argument");
    Row("text for a number", "-size wide 2", "Flag '-size' must be passed a int argument");
    Row("text for a boolean", "-on maybe", "Flag '-on' must be passed a boolean argument");
    Row("negative count", "-count -3", "Flag '-count' must be passed a int argument");
    Row("both modes", "-q -e -label", "Cannot edit and query at the same time");
    Row("no such query", "-q -count", "Flag '-count' cannot be used in query mode.");
}

void CallTest::MelErrorsNameTheFlag()
{
    QFETCH(QString, line);
    const ReadCall read = ReadWords(m_command, MelWords(line));
    QVERIFY(read.error);
    QTEST(read.error->text, "error");
}

void CallTest::FlagsStandAnywhereAmongObjects()
{
    const ReadCall read = ReadWords(m_command, MelWords("first -l Title second -fast third"));
    QVERIFY(!read.error);
    QCOMPARE(read.call.ObjectTexts(), (QStringList{"first", "second", "third"}));
    QCOMPARE(read.call.Text("label"), "Title");
    QVERIFY(read.call.Bool("fast"));
    QVERIFY(read.call.IsCreate());
}

void CallTest::RepeatedFlagsKeepTheirOrder()
{
    const ReadCall read = ReadWords(m_command, MelWords("-s 1 2 -fast -size 3 4"));
    QCOMPARE(read.call.UseCount("size"), 2);
    QCOMPARE(read.call.Int("size", 0, 1), 3);
    QCOMPARE(read.call.Float("size", 1, 1), 4.0);
    QCOMPARE(read.call.Texts("size"), (QStringList{"1", "2", "3", "4"}));
    QCOMPARE(read.call.GivenFlags(), (QStringList{"size", "fast"}));
}

void CallTest::QueriesTakeNoValues()
{
    // The mode counts wherever it stands.
    for (const char* line : {"-q -size thing", "-size thing -query", "thing -s -q"}) {
        const ReadCall read = ReadWords(m_command, MelWords(line));
        QVERIFY2(!read.error, line);
        QVERIFY(read.call.IsQuery());
        QVERIFY(read.call.Has("size"));
        QCOMPARE(read.call.ObjectTexts(), QStringList{"thing"});
    }
}

void CallTest::AQueryListMayStandEmpty()
{
    QVERIFY(!ReadWords(m_command, MelWords("-q -list")).error);
    QCOMPARE(
        ReadWords(m_command, MelWords("-q -list a b")).call.Texts("list"), (QStringList{"a", "b"}));
}

void CallTest::AListRunsToTheNextFlagAndSpreadsArrays()
{
    QVector<Word> words = MelWords("-ls a b -fast rest");
    QCOMPARE(ReadWords(m_command, words).call.Texts("list"), (QStringList{"a", "b"}));
    words = MelWords("-ls a");
    words += Word{StringList{"b", "c"}, {}, false, {}};
    const ReadCall read = ReadWords(m_command, words);
    QVERIFY(!read.error);
    QCOMPARE(read.call.Texts("list"), (QStringList{"a", "b", "c"}));
}

void CallTest::WordsForYesAndNo()
{
    for (const char* yes : {"on", "yes", "true", "1", "2"})
        QVERIFY2(ReadWords(m_command, MelWords(QString("-on ") + yes)).call.Bool("on"), yes);
    for (const char* no : {"off", "no", "false", "0"}) {
        const ReadCall read = ReadWords(m_command, MelWords(QString("-on ") + no));
        QVERIFY2(!read.error && !read.call.Bool("on"), no);
    }
    QVERIFY(!ReadWords(m_command, {}).call.Bool("on"));
}

void CallTest::ObjectsWantedAsTextKeepTheirSpelling()
{
    const ReadCall read = ReadWords(m_command, MelWords("-label 007 on"));
    QCOMPARE(read.call.Text("label"), "007");
    QCOMPARE(read.call.ObjectText(0), "on");
}

void CallTest::ArraysSpreadOverTheObjects()
{
    QVector<Word> words = MelWords("a");
    words += Word{StringList{"b", "c"}, {}, false, {}};
    words += Word{StringList(), {}, false, {}};
    QCOMPARE(ReadWords(m_command, words).call.ObjectTexts(), (QStringList{"a", "b", "c"}));
}

void CallTest::ObjectCountsAreChecked_data()
{
    Columns<QString, QString>("line", "error");
    Row("one too many", "1 2", "Too many objects or values.");
    Row("none", "-v",
        "This command requires at least 1 argument(s) to be specified or "
        "selected; found 0.");
    Row("wrong type", "abc", "Error while parsing arguments.");
    Row("right", "-v 5", "");
}

void CallTest::ObjectCountsAreChecked()
{
    QFETCH(QString, line);
    const ReadCall read = ReadWords(Command(ONE_OBJECT), MelWords(line));
    QTEST(read.error ? read.error->text : QString(), "error");
}

void CallTest::ShortNameOfAFlagMayBeThatOfAMode()
{
    const Command command(EVENT);
    const ReadCall read = ReadWords(command, MelWords("-e idle act"));
    QVERIFY(!read.error);
    QVERIFY(read.call.IsCreate());
    QCOMPARE(read.call.GetScript("event", 1).text, "act");
}

void CallTest::PythonErrorsSpeakPython_data()
{
    Columns<QString, QVector<Word>, QString>("name", "use", "error");
    Row("unknown", "foo", QVector<Word>{Number(1)}, "Invalid flag 'foo'");
    Row("text for a number, by the name that was used", "count", QVector<Word>{Text("x")},
        "Invalid arguments for flag 'count'.  Expected int, got str");
    Row("none for text", "l", QVector<Word>{Word()},
        "Invalid arguments for flag 'l'.  Expected str, got NoneType");
    Row("one value of two", "size", QVector<Word>{Number(1)},
        "Invalid arguments for flag 'size'.  Expected ( int, "
        "float ), got float");
    Row("two values of one", "label", QVector<Word>{Text("a"), Text("b")},
        "Invalid arguments for flag 'label'.  Expected str, got str");
}

void CallTest::PythonErrorsSpeakPython()
{
    QFETCH(QString, name);
    QFETCH(QVector<Word>, use);
    const ReadCall read = ReadKeywords(m_command, {}, {{name, {use}}});
    QVERIFY(read.error);
    QTEST(read.error->text, "error");
    QCOMPARE(read.error->kind, ErrorKind::Type);
}

void CallTest::PythonFalseLeavesAPlainFlagOut()
{
    const Word no{false, {}, false, {}};
    QVERIFY(!ReadKeywords(m_command, {}, {{"fast", {{no}}}}).call.Has("fast"));
    QVERIFY(ReadKeywords(m_command, {}, {{"query", {{no}}}}).call.IsCreate());
    const ReadCall read = ReadKeywords(m_command, {}, {{"on", {{no}}}});
    QVERIFY(read.call.Has("on"));
    QVERIFY(!read.call.Bool("on"));
}

void CallTest::PythonQueryMayCarryTheName()
{
    const Word yes{true, {}, false, {}};
    const ReadCall named = ReadKeywords(m_command, {}, {{"q", {{Text("thing")}}}});
    QVERIFY(!named.error);
    QVERIFY(named.call.IsQuery());
    QCOMPARE(named.call.ObjectTexts(), QStringList{"thing"});
    const ReadCall plain
        = ReadKeywords(m_command, {Text("thing")}, {{"size", {{yes}}}, {"query", {{yes}}}});
    QVERIFY(!plain.error);
    QVERIFY(plain.call.IsQuery() && plain.call.Has("size"));
    QCOMPARE(plain.call.ObjectTexts(), QStringList{"thing"});
}

void CallTest::PythonRepeatsFlagsWithLists()
{
    const ReadCall read
        = ReadKeywords(m_command, {}, {{"size", {{Number(1), Number(2)}, {Number(3), Number(4)}}}});
    QVERIFY(!read.error);
    QCOMPARE(read.call.UseCount("size"), 2);
    QCOMPARE(read.call.Float("size", 1, 1), 4.0);
}

void CallTest::PythonFunctionsAreScripts()
{
    Word function;
    function.callable = std::make_shared<SomeFunction>();
    const ReadCall read = ReadKeywords(m_command, {}, {{"command", {{function}}}});
    QVERIFY(!read.error);
    QCOMPARE(read.call.GetScript("command").Description(), "<function build>");
    QVERIFY(ReadKeywords(m_command, {}, {{"label", {{function}}}}).error);
    // Text given from Python is a script in Python.
    const ReadCall text = ReadKeywords(m_command, {}, {{"command", {{Text("go()")}}}});
    QCOMPARE(text.call.GetScript("command").language, Language::Python);
}

void CallTest::MissingArgumentsReadAsNothing()
{
    const ReadCall read = ReadWords(m_command, MelWords("-q -size"));
    QVERIFY(read.call.Argument("size").IsNone());
    QVERIFY(read.call.Argument("size", 1, 7).IsNone());
    QCOMPARE(read.call.Int("count"), 0);
    QVERIFY(read.call.GetScript("command").IsEmpty());
    QCOMPARE(read.call.ObjectText(3), QString());
}

TE2_TEST(CallTest)
#include "CallTest.moc"
