#include "commands/HelpRequests.h"
#include "editor/CodeEditor.h"
#include "plugin/HostSession.h"
#include "plugin/MayaUtil.h"
#include "settings/KeyBindings.h"
#include "settings/Settings.h"
#include "support/TestMain.h"

#include <QtTest>

#include <memory>

using host::commands::HelpRequest;
using host::commands::HelpRequests;

/// What the stand-in host tells about MEL, Python and a source that is being edited.
class VocabularyTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { m_host->Forget(); }
    void cleanupTestCase() { m_host->Close(); }

    void NamesHaveTheirKinds();
    void NamesKeepTheirPlaceInTheHostsList();
    void FailedListIsAskedForAgain_data();
    void FailedListIsAskedForAgain();
    void FlagsAreTheCommandsOwn();
    void FlagsOfCommandsOnly_data();
    void FlagsOfCommandsOnly();
    void DocumentationIsOpened_data();
    void DocumentationIsOpened();
    void DocumentationOfUnknownCommandIsRefused();
    void AttributesFollowTheSource_data();
    void AttributesFollowTheSource();
    void HostModulesAreListed();
    void ListingLeavesNoTrace();
    void EscapedSourceArrivesAsItIs();

private:
    /// The text as the editor hands it to the interpreter.
    QString Escaped(const QString& text);
    static QStringList Attributes(const QString& source, const QString& object);

    std::unique_ptr<HostSession> m_host;
    KeyBindings m_keyBindings;
};

void VocabularyTest::initTestCase()
{
    m_host = std::make_unique<HostSession>();
    Settings::ResetToDefaults();
    // Nothing can be answered before the scripts are there; later questions get their answer.
    QVERIFY(MayaUtil::PythonKeywords().isEmpty());
    QVERIFY(MayaUtil::PythonBuiltins().isEmpty());
    QVERIFY(Attributes("x = 1", "").isEmpty());
    MayaUtil::RefreshCommandList();
    QVERIFY(MayaUtil::MelCommands().isEmpty());
    m_host->Forget();
    MayaUtil::SourceApplicationScripts();
    QCOMPARE(m_host->Errors(), QStringList());
    MayaUtil::RefreshCommandList();
}

QString VocabularyTest::Escaped(const QString& text)
{
    CodeEditor editor({}, &m_keyBindings);
    editor.setPlainText(text);
    return editor.GetTextForPythonProcessing();
}

QStringList VocabularyTest::Attributes(const QString& source, const QString& object)
{
    QStringList names{"old"};
    MayaUtil::PythonAttributesFromSource(source, object, names, false);
    return names;
}

void VocabularyTest::NamesHaveTheirKinds()
{
    m_host->Mel("global proc teNewProcedure() {}; runTimeCommand -command \"ls\" TeNewRunTime;");
    MayaUtil::RefreshCommandList();
    const QStringList lists[]
        = {MayaUtil::MelCommands(), MayaUtil::MelRunTimeCommands(), MayaUtil::MelProcedures()};
    const char* const names[] = {"workspaceControl", "TeNewRunTime", "teNewProcedure"};
    for (int list = 0; list < 3; ++list) {
        for (int name = 0; name < 3; ++name)
            QCOMPARE(lists[list].count(names[name]), list == name ? 1 : 0);
    }
    QCOMPARE(MayaUtil::MelKeywords().size(), 25);
}

void VocabularyTest::NamesKeepTheirPlaceInTheHostsList()
{
    QStringList all;
    QVERIFY(MayaUtil::ExecuteMelStringArrayResult(QString("melInfo"), all));
    const QStringList procedures = MayaUtil::MelProcedures();
    const int place = procedures.indexOf("qhGetMelInfo");
    QCOMPARE(place, all.indexOf("qhGetMelInfo"));
    QVERIFY(procedures.contains(QString()));
}

void VocabularyTest::FailedListIsAskedForAgain_data()
{
    Columns<bool, QStringList>("keywords", "expected");
    Row("keywords", true, QStringList{"True", "False", "None", "lambda"});
    Row("builtins", false, QStringList{"len", "ValueError", "__import__"});
}

void VocabularyTest::FailedListIsAskedForAgain()
{
    QFETCH(bool, keywords);
    QFETCH(QStringList, expected);
    const auto list = keywords ? MayaUtil::PythonKeywords : MayaUtil::PythonBuiltins;
    const QStringList names = list();
    for (const QString& name : expected)
        QCOMPARE(names.count(name), 1);
    // From now on the answer stays.
    QVERIFY(m_host->Python("_kept = TarnwickEditorHelpers; del TarnwickEditorHelpers"));
    QCOMPARE(list(), names);
    QVERIFY(m_host->Python("TarnwickEditorHelpers = _kept; del _kept"));
}

void VocabularyTest::FlagsAreTheCommandsOwn()
{
    const QStringList flags = MayaUtil::CommandFlags("workspaceControl");
    QCOMPARE(flags.size() % 3, 0);
    for (int i = 0; i < flags.size(); i += 3)
        QVERIFY2(flags[i].startsWith('-') && flags[i + 1].startsWith('-'), qPrintable(flags[i]));
    const int at = flags.indexOf("-label");
    QCOMPARE(flags.mid(at - 1, 3), QStringList({"-l", "-label", "String"}));
}

void VocabularyTest::FlagsOfCommandsOnly_data()
{
    Columns<QString>("name");
    Row("procedure", "qhGetMelInfo");
    Row("unknown", "teNobody");
    Row("nothing, as the rejected names in the list", "");
}

void VocabularyTest::FlagsOfCommandsOnly()
{
    QFETCH(QString, name);
    int asked = 0;
    const int id
        = m_host->GetEngine().output.AddListener([&asked](const host::Message&) { ++asked; });
    QVERIFY(MayaUtil::CommandFlags(name).isEmpty());
    m_host->GetEngine().output.Remove(id);
    QCOMPARE(asked, 0);
}

void VocabularyTest::DocumentationIsOpened_data()
{
    Columns<QString, bool, QString>("command", "python", "page");
    Row("MEL index", "", false, "Commands/index.html");
    Row("Python index", "", true, "CommandsPython/index.html");
    Row("MEL", "workspaceControl", false, "Commands/workspaceControl.html");
    Row("Python", "workspaceControl", true, "CommandsPython/workspaceControl.html");
}

void VocabularyTest::DocumentationIsOpened()
{
    QFETCH(QString, command);
    QFETCH(bool, python);
    MayaUtil::CommandDocumentation(command, python);
    QCOMPARE(m_host->Errors(), QStringList());
    const HelpRequest request = HelpRequests::Current().All().constLast();
    QVERIFY(request.kind == HelpRequest::Kind::Docs);
    QTEST(request.target, "page");
}

void VocabularyTest::DocumentationOfUnknownCommandIsRefused()
{
    const int before = HelpRequests::Current().All().size();
    MayaUtil::CommandDocumentation("teNobody", false);
    QCOMPARE(m_host->Errors(), QStringList{"[TarnwickEditor2] Command not found: teNobody"});
    QCOMPARE(HelpRequests::Current().All().size(), before);
}

void VocabularyTest::AttributesFollowTheSource_data()
{
    Columns<QString, QString, QStringList>("source", "object", "expected");
    Row("unfinished last line", "import colorsys\nx = 1\ncolorsys.", "",
        QStringList{"colorsys", "x"});
    Row("quotes, backslashes and places of other strings",
        "a = \"\\n\\\"\" # '''\nb = '\\\\'\nc = \"\"\"%1 %2\n%3\"\"\"", "",
        QStringList{"a", "b", "c"});
    Row("beyond Latin", QString::fromUtf8("\xc3\xa4 = '\xf0\x9f\x98\x80'\nb = 1"), "",
        QStringList{"b", QString::fromUtf8("\xc3\xa4")});
    Row("marked class",
        "class A:\n  def a(self):\n    "
        "def __tedefloc__(__tarnwick_lctr_qnht__): pass",
        "self", QStringList{"a"});
    Row("unknown", "x = 1", "nobody", QStringList());
}

void VocabularyTest::AttributesFollowTheSource()
{
    QFETCH(QString, source);
    QFETCH(QString, object);
    const QStringList names = Attributes(Escaped(source), object);
    const QStringList visible = names.mid(0, names.indexOf(QRegularExpression("^_.*")));
    QTEST(visible, "expected");
    QCOMPARE(m_host->Errors(), QStringList());
}

void VocabularyTest::HostModulesAreListed()
{
    QVERIFY(Attributes("import maya.cmds as mc", "mc").contains("workspaceControl"));
    QVERIFY(Attributes("import maya.OpenMaya", "maya.OpenMaya").contains("MGlobal"));
    QStringList names;
    MayaUtil::PythonAttributesFromSource("x = 1", "", names, true);
    QVERIFY(names.contains("lambda") && names.contains("len") && names.contains("x"));
}

void VocabularyTest::ListingLeavesNoTrace()
{
    QTemporaryDir directory;
    QFile module(directory.filePath("te2_noisy.py"));
    QVERIFY(module.open(QIODevice::WriteOnly));
    module.write("print('imported')\nnoise = 1\n");
    module.close();
    m_host->Python(QString("import sys; sys.path.insert(0, '%1')").arg(directory.path()));
    bool isHidden = false;
    const int id = m_host->GetEngine().output.AddListener(
        [&isHidden](const host::Message&) { isHidden = Settings::traceHideAll; });
    QVERIFY(Attributes("import te2_noisy", "te2_noisy").contains("noise"));
    m_host->GetEngine().output.Remove(id);
    QVERIFY(m_host->Printed().contains("imported"));
    QVERIFY(isHidden);
    QVERIFY(!Settings::traceHideAll);
    m_host->Python("sys.path.pop(0)");
}

void VocabularyTest::EscapedSourceArrivesAsItIs()
{
    // Only a text that arrives unchanged has its error in this line and of this kind.
    const QString source = "a = \"\\\\\\n\"\nb = '''\n\"\\'\n'''\nc = '\\x'\n";
    QStringList results;
    MayaUtil::PythonSyntaxCheck(Escaped(source), results);
    QCOMPARE(results.size(), 2);
    QVERIFY2(results[0].contains("truncated \\xXX escape"), qPrintable(results[0]));
    QCOMPARE(results[1], "5");
    MayaUtil::PythonSyntaxCheck(Escaped("x = 1"), results);
    QCOMPARE(results, QStringList());
}

TE2_TEST(VocabularyTest)
#include "VocabularyTest.moc"
