#include "host/api/ApiFixture.h"
#include "support/TestMain.h"

#include <maya/MArgDatabase.h>
#include <maya/MArgList.h>
#include <maya/MSyntax.h>

#include <QtTest>

namespace {

MSyntax ExampleSyntax()
{
    MSyntax syntax;
    syntax.addFlag("-of", "-openFile", MSyntax::kString);
    syntax.addFlag("-l", "-limit", MSyntax::kDouble);
    syntax.addFlag("-v", "-version");
    syntax.addFlag("-p", "-point", MSyntax::kDouble, MSyntax::kDouble);
    syntax.makeFlagMultiUse("-point");
    syntax.addArg(MSyntax::kLong);
    syntax.addArg(MSyntax::kString);
    return syntax;
}

/// Words as a script gives them: numbers as numbers, the rest as text.
MArgList Words(const QString& text)
{
    MArgList list;
    for (const QString& word : text.split(' ', Qt::SkipEmptyParts)) {
        bool isInt = false;
        const int number = word.toInt(&isInt);
        if (isInt)
            list.addArg(number);
        else
            list.addArg(MString(word.toUtf8().constData()));
    }
    return list;
}

} // namespace

/// MSyntax, MArgList and the parsers.
class ArgumentsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_host = std::make_unique<ApiFixture>(); }
    void cleanup() { m_host.reset(); }

    void ChecksTheNamesOfFlags_data();
    void ChecksTheNamesOfFlags();
    void ObjectsAndArgumentsExcludeEachOther();
    void FindsFlagsByEitherName();
    void ConvertsNumbersToTheTypeAskedFor();
    void ReadsPositionalArguments();
    void ReadsEveryUseOfAFlag();
    void RefusesWhatDoesNotFit_data();
    void RefusesWhatDoesNotFit();
    void QueriesTakeNoArguments();
    void ListsConvertTheirWords();
    void ListsReadRunsOfNumbers();
    void ListsFindFlags();

private:
    std::unique_ptr<ApiFixture> m_host;
};

void ArgumentsTest::ChecksTheNamesOfFlags_data()
{
    Columns<QByteArray, QByteArray, bool>("shortName", "longName", "accepted");
    Row("usual", QByteArray("-n"), QByteArray("-name"), true);
    Row("three and four", QByteArray("-abc"), QByteArray("-abcd"), true);
    Row("without dashes", QByteArray("n"), QByteArray("name"), true);
    Row("edit is free while edit is off", QByteArray("-e"), QByteArray("-enabled"), true);
    Row("short too long", QByteArray("-abcd"), QByteArray("-abcde"), false);
    Row("long too short", QByteArray("-n"), QByteArray("-nam"), false);
    Row("no short", QByteArray("-"), QByteArray("-name"), false);
    Row("taken", QByteArray("-t"), QByteArray("-other"), false);
}

void ArgumentsTest::ChecksTheNamesOfFlags()
{
    QFETCH(QByteArray, shortName);
    QFETCH(QByteArray, longName);
    QFETCH(bool, accepted);
    MSyntax syntax;
    QVERIFY(syntax.addFlag("-t", "-taken"));
    const MStatus status = syntax.addFlag(shortName.constData(), longName.constData());
    QCOMPARE(status.statusCode(), accepted ? MS::kSuccess : MS::kFailure);
    if (!accepted)
        QCOMPARE(status.errorString().asChar(), "(kFailure): Unexpected Internal Failure");
}

void ArgumentsTest::ObjectsAndArgumentsExcludeEachOther()
{
    MSyntax objects;
    QVERIFY(objects.setObjectType(MSyntax::kStringObjects, 1, 2));
    QVERIFY(!objects.addArg(MSyntax::kLong));
    MSyntax arguments;
    QVERIFY(arguments.addArg(MSyntax::kLong));
    QVERIFY(!arguments.setObjectType(MSyntax::kStringObjects));
    QVERIFY(!objects.setObjectType(MSyntax::kStringObjects, 3, 2));
    QCOMPARE(objects.maxObjects(), 2u);
}

void ArgumentsTest::FindsFlagsByEitherName()
{
    MStatus status;
    const MArgDatabase arguments(ExampleSyntax(), Words("3 x -openFile a.py"), &status);
    QVERIFY(status);
    for (const char* name : {"-of", "-openFile", "of", "openFile"})
        QVERIFY2(arguments.isFlagSet(name), name);
    QVERIFY(!arguments.isFlagSet("-version"));
    QVERIFY(!arguments.isFlagSet("-open", &status));
    QCOMPARE(status.statusCode(), MS::kInvalidParameter);
    QCOMPARE(arguments.numberOfFlagsUsed(), 1u);
    QCOMPARE(arguments.flagArgumentString("-of", 0).asChar(), "a.py");
}

void ArgumentsTest::ConvertsNumbersToTheTypeAskedFor()
{
    const MArgParser arguments(ExampleSyntax(), Words("3 12 -l 2.75 -of 40"));
    int whole = 0;
    double real = 0;
    bool yes = false;
    MString text;
    QVERIFY(arguments.getFlagArgument("-l", 0, whole));
    QVERIFY(arguments.getFlagArgument("limit", 0, real));
    QVERIFY(arguments.getFlagArgument("limit", 0, yes));
    QVERIFY(arguments.getFlagArgument("-l", 0, text));
    QCOMPARE(whole, 2);
    QCOMPARE(real, 2.75);
    QVERIFY(yes);
    QCOMPARE(text.asChar(), "2.75");
    QVERIFY(arguments.getFlagArgument("-of", 0, whole));
    QCOMPARE(whole, 40);
    QVERIFY(!arguments.getFlagArgument("-l", 1, whole));
    QVERIFY(!arguments.getFlagArgument("-p", 0, whole));
    QCOMPARE(whole, 40);
}

void ArgumentsTest::ReadsPositionalArguments()
{
    const MArgParser arguments(ExampleSyntax(), Words("-v 3 word"));
    MStatus status;
    QCOMPARE(arguments.commandArgumentInt(0, &status), 3);
    QVERIFY(status);
    QCOMPARE(arguments.commandArgumentString(1).asChar(), "word");
    QCOMPARE(arguments.commandArgumentInt(1, &status), 0);
    QVERIFY(!status);
    arguments.commandArgumentString(2, &status);
    QVERIFY(!status);
}

void ArgumentsTest::ReadsEveryUseOfAFlag()
{
    const MArgParser arguments(ExampleSyntax(), Words("1 x -p 1 2 -v -point 3 4.5"));
    QCOMPARE(arguments.numberOfFlagUses("-p"), 2u);
    MArgList use;
    QVERIFY(arguments.getFlagArgumentList("-p", 1, use));
    QCOMPARE(use.length(), 2u);
    QCOMPARE(use.asDouble(1), 4.5);
    unsigned int position = 0;
    QVERIFY(arguments.getFlagArgumentPosition("-p", 1, position));
    QCOMPARE(position, 6u);
    QVERIFY(!arguments.getFlagArgumentList("-p", 2, use));
    QVERIFY(!arguments.getFlagArgumentPosition("-p", 2, position));
}

void ArgumentsTest::RefusesWhatDoesNotFit_data()
{
    Columns<QString, QString>("words", "error");
    Row("unknown flag", "1 x -xyz", "Invalid flag '-xyz'");
    Row("abbreviated flag", "1 x -ver", "Invalid flag '-ver'");
    Row("missing argument", "1 x -of", "Flag '-openFile' must be passed a string argument");
    Row("wrong argument", "1 x -l many", "Flag '-limit' must be passed a double argument");
    Row("wrong position", "one x", "Error while parsing arguments.");
    Row("too many", "1 x y", "Too many objects or values.");
}

void ArgumentsTest::RefusesWhatDoesNotFit()
{
    QFETCH(QString, words);
    QFETCH(QString, error);
    MStatus status;
    const MArgDatabase arguments(ExampleSyntax(), Words(words), &status);
    QCOMPARE(status.statusCode(), MS::kFailure);
    QCOMPARE(m_host->Texts(host::MessageType::Error), QStringList{error});
}

void ArgumentsTest::QueriesTakeNoArguments()
{
    MSyntax syntax = ExampleSyntax();
    syntax.enableQuery();
    MStatus status;
    const MArgDatabase query(syntax, Words("-q -limit"), &status);
    QVERIFY(status);
    QVERIFY(query.isQuery() && !query.isEdit() && query.isFlagSet("-l"));
    syntax.makeFlagQueryWithFullArgs("-limit", false);
    const MArgDatabase withArgument(syntax, Words("-limit 5 -q"), &status);
    QVERIFY(status);
    QCOMPARE(withArgument.flagArgumentInt("-limit", 0), 5);
}

void ArgumentsTest::ListsConvertTheirWords()
{
    MArgList list;
    list.addArg(MString("12"));
    list.addArg(2.5);
    list.addArg(MString("on"));
    list.addArg(true);
    list.addArg(MString("word"));
    MStatus status;
    QCOMPARE(list.asInt(0, &status), 12);
    QVERIFY(status);
    QCOMPARE(list.asInt(1), 2);
    QCOMPARE(list.asString(1).asChar(), "2.5");
    QVERIFY(list.asBool(2));
    QCOMPARE(list.asInt(3), 1);
    list.asInt(4, &status);
    QCOMPARE(status.statusCode(), MS::kFailure);
    list.asString(5, &status);
    QCOMPARE(status.statusCode(), MS::kFailure);
    double number = 3;
    QVERIFY(!list.get(4, number));
    QCOMPARE(number, 3.0);
}

void ArgumentsTest::ListsReadRunsOfNumbers()
{
    const MArgList list = Words("1 2 3 x 4 -f");
    unsigned int index = 1;
    MStatus status;
    QCOMPARE(list.asIntArray(index, &status).length(), 2u);
    QCOMPARE(index, 3u);
    QVERIFY(status);
    list.asIntArray(index, &status);
    QVERIFY(!status);
    const MStringArray texts = list.asStringArray(index);
    QCOMPARE(texts.length(), 2u);
    QCOMPARE(index, 5u);
}

void ArgumentsTest::ListsFindFlags()
{
    const MArgList list = Words("name -n x -longer");
    QCOMPARE(list.flagIndex("n", "name"), 1u);
    QCOMPARE(list.flagIndex("-l", "-longer"), 3u);
    QCOMPARE(list.flagIndex("long"), MArgList::kInvalidArgIndex);
}

TE2_TEST(ArgumentsTest)
#include "ArgumentsTest.moc"
