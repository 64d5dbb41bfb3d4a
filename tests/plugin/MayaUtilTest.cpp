#include "plugin/MayaUtil.h"

#include "plugin/HostSession.h"
#include "plugin/Logger.h"
#include "settings/Settings.h"
#include "support/TestMain.h"

#include <maya/MGlobal.h>

#include <QDir>
#include <QtTest>

#include <algorithm>
#include <memory>

using host::MessageType;

/// The bridge, talking to the stand-in host.
class MayaUtilTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanupTestCase() { m_host->Close(); }

    void ResultOfAnotherTypeFailsAndChangesNothing_data();
    void ResultOfAnotherTypeFailsAndChangesNothing();
    void ResultsArrive();
    void LoneVariable_data();
    void LoneVariable();
    void ScriptsAreEchoed();
    void HiddenCommandsRestoreTheTrace();
    void StatementIsTried();
    void Switches_data();
    void Switches();
    void ModuleStateIsRevertedToTheSnapshot();
    void HistoryIsReadAndCleared();
    void ScriptOnTheShelfIsTheScript();
    void VersionsAndPlaces();
    void DiagnosticsArePrinted();
    void LogLinesBearTheName();
    void PylintPathHasNoStandardLibrary();

private:
    std::unique_ptr<HostSession> m_host;
};

void MayaUtilTest::initTestCase()
{
    m_host = std::make_unique<HostSession>();
    MayaUtil::SourceApplicationScripts();
    QCOMPARE(m_host->Errors(), QStringList());
    MayaUtil::RefreshCommandList();
}

void MayaUtilTest::init()
{
    Settings::ResetToDefaults();
    m_host->RunIdle();
    m_host->Forget();
}

void MayaUtilTest::ResultOfAnotherTypeFailsAndChangesNothing_data()
{
    Columns<QString>("command");
    Row("string", "eval(\"return \\\"5\\\"\")");
    Row("nothing", "print(\"\")");
    Row("array", "stringToStringArray(\"1 2\", \" \")");
    Row("error", "error \"no\"");
}

void MayaUtilTest::ResultOfAnotherTypeFailsAndChangesNothing()
{
    QFETCH(QString, command);
    int number = 7;
    double real = 7.5;
    QVERIFY(!MayaUtil::ExecuteMelIntResult(command, number));
    QVERIFY(!MayaUtil::ExecuteMelDoubleResult(command, real));
    QCOMPARE(number, 7);
    QCOMPARE(real, 7.5);
    QString text = "kept";
    QVERIFY(!MayaUtil::ExecuteMelStringResult(QString("size(\"ab\")"), text));
    QVERIFY(!MayaUtil::ExecutePythonStringResult(QString("nobody"), text));
    QCOMPARE(text, "kept");
    QVERIFY(!MayaUtil::ExecuteMelDoubleResult(QString("size(\"ab\")"), real));
    QVERIFY(!MayaUtil::ExecutePythonIntResult(QString("'5'"), number));
}

void MayaUtilTest::ResultsArrive()
{
    int number = 0;
    double real = 0;
    QString text;
    QStringList list;
    QVERIFY(MayaUtil::ExecuteMelIntResult(QString("size(\"abc\")"), number));
    QVERIFY(MayaUtil::ExecuteMelDoubleResult(QString("sqrt(4.0)"), real));
    QVERIFY(MayaUtil::ExecuteMelStringResult(QString("toupper(\"abc\")"), text));
    QCOMPARE(number, 3);
    QCOMPARE(real, 2.0);
    QCOMPARE(text, "ABC");
    const QString unusual = QString::fromUtf8("\xc3\xa4 \xf0\x9f\x98\x80 \\ \"");
    QVERIFY(MayaUtil::ExecutePythonStringResult("'" + unusual + "'.replace('x', 'y')", text));
    QCOMPARE(text, QString::fromUtf8("\xc3\xa4 \xf0\x9f\x98\x80 \\ \""));
    QVERIFY(MayaUtil::ExecutePythonStringArrayResult(QString("['b', '', 'a']"), list));
    QCOMPARE(list, QStringList({"b", "", "a"}));
}

void MayaUtilTest::LoneVariable_data()
{
    Columns<bool, QString, QString, QStringList>("onIdle", "script", "printed", "echo");
    Row("on idle: printed, not echoed", true, "$teLone", "3\n", QStringList());
    Row("at once: run as it is", false, "$teLone", "", QStringList{"$teLone;\n"});
    Row("with a semicolon: run as it is", true, "$teLone;", "", QStringList{"$teLone;\n"});
}

void MayaUtilTest::LoneVariable()
{
    QFETCH(bool, onIdle);
    QFETCH(QString, script);
    m_host->Mel("global int $teLone = 3;");
    Settings::executeScriptOnIdle = onIdle;
    MayaUtil::ExecuteMelScript(script);
    QCOMPARE(m_host->Messages(MessageType::History).isEmpty(), onIdle);
    m_host->RunIdle();
    QTEST(m_host->Printed(), "printed");
    QTEST(m_host->Messages(MessageType::History), "echo");
}

void MayaUtilTest::ScriptsAreEchoed()
{
    MayaUtil::ExecutePythonScript("1 + 1");
    QCOMPARE(m_host->Messages(MessageType::History), QStringList{"1 + 1\n"});
    QCOMPARE(m_host->Messages(MessageType::Result), QStringList{"2"});
    m_host->Forget();
    Settings::executeScriptOnIdle = true;
    MayaUtil::ExecutePythonScript("2 + 2");
    QVERIFY(m_host->Messages(MessageType::Result).isEmpty());
    m_host->RunIdle();
    QCOMPARE(m_host->Messages(MessageType::Result), QStringList{"4"});
}

void MayaUtilTest::HiddenCommandsRestoreTheTrace()
{
    bool wasHidden = false;
    const int id = m_host->GetEngine().output.AddListener(
        [&wasHidden](const host::Message&) { wasHidden = Settings::traceHideAll; });
    MayaUtil::ExecutePythonHidden(QString("print('x')"));
    QVERIFY(wasHidden);
    QVERIFY(!Settings::traceHideAll);
    // Errors are no reason to stay hidden.
    MayaUtil::ExecutePythonHidden(QString("1 / 0"));
    MayaUtil::PythonExecStatement("import nowhere_at_all");
    QVERIFY(!Settings::traceHideAll);
    m_host->GetEngine().output.Remove(id);
}

void MayaUtilTest::StatementIsTried()
{
    QVERIFY(MayaUtil::PythonExecStatement("import os"));
    QVERIFY(!MayaUtil::PythonExecStatement("import nowhere_at_all"));
    QVERIFY(!MayaUtil::PythonExecStatement("raise SystemExit"));
    QCOMPARE(m_host->Errors(), QStringList());
}

void MayaUtilTest::Switches_data()
{
    Columns<int, QString>("which", "query");
    Row("echo", 0, "commandEcho -q -state");
    Row("line numbers", 1, "commandEcho -q -lineNumbers");
    Row("stack trace", 2, "stackTrace -q -state");
}

void MayaUtilTest::Switches()
{
    struct Pair
    {
        void (*set)(bool);
        bool (*get)();
    };
    const Pair pairs[] = {
        {MayaUtil::SetEchoAllCommandsEnabled, MayaUtil::EchoAllCommandsEnabled},
        {MayaUtil::SetLineNumbersInErrorsEnabled, MayaUtil::LineNumbersInErrorsEnabled},
        {MayaUtil::SetShowStackTraceEnabled, MayaUtil::ShowStackTraceEnabled},
    };
    QFETCH(int, which);
    QFETCH(QString, query);
    for (bool on : {true, false}) {
        pairs[which].set(on);
        QCOMPARE(pairs[which].get(), on);
        m_host->RunIdle();
        QCOMPARE(m_host->MelResult(query), on ? QString("1") : QString("0"));
    }
    MayaUtil::SetSuppressStackWindowEnabled(false);
    QVERIFY(!Settings::suppressStackWindow);
    m_host->RunIdle();
    QCOMPARE(m_host->Errors(), QStringList());
}

void MayaUtilTest::ModuleStateIsRevertedToTheSnapshot()
{
    const QString imported = "__import__('sys').modules.__contains__('colorsys') * 1";
    int isLoaded = 0;
    MayaUtil::PythonUpdateModuleState();
    m_host->RunIdle();
    m_host->Python("import colorsys");
    MayaUtil::ExecutePythonIntResult(imported, isLoaded);
    QCOMPARE(isLoaded, 1);
    MayaUtil::PythonRevertModuleState();
    m_host->RunIdle();
    MayaUtil::ExecutePythonIntResult(imported, isLoaded);
    QCOMPARE(isLoaded, 0);
    QVERIFY(m_host->Python("TarnwickEditorHelpers.module_names = None"));
}

void MayaUtilTest::HistoryIsReadAndCleared()
{
    m_host->Mel("print \"before the window\\n\"");
    QVERIFY(MayaUtil::GetExistingHistory().contains("before the window\n"));
    MayaUtil::ClearExistingHistory();
    QCOMPARE(MayaUtil::GetExistingHistory(), QString());
    QCOMPARE(m_host->MelResult("window -exists qhTempReporterWnd"), "0");
}

void MayaUtilTest::ScriptOnTheShelfIsTheScript()
{
    const QString script = "print \"a\\tb\";\nprint 2;";
    MayaUtil::SaveScriptToShelf("Mine", script, true);
    QVERIFY(m_host->MelResult("lsUI -type shelfButton").indexOf("Mine") < 0);
    m_host->RunIdle();
    QCOMPARE(m_host->Errors(), QStringList());
    QString command;
    QVERIFY(MayaUtil::ExecuteMelStringResult(
        QString("string $b[] = `lsUI -type shelfButton`; string $c = `shelfButton -q -command "
                "$b[size($b) - 1]`;"),
        command));
    QCOMPARE(command, script);
}

void MayaUtilTest::VersionsAndPlaces()
{
    QVERIFY(!MayaUtil::IsBatchMode());
    QCOMPARE(MayaUtil::GetMayaVersionString(), "2024");
    QCOMPARE(MayaUtil::GetQtVersion(), "5.15.2");
    QCOMPARE(QDir(MayaUtil::GetMayaPrefsDirectory()), QDir(m_host->PreferencesFolder()));
    const QString version = MayaUtil::GetPythonVersion();
    QVERIFY2(version.startsWith("3.") && version.count('.') == 2, qPrintable(version));
    // Asked once: a later answer would be another one.
    m_host->Python("_kept = TarnwickEditorHelpers.python_version\n"
                   "TarnwickEditorHelpers.python_version = classmethod(lambda cls: 'other')");
    QCOMPARE(MayaUtil::GetPythonVersion(), version);
    m_host->Python("TarnwickEditorHelpers.python_version = _kept; del _kept");
}

void MayaUtilTest::DiagnosticsArePrinted()
{
    qputenv("TE2_TEST_PATHS", "/one:/two");
    m_host->Mel("putenv \"TE2_TEST_PATHS\" \"/one:/two\"");
    MayaUtil::PrintMayaEnvVarPaths("TE2_TEST_PATHS");
    MayaUtil::PrintPythonPath();
    m_host->RunIdle();
    QVERIFY2(m_host->Printed().startsWith("\nTE2_TEST_PATHS:\n/one\n/two\n\nsys.path:\n"),
        qPrintable(m_host->Printed()));
}

void MayaUtilTest::LogLinesBearTheName()
{
    Logger::Info("one");
    Logger::Warning(QString::fromUtf8("zwei \xc3\xa4 %1"));
    Logger::Error(MString("three"));
    QCOMPARE(m_host->Messages(MessageType::Info), QStringList{"[TarnwickEditor2] one"});
    QCOMPARE(m_host->Messages(MessageType::Warning),
        QStringList{QString::fromUtf8("[TarnwickEditor2] zwei \xc3\xa4 %1")});
    QCOMPARE(m_host->Errors(), QStringList{"[TarnwickEditor2] three"});
}

void MayaUtilTest::PylintPathHasNoStandardLibrary()
{
    m_host->Python("import sys; sys.path.append('/te2/extra')");
    MayaUtil::UpdatePylintPythonPath();
    QVERIFY(Settings::pylintPythonPath.contains("/te2/extra:"));
    QVERIFY(!Settings::pylintPythonPath.contains("/lib/python"));
    Settings::pylintAdditionalPythonPaths = "/mine";
    MayaUtil::UpdatePylintPythonPath();
    QVERIFY(Settings::pylintPythonPath.startsWith("/mine:"));
    m_host->Python("sys.path.remove('/te2/extra')");
}

TE2_TEST(MayaUtilTest)
#include "MayaUtilTest.moc"
