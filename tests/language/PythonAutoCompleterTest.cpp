#include "language/PythonAutoCompleter.h"

#include "language/CompletionScene.h"
#include "language/FakeVocabulary.h"
#include "language/PythonCompletion.h"
#include "language/PythonExcerpt.h"
#include "language/PythonForcedImports.h"
#include "settings/Settings.h"
#include "support/TestMain.h"

#include <QtTest>

using Scene = CompletionScene<PythonAutoCompleter>;

class PythonAutoCompleterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { FakeVocabulary::Reset(); }
    void cleanup();
    void KnowsWhatIsWanted_data();
    void KnowsWhatIsWanted();
    void MarksTheCursorInTheSource_data();
    void MarksTheCursorInTheSource();
    void AsksWhatConcernsTheObject_data();
    void AsksWhatConcernsTheObject();
    void ReadsALongTextMeanwhile();
    void ListsNamesOfTheSourceThenOfTheLanguage();
    void AsksOncePerObjectAndText();
    void AsksNoMoreByItselfWhereItWasSlow();
    void FiltersWithoutCase();
    void TakesTheOnlyNameOnRequest();
    void ReadsForcedImports_data();
    void ReadsForcedImports();
    void TriesForcedImportsOnce();
};

void PythonAutoCompleterTest::cleanup()
{
    Settings::pythonIncludeKeywords = true;
    Settings::pythonIncludeBuiltins = true;
    Settings::pythonForcedImports.clear();
}

void PythonAutoCompleterTest::KnowsWhatIsWanted_data()
{
    // "wanted": object and prefix, or nothing
    Columns<QString, QString>("before", "wanted");
    Row("a name", "x = na", ".na");
    Row("behind a dot", "os.", "os.");
    Row("a chain", "f(os.path.jo", "os.path.jo");
    Row("behind a string", "'a'.jo", QString());
    Row("behind a call", "f().na", QString());
    Row("further behind a call", "f().a.na", QString());
    Row("behind an index", "a[0].na", QString());
    Row("a number", "x = 12", QString());
    Row("a decimal number", "x = 1.", QString());
    Row("dots", "x[...", QString());
    Row("a function's name", "    async def na", QString());
    Row("a class's name", "class ", QString());
    Row("a class's base", "class A(na", ".na");
    Row("an import", "import o", QString());
    Row("a module to import from", "from os.p", QString());
    Row("what to import", "from os.path import jo", "os.path.jo");
    Row("another thing to import", "from os import (path, ge", "os.ge");
    Row("what an import is called", "from os import path as p", QString());
    Row("a relative import", "from .os import p", QString());
    Row("a name like a statement", "importer.na", "importer.na");
}

void PythonAutoCompleterTest::KnowsWhatIsWanted()
{
    QFETCH(QString, before);
    const PythonCompletion::Request request = PythonCompletion::RequestAt(before);
    const QString wanted = request.isValid ? request.object + '.' + request.prefix : QString();
    QTEST(wanted, "wanted");
}

void PythonAutoCompleterTest::MarksTheCursorInTheSource_data()
{
    // "text": "|" stands for the cursor; "source": "<>" stands for the definition
    Columns<QString, QString>("text", "source");
    // clang-format off
    Row("alone", "a = 1\nos.|", "a = 1\n<> pass");
    Row("in a method", "class A:\n    def f(self):\n\tself.|\n\nb", "class A:\n    def f(self):\n\t<> pass\n\nb");
    Row("head of a block", "if os.|:\n    # x\n    b\n", "<>\n    # x\n    b\n");
    Row("with branches", "if a|:\n    b\nelif c:\n    d\nelse:\n    e\nelse: f", "<>\n    b\nif 1:\n    d\nif 1:\n    e\nif 1: f");
    Row("within brackets", "a = f(1,\n  os.|,\n  2\n)\nb", "<> pass\n\n\n\nb");
    Row("an open bracket", "a = f(os.|\nb = 2\ndef g(): pass", "<> pass\nb = 2\ndef g(): pass");
    Row("below an open bracket", "a = f(\ndef g():\n    os.|", "a = f(\ndef g():\n    <> pass");
    Row("below a long string", "'''a (\n'''\n  b|", "'''a (\n'''\n  <> pass");
    Row("within a block without handler",
        "try:\n    if a:\n        try:\n            b|\n        except C: d\ne",
        "if 1:\n    if a:\n        try:\n            <> pass\n        except C: d\ne");
    Row("the only handler", "try:\n    a\nexcept B|:\n    c\nfinally: d", "if 1:\n    a\n<>\n    c\nif 1: d");
    Row("one of two handlers", "try: a\nexcept B: c\nexcept D|:\n    e", "try: a\nexcept B: c\n<>\n    e");
    Row("below a bracket in a comment", "a # (\nb|", "a # (\n<> pass");
    // clang-format on
}

void PythonAutoCompleterTest::MarksTheCursorInTheSource()
{
    QFETCH(QString, text);
    QFETCH(QString, source);
    const int line = text.left(text.indexOf('|')).count('\n');
    source.replace("<>", "def __tedefloc__(__tarnwick_lctr_qnht__):");
    QCOMPARE(PythonCompletion::MarkedSource(text.remove('|'), line, {"import x"}),
        source + "\nimport x");
}

void PythonAutoCompleterTest::AsksWhatConcernsTheObject_data()
{
    // "text": "|" stands for the cursor, lines that begin with "-" go
    Columns<QString, QString>("text", "object");
    // clang-format off
    Row("what it is made of", "import a\n-import b\n-c = b.x(\n-  1)\nd = a.y\ne: 'd' = 1\n-print(e)\n|", "e");
    Row("the last value counts", "-a = b\na = c\na = None\n-c.a = 1\n|", "a");
    Row("names from elsewhere", "from a import *\n-import b\n-x = 1\n|", QString());
    Row("members",
        "class A:\n    x = 1\n    def f(self, b):\n        c = b\n"
        "-        d = 1\n        self.e, g = c\n-class B: pass\n"
        "class C(A):\n-    'text'\n    def h(self):\n        |",
        "self.e");
    Row("other functions", "-def f(a):\n-    b = 1\nb = 2\ndef g():\n-    x = 1\n    c = b\n    def h():\n        |", "c");
    Row("set in a function", "def f():\n    global a\n    a = b\n-    d = 1\nb = 1\n|", "a");
    Row("in branches", "try:\n    import a\nexcept E:\n    a = None\n-if b:\n-    c = 1\n-else: d\n|", "a");
    Row("by other words", "with b as c, d(e) as a:\n-    1\n    for a in c: 2\n-print([a for x in c])\n|", "a");
    Row("a long list", "a = [\n-  1,\n-  2,\n-  3,\n-  b,\n]\n-b = 1\n|", "a");
    Row("an open bracket above", "-a = f(\n-c = 1\n-def g(): 1\nb = a\n|", "b");
    // clang-format on
}

void PythonAutoCompleterTest::AsksWhatConcernsTheObject()
{
    QFETCH(QString, text);
    QFETCH(QString, object);
    QStringList lines = text.remove('|').split('\n');
    QStringList wanted;
    for (QString& line : lines) {
        if (line.startsWith('-'))
            line.remove(0, 1);
        else
            wanted += line;
    }
    const PythonSource source(lines.join('\n'), lines.size() - 1);
    const QStringList chain = object.split('.', Qt::SkipEmptyParts);
    const PythonExcerpt::Text excerpt = PythonExcerpt(source, chain, 10000).GetText(lines.last());
    QCOMPARE(excerpt.text, wanted.join('\n'));
    QCOMPARE(excerpt.line, wanted.size() - 1);
    QVERIFY(PythonExcerpt(source, chain, 5).IsTooLong());
}

/// Names that are not there yet come later, if they are still wanted.
void PythonAutoCompleterTest::ReadsALongTextMeanwhile()
{
    FakeVocabulary::attributes[""] = QStringList("from_elsewhere");
    FakeVocabulary::answerTime = 160;
    QString text;
    for (int i = 0; i < 3000; ++i)
        text += QString("value_%1 = Value_%1 + _%1\n").arg(i);
    Scene scene(text + "|");
    QSignalSpy arrived(&scene.completer, &PythonAutoCompleter::NamesArrived);
    QVERIFY(!scene.Type("Val"));
    scene.editor.textCursor().insertText("\n");
    QVERIFY(!scene.Type("x = Val"));
    QVERIFY(!scene.Ask(true));
    QTRY_COMPARE(arrived.size(), 1);
    QCOMPARE(arrived.takeFirst(), QVariantList{true});
    QVERIFY(scene.Ask());
    QCOMPARE(scene.Rows().value(0), "Val");
    QCOMPARE(scene.Rows().value(1), "Value_0");
    QVERIFY(!scene.Rows().contains("_1"));
    QVERIFY(scene.Type("ue_2999"));
    QCOMPARE(scene.Rows(), QStringList({"Value_2999", "value_2999"}));
    QVERIFY(FakeVocabulary::askedSources[0].size() < 200);
    // The host was slow: names of the text are offered without it.
    QVERIFY(scene.Type(" + _77"));
    QCOMPARE(scene.Rows().value(0), "_77");
    QCOMPARE(FakeVocabulary::askedObjects, QStringList(""));
}

void PythonAutoCompleterTest::ListsNamesOfTheSourceThenOfTheLanguage()
{
    FakeVocabulary::attributes[""] = QStringList{"lower", "_lost"};
    Scene scene("lower = 1\ndef loop(last):\n    for line in last.lines:\n        "
                "'lie' # lap\n        l|");
    QVERIFY(scene.Ask());
    QCOMPARE(scene.Rows(), QStringList({"last", "line", "loop", "lower", "lambda", "len"}));
    Settings::pythonIncludeBuiltins = false;
    Settings::pythonIncludeKeywords = false;
    Scene bare("lower = 1\nl|");
    QVERIFY(bare.Ask());
    QCOMPARE(bare.Rows(), QStringList("lower"));
}

void PythonAutoCompleterTest::AsksOncePerObjectAndText()
{
    FakeVocabulary::attributes["os"] = QStringList{"path", "pardir", "_exit"};
    Scene scene("import os\n\"\\\"\nos|");
    QVERIFY(scene.Type("."));
    QCOMPARE(scene.Rows(), QStringList({"path", "pardir", "_exit"}));
    QVERIFY(scene.Type("pa"));
    QVERIFY(!scene.Type("x"));
    scene.editor.textCursor().deletePreviousChar();
    QVERIFY(scene.Ask());
    QCOMPARE(FakeVocabulary::askedObjects, QStringList("os"));
    QVERIFY(FakeVocabulary::askedSources[0].startsWith(
        "import os\\n\\\"\\\\\\\"\\ndef __tedefloc__(__tarnwick_lctr_qnht__): pass\\n"));
    scene.completer.hide();
    scene.Type("\nos.");
    QCOMPARE(FakeVocabulary::askedObjects.size(), 2);
}

void PythonAutoCompleterTest::AsksNoMoreByItselfWhereItWasSlow()
{
    FakeVocabulary::attributes["slow"] = QStringList{"path", "pardir"};
    FakeVocabulary::answerTime = 160;
    Scene scene("slow.|");
    QVERIFY(!scene.Ask());
    FakeVocabulary::answerTime = 0;
    QVERIFY(!scene.Type("p"));
    QVERIFY(scene.Ask(true));
    FakeVocabulary::attributes["quick"] = QStringList{"path"};
    QVERIFY(scene.Type(", quick."));
}

void PythonAutoCompleterTest::FiltersWithoutCase()
{
    FakeVocabulary::attributes["a"] = QStringList{"Pa", "pb", "PC", "q", "_p"};
    Scene scene("a.p|");
    QVERIFY(scene.Ask());
    QCOMPARE(scene.Rows(), QStringList({"pb", "Pa", "PC"}));
    QCOMPARE(scene.completer.GetSelectedText(), "pb");
    QVERIFY(scene.Type("C"));
    QCOMPARE(scene.Rows(), QStringList({"PC"}));
}

void PythonAutoCompleterTest::TakesTheOnlyNameOnRequest()
{
    FakeVocabulary::attributes["a"] = QStringList{"Path", "_x"};
    Scene scene("a.pa|");
    QVERIFY(!scene.Ask(true));
    QCOMPARE(scene.accepted.value(0), QVariantList({"Path", 2}));
    Scene none("a.zz|");
    QVERIFY(!none.Ask(true));
    QCOMPARE(none.accepted.size(), 0);
}

void PythonAutoCompleterTest::ReadsForcedImports_data()
{
    Columns<QString, QStringList, QStringList>("option", "statements", "rejected");
    Row("nothing", " , \n", QStringList(), QStringList());
    Row("modules", "maya.cmds as cmds, os.path\nre",
        QStringList{"import maya.cmds as cmds", "import os.path", "import re"}, QStringList());
    Row("statements", "from a import b, c as d\nimport e",
        QStringList{"from a import b, c as d", "import e"}, QStringList());
    Row("no imports", "a; b, c\"d\", import e\\f, 1+1", QStringList(),
        QStringList{"a; b", "c\"d\"", "import e\\f", "1+1"});
}

void PythonAutoCompleterTest::ReadsForcedImports()
{
    QFETCH(QString, option);
    const PythonForcedImports::Entries entries = PythonForcedImports::Parse(option);
    QTEST(entries.statements, "statements");
    QTEST(entries.rejected, "rejected");
}

void PythonAutoCompleterTest::TriesForcedImportsOnce()
{
    FakeVocabulary::failing = QStringList("import missing");
    Settings::pythonForcedImports = "missing, present";
    QCOMPARE(PythonForcedImports::Statements(), QStringList("import present"));
    Settings::pythonForcedImports = "present, missing, os";
    QCOMPARE(PythonForcedImports::Statements(), QStringList({"import present", "import os"}));
    QCOMPARE(
        FakeVocabulary::executed, QStringList({"import missing", "import present", "import os"}));
}

TE2_TEST(PythonAutoCompleterTest)
#include "PythonAutoCompleterTest.moc"
