#include "settings/FakeHost.h"
#include "settings/Settings.h"
#include "settings/SettingsFixture.h"
#include "support/TestMain.h"

#include <QFile>
#include <QtTest>

#include <memory>

/// What the user's configuration file holds and what reading it makes of the options.
class SettingsFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_files = std::make_unique<SettingsFixture>(); }
    void FirstStartKeepsTheDefaultsAndMakesTheFolder();
    void FileIsWrittenAsItAlwaysWas();
    void WhatWasWrittenIsReadBack();
    void BrokenValuesAreIgnoredOneByOne_data();
    void BrokenValuesAreIgnoredOneByOne();
    void TextsMayHoldCommas();
    void StoredEmptyListEmptiesTheList();
    void BrokenFileGivesWhatCanBeRead();
    void HiddenPanels_data();
    void HiddenPanels();
    void RevertingStartsOff_data();
    void RevertingStartsOff();
    void IdleExecution_data();
    void IdleExecution();
    void WithoutPreferencesNothingIsWritten();
    void UnwritableFileIsTold();

private:
    std::unique_ptr<SettingsFixture> m_files;
};

void SettingsFileTest::FirstStartKeepsTheDefaultsAndMakesTheFolder()
{
    Settings::ReadUserConfig();
    QVERIFY(QDir(m_files->ConfigDirectory()).exists());
    QVERIFY(!QFile::exists(m_files->IniPath()));
    QVERIFY(FakeHost::errors.isEmpty());
    QCOMPARE(Settings::codeEditorFont.family(), "Liberation Mono");
    QCOMPARE(Settings::codeEditorFont.pointSize(), 9);
    QCOMPARE(Settings::windowGeometry, QRect(0, 0, 0, 0));
    QCOMPARE(Settings::numRecentFiles, 8);
    QCOMPARE(Settings::outputBufferSize, 3000);
    QCOMPARE(Settings::pythonRevertModuleStateOnExecute, false);
    QCOMPARE(Settings::alwaysShowEditorAndOutputOnStartup, true);
}

void SettingsFileTest::FileIsWrittenAsItAlwaysWas()
{
    Settings::windowGeometry = QRect(QPoint(10, 20), QPoint(109, 219));
    Settings::recentFiles = QStringList{"/a b/one.mel", "/two;three.py"};
    Settings::tabDetails = QStringList{"0;1;/a.mel;1;5;0"};
    Settings::workspaceExpandedFolderHashes = QList<QByteArray>{QByteArray(16, 'h')};
    Settings::codeEditorFont.setPointSize(12);
    Settings::pylintAdditionalPythonPaths = "/x:/y";
    Settings::WriteUserConfig();
    QFile expected(QStringLiteral(TEST_DATA_DIR "/defaults.ini"));
    QVERIFY(expected.open(QIODevice::ReadOnly));
    QCOMPARE(m_files->ReadIni(), QString::fromUtf8(expected.readAll()));
}

void SettingsFileTest::WhatWasWrittenIsReadBack()
{
    Settings::windowGeometry = QRect(1, 2, 300, 400);
    Settings::recentFiles = QStringList{QString::fromUtf8("/\xc3\xbc/one.mel")};
    Settings::sideBarState = QByteArray("\0\xff=;\"", 5);
    Settings::outputFont.setFamily("Some Font");
    Settings::tabsSizeMel = 7;
    Settings::outlineExpandedHash.insert("/a.py", "ClassMethod");
    Settings::outlineExpandedHash.insert("/a.py", "Other");
    Settings::WriteUserConfig();
    // Copied, as the toolkit remembers the values of a file that it wrote itself.
    const QByteArray text = m_files->ReadIni().toUtf8();
    SettingsFixture other;
    other.WriteIni(text);
    Settings::ReadUserConfig();
    QCOMPARE(Settings::windowGeometry, QRect(1, 2, 300, 400));
    QCOMPARE(Settings::recentFiles, QStringList(QString::fromUtf8("/\xc3\xbc/one.mel")));
    QCOMPARE(Settings::sideBarState, QByteArray("\0\xff=;\"", 5));
    QCOMPARE(Settings::outputFont.family(), "Some Font");
    QCOMPARE(Settings::tabsSizeMel, 7);
    QCOMPARE(Settings::outlineExpandedHash.values("/a.py").size(), 2);
}

void SettingsFileTest::BrokenValuesAreIgnoredOneByOne_data()
{
    Columns<QByteArray>("line");
    Row("word for a bool", QByteArray("[main]\noutputTopLeft=maybe"));
    Row("empty bool", QByteArray("[main]\noutputTopLeft="));
    Row("list for a bool", QByteArray("[main]\noutputTopLeft=true, false"));
    Row("word for a number", QByteArray("[preferences]\ntabsSizeMel=four"));
    Row("fraction", QByteArray("[preferences]\ntabsSizeMel=4.5"));
    Row("number too large", QByteArray("[preferences]\ntabsSizeMel=99999999999"));
    Row("text for a rectangle", QByteArray("[main]\nwindowGeometry=1 2 3 4"));
    Row("half a rectangle", QByteArray("[main]\nwindowGeometry=@Rect(1 2)"));
    Row("point for a rectangle", QByteArray("[main]\nwindowGeometry=@Point(1 2)"));
    Row("text for bytes", QByteArray("[main]\nsideBarState=abc"));
    Row("size of a font", QByteArray("[preferences]\ncodeEditorFontSize=0"));
    Row("empty font", QByteArray("[preferences]\ncodeEditorFontFamily="));
    Row("bytes for a text", QByteArray("[preferences]\npylintPath=@ByteArray(x)"));
    Row("rectangle for a list", QByteArray("[main]\nrecentFiles=@Rect(1 2 3 4)"));
    Row("broken variant", QByteArray("[main]\nsideBarState=@Variant(\\0\\0\\0\\x7f)"));
    Row("short outline", QByteArray("[outline]\noutlineState=@ByteArray(\\0\\0)"));
    Row("outline that lies about its size",
        QByteArray("[outline]\noutlineState=@ByteArray(\\xff\\xff\\xff\\xf0\\0\\0)"));
    Row("outline cut off",
        QByteArray(
            "[outline]\noutlineState=@ByteArray(\\0\\0\\0\\x1\\0\\0\\0\\x4\\0\\x61\\0\\x62)"));
    Row("unknown key", QByteArray("[main]\nnobody=1"));
}

void SettingsFileTest::BrokenValuesAreIgnoredOneByOne()
{
    QFETCH(QByteArray, line);
    m_files->WriteIni(line + "\n[workspace]\nworkspacePath=/kept\n");
    Settings::sideBarState = "state";
    Settings::recentFiles = QStringList{"/kept.mel"};
    Settings::pylintPath = "/kept";
    Settings::outlineExpandedHash.insert("/kept.py", "Class");
    Settings::ReadUserConfig();
    QCOMPARE(Settings::outputTopLeft, true);
    QCOMPARE(Settings::tabsSizeMel, 4);
    QVERIFY(!Settings::windowGeometry.isValid());
    QCOMPARE(Settings::sideBarState, "state");
    QCOMPARE(Settings::codeEditorFont, Settings::GetDefaultFont());
    QCOMPARE(Settings::recentFiles, QStringList{"/kept.mel"});
    QCOMPARE(Settings::pylintPath, "/kept");
    QCOMPARE(Settings::outlineExpandedHash.value("/kept.py"), "Class");
    // What stands behind the broken line is read all the same.
    QCOMPARE(Settings::workspacePath, "/kept");
}

void SettingsFileTest::TextsMayHoldCommas()
{
    m_files->WriteIni("[preferences]\npythonForcedImports=os,sys\npylintPath=\"/a,b/pylint\"\n");
    Settings::ReadUserConfig();
    QCOMPARE(Settings::pythonForcedImports, "os,sys");
    QCOMPARE(Settings::pylintPath, "/a,b/pylint");
}

void SettingsFileTest::StoredEmptyListEmptiesTheList()
{
    m_files->WriteIni("[main]\nrecentFiles=@Invalid()\n[tabs]\ntabDetails=only one\n");
    Settings::recentFiles = QStringList{"/old.mel"};
    Settings::ReadUserConfig();
    QVERIFY(Settings::recentFiles.isEmpty());
    QCOMPARE(Settings::tabDetails, QStringList{"only one"});

    // The toolkit writes texts with such characters in a way of its own.
    const QStringList odd{"a", QString::fromLatin1("b\0c", 3), "@d"};
    Settings::tabDetails = odd;
    Settings::WriteUserConfig();
    Settings::tabDetails.clear();
    Settings::ReadUserConfig();
    QCOMPARE(Settings::tabDetails, odd);
}

void SettingsFileTest::BrokenFileGivesWhatCanBeRead()
{
    m_files->WriteIni("\xff\xfe garbage [[[\n=\n[main]\nno equals sign\n[]\n[preferences]\n"
                      "tabsSizeMel=2\n[unclosed\nsideBarState=@ByteArray(\n");
    Settings::ReadUserConfig();
    QCOMPARE(Settings::tabsSizeMel, 2);
    QVERIFY(FakeHost::errors.isEmpty());

    // Writing puts it in order, and what had no order is still there for its owner.
    Settings::WriteUserConfig();
    QVERIFY(!m_files->ReadIni().contains("no equals sign"));
    m_files->WriteIni("[main]\nbroken again\n");
    for (int i = 0; i < 2; ++i)
        Settings::ReadUserConfig();
    const auto kept = [this](const QString& name, const QByteArray& line) {
        QFile file(m_files->IniPath() + name);
        return file.open(QIODevice::ReadOnly) && file.readAll().contains(line);
    };
    QVERIFY(kept(".broken", "no equals sign"));
    QVERIFY(kept(".broken2", "broken again"));
    QVERIFY(!QFile::exists(m_files->IniPath() + ".broken3"));
}

void SettingsFileTest::HiddenPanels_data()
{
    Columns<bool, bool, bool, bool, bool, bool>(
        "always", "editor", "output", "editorThen", "outputThen", "stateKept");
    Row("both hidden: the editor comes back", false, false, false, true, false, true);
    Row("one hidden stays hidden", false, true, false, true, false, true);
    Row("always both, one hidden", true, true, false, true, true, false);
    Row("always both, nothing hidden", true, true, true, true, true, true);
}

void SettingsFileTest::HiddenPanels()
{
    QFETCH(bool, always);
    QFETCH(bool, editor);
    QFETCH(bool, output);
    const auto word = [](bool value) { return value ? QByteArray("true") : QByteArray("false"); };
    m_files->WriteIni("[main]\ncodeEditorVisible=" + word(editor)
        + "\noutputVisible=" + word(output) + "\noutputState=@ByteArray(abc)\n[preferences]\n"
        + "alwaysShowEditorAndOutputOnStartUp=" + word(always) + "\n");
    Settings::ReadUserConfig();
    QTEST(Settings::codeEditorVisible, "editorThen");
    QTEST(Settings::outputVisible, "outputThen");
    QTEST(!Settings::outputState.isEmpty(), "stateKept");
}

void SettingsFileTest::RevertingStartsOff_data()
{
    Columns<QByteArray, bool>("ini", "reverts");
    Row("stored on, default rule", QByteArray("pythonRevertModuleStateOnExecute=true"), false);
    Row("stored on, rule off",
        QByteArray("pythonRevertModuleStateOnExecute=true\n"
                   "pythonDisableRevertModuleStateOnExecuteOnStartup=false"),
        true);
    Row("rule off, nothing stored",
        QByteArray("pythonDisableRevertModuleStateOnExecuteOnStartup=false"), false);
}

void SettingsFileTest::RevertingStartsOff()
{
    QFETCH(QByteArray, ini);
    m_files->WriteIni("[preferences]\n" + ini + "\n");
    Settings::ReadUserConfig();
    QTEST(Settings::pythonRevertModuleStateOnExecute, "reverts");
}

void SettingsFileTest::IdleExecution_data()
{
    Columns<QString, QByteArray, bool, QString>("version", "ini", "onIdle", "written");
    Row("2018 without a file", "2018 Update 6", QByteArray(), true, "true");
    Row("2019, switched off", "2019", QByteArray("[preferences]\nexecuteScriptOnIdle=false\n"),
        false, "false");
    Row("2024 never writes it", "2024", QByteArray(), false, QString());
}

void SettingsFileTest::IdleExecution()
{
    QFETCH(QByteArray, ini);
    QFETCH(QString, written);
    QFETCH(QString, version);
    FakeHost::version = version;
    m_files->WriteIni(ini);
    Settings::ReadUserConfig();
    QTEST(Settings::executeScriptOnIdle, "onIdle");
    Settings::WriteUserConfig();
    QCOMPARE(m_files->WrittenValue("executeScriptOnIdle"), written);
}

void SettingsFileTest::WithoutPreferencesNothingIsWritten()
{
    FakeHost::prefsDirectory.clear();
    Settings::ReadUserConfig();
    Settings::WriteUserConfig();
    QCOMPARE(FakeHost::errors.value(0), "Failed to retrieve Maya prefs directory");
    QVERIFY(Settings::GetUserConfigPath().isEmpty());
    QVERIFY(Settings::GetTempDirectoryPath().isEmpty());
    QVERIFY(Settings::GetWorkspacePath().isEmpty());
    QVERIFY(!QDir("/temp").exists() && !QDir("/workspaces").exists());
}

void SettingsFileTest::UnwritableFileIsTold()
{
    // A directory in the file's place cannot be written by anybody, the superuser included.
    QVERIFY(QDir().mkpath(m_files->IniPath()));
    Settings::WriteUserConfig();
    QCOMPARE(FakeHost::errors,
        QStringList{QString("Failed to write user config: %1").arg(m_files->IniPath())});
}

TE2_TEST(SettingsFileTest)
#include "SettingsFileTest.moc"
