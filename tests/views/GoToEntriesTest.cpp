#include "views/goto/GoToEntries.h"

#include "support/TestMain.h"

#include <QtTest>

#include <limits>

using namespace GoToEntries;

class GoToEntriesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ReadsLines_data();
    void ReadsLines();
    void ReadsPlacesBehindNames_data();
    void ReadsPlacesBehindNames();
    void ShowsFilesFromTheirFolder();
    void TellsWhereSymbolsAre();
};

/// With the cursor in line 50 of 100.
void GoToEntriesTest::ReadsLines_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("column");
    // clang-format off
    QTest::newRow("line")          << "12"          << 12  << 0;
    QTest::newRow("column")        << "12:8"        << 12  << 8;
    QTest::newRow("column to be")  << "12:"         << 12  << 0;
    QTest::newRow("blanks")        << " 12 "        << 12  << 0;
    QTest::newRow("down")          << "+20"         << 70  << 0;
    QTest::newRow("up")            << "-20:3"       << 30  << 3;
    QTest::newRow("too far down")  << "+51"         << 100 << 0;
    QTest::newRow("too far up")    << "-50"         << 1   << 0;
    QTest::newRow("too far")       << "101"         << 100 << 0;
    QTest::newRow("huge")          << "99999999999" << 100 << 0;
    QTest::newRow("huge down")     << "+99999999999" << 100 << 0;
    QTest::newRow("huge column")   << "3:99999999999" << 3 << std::numeric_limits<int>::max();
    QTest::newRow("nothing")       << ""            << 0   << 0;
    QTest::newRow("null")          << "0"           << 0   << 0;
    QTest::newRow("sign alone")    << "-"           << 0   << 0;
    QTest::newRow("letters")       << "1a"          << 0   << 0;
    QTest::newRow("column alone")  << ":8"          << 0   << 0;
    // clang-format on
}

void GoToEntriesTest::ReadsLines()
{
    QFETCH(QString, text);
    const FilePlace place = ParseLine(text, 50, 100);
    QTEST(place.line, "line");
    QTEST(place.column, "column");
}

void GoToEntriesTest::ReadsPlacesBehindNames_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("column");
    QTest::newRow("name") << "a.py"
                          << "a.py" << 0 << 0;
    QTest::newRow("line") << "a.py:120"
                          << "a.py" << 120 << 0;
    QTest::newRow("column") << "a.py:120:8"
                            << "a.py" << 120 << 8;
    QTest::newRow("line to be") << "a.py:"
                                << "a.py" << 0 << 0;
    QTest::newRow("column to be") << "a.py:120:"
                                  << "a.py" << 120 << 0;
    QTest::newRow("no number") << "a:b"
                               << "a:b" << 0 << 0;
}

void GoToEntriesTest::ReadsPlacesBehindNames()
{
    QFETCH(QString, text);
    const FilePlace place = ParseFilePlace(text);
    QTEST(place.name, "name");
    QTEST(place.line, "line");
    QTEST(place.column, "column");
}

void GoToEntriesTest::ShowsFilesFromTheirFolder()
{
    const QStringList folders = {"/projects/tools", "/projects/tool"};
    const GoToEntry inside = OfFile("/projects/tool/rigging/a.py", folders);
    QCOMPARE(inside.text, QString("tool/rigging/a.py"));
    QCOMPARE(inside.text.mid(inside.nameStart), QString("a.py"));
    QCOMPARE(inside.target, QString("/projects/tool/rigging/a.py"));
    QCOMPARE(OfFile("/other/a.py", folders).text, QString("/other/a.py"));
    const GoToEntry buffer = OfEditor(
        {CodeEditorType::Buffer, CodeEditorLanguage::Mel, "/projects/tool/x", "My/MEL"}, folders);
    QCOMPARE(buffer.text.mid(buffer.nameStart), QString("My/MEL"));
}

void GoToEntriesTest::TellsWhereSymbolsAre()
{
    // A level that was jumped over leaves the item without a parent.
    const QVector<ParserItem> items = {{"np = numpy", ParserItemType::PythonImportAs, 0, 0},
        {"C", ParserItemType::PythonClass, 10, 0}, {"run", ParserItemType::PythonMethod, 20, 1},
        {"%2", ParserItemType::PythonClass, 30, 0}, {"deep", ParserItemType::PythonMethod, 40, 2}};
    const auto entries = OfSymbols(items, [](int position) { return position / 10 + 1; });
    QStringList details;
    for (const GoToEntry& entry : entries)
        details += entry.detail;
    QCOMPARE(details,
        QStringList({"import · line 1", "class · line 2", "C · line 3", "class · line 4",
            "function · line 5"}));
    QVERIFY(entries[0].onlyWhenTyped && !entries[1].onlyWhenTyped);
    QCOMPARE(entries[0].end, 2);
    QCOMPARE(entries[2].end, 23);
}

TE2_TEST(GoToEntriesTest)
#include "GoToEntriesTest.moc"
