#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "language/BaseParser.h"
#include "settings/KeyBindings.h"
#include "settings/Settings.h"
#include "support/TestMain.h"
#include "window/WindowFixture.h"

#include <QSignalSpy>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

Q_DECLARE_METATYPE(BaseParser*)

namespace {

// A mistake for the parser, which the scripts below do not report.
const char* const BROKEN_PYTHON = "def f():\n    return 1)\n";

CodeEditorProperties Script(CodeEditorLanguage language, const QString& name)
{
    return {CodeEditorType::File, language, "/scripts/" + name, name};
}

} // namespace

/// What a group shows of its parsers and of pylint. Needs a host for pylint's files and the log.
class GroupCheckingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { m_host.reset(); }
    void init();
    void cleanup();
    void ParsesWhatCanBeSeen();
    void ClearsTheMarksOfPlainText();
    void TellsTheSearchOfChanges_data();
    void TellsTheSearchOfChanges();
    void ShowsPylintAlone();
    void FallsBackToItsParser_data();
    void FallsBackToItsParser();
    void LeavesOtherTextsAlone();
    void EndsARunningPylint();
    void NamesAMismatch();

private:
    CodeEditor* Add(CodeEditorLanguage language, const QString& text);
    /// Makes "pylint" a shell script with that body.
    void UsePylint(const QByteArray& body);

    std::unique_ptr<WindowFixture> m_host;
    QTemporaryDir m_directory;
    KeyBindings m_keyBindings;
    std::unique_ptr<CodeEditorGroup> m_group;
};

void GroupCheckingTest::initTestCase()
{
    qRegisterMetaType<BaseParser*>("BaseParser*");
    m_host = std::make_unique<WindowFixture>();
}

void GroupCheckingTest::init()
{
    Settings::pylintEnabled = false;
    m_group = std::make_unique<CodeEditorGroup>(0, &m_keyBindings, nullptr, nullptr);
    m_group->resize(500, 300);
    m_group->show();
}

void GroupCheckingTest::cleanup()
{
    m_group.reset();
    Settings::pylintEnabled = false;
    Settings::searchViewActive = false;
    Settings::globalSearchRegEx = QRegularExpression();
    m_host->TakeMessages(host::MessageType::Error);
}

CodeEditor* GroupCheckingTest::Add(CodeEditorLanguage language, const QString& text)
{
    const QString name = QString::number(m_group->GetCount());
    const int index = m_group->InsertCodeEditor(-1, Script(language, name), text);
    return m_group->GetCodeEditor(index);
}

void GroupCheckingTest::UsePylint(const QByteArray& body)
{
    Settings::pylintEnabled = true;
    Settings::pylintPath = m_directory.filePath("pylint");
    QFile file(Settings::pylintPath);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("#!/bin/sh\n" + body + "\n");
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

void GroupCheckingTest::ParsesWhatCanBeSeen()
{
    QSignalSpy updated(m_group.get(), &CodeEditorGroup::ParserUpdated);
    const auto last = [&updated] { return updated.last().at(0).value<BaseParser*>(); };
    CodeEditor* const python = Add(CodeEditorLanguage::Python, BROKEN_PYTHON);
    CodeEditor* const mel = Add(CodeEditorLanguage::Mel, "\n\nproc f() {}\n");
    m_group->UpdateParser();
    QVERIFY(last()->IsPython());
    QCOMPARE(m_group->GetParser(), last());
    QVERIFY(python->GetNumberOfErrors() > 0);
    python->SetText("x = 1");
    m_group->UpdateParser();
    QCOMPARE(python->GetNumberOfErrors(), 0);

    m_group->SetCurrentIndex(1);
    m_group->UpdateParser();
    QVERIFY(last()->IsMel());
    QCOMPARE(last()->GetFilePath(), mel->GetFilePath());
    QVERIFY(mel->GetNumberOfWarnings() > 0);

    m_group->SetParsingEnabled(false);
    m_group->UpdateParser();
    QVERIFY(!last());
    m_group->SetParsingEnabled(true);
    m_group->hide();
    m_group->UpdateParser();
    QVERIFY(!last());
}

void GroupCheckingTest::ClearsTheMarksOfPlainText()
{
    CodeEditor* const editor = Add(CodeEditorLanguage::Python, BROKEN_PYTHON);
    m_group->UpdateParser();
    QVERIFY(editor->GetNumberOfErrors() > 0);
    m_group->UpdateFilePath(editor->GetFilePath(), "/scripts/x.txt", CodeEditorLanguage::Text);
    QSignalSpy updated(m_group.get(), &CodeEditorGroup::ParserUpdated);
    m_group->UpdateParser();
    QCOMPARE(editor->GetMarks().GetCount(MarkSeverity::Error), 0);
    QVERIFY(!updated.last().at(0).value<BaseParser*>());
    QVERIFY(!m_group->GetParser());
}

void GroupCheckingTest::TellsTheSearchOfChanges_data()
{
    Columns<bool, bool, QString, bool>("sideBar", "searchView", "pattern", "told");
    Row("searching", true, true, "x", true);
    Row("no side bar", false, true, "x", false);
    Row("another view", true, false, "x", false);
    Row("nothing searched", true, true, "", false);
}

void GroupCheckingTest::TellsTheSearchOfChanges()
{
    QFETCH(bool, sideBar);
    QFETCH(bool, searchView);
    QFETCH(QString, pattern);
    Settings::sideBarVisible = sideBar;
    Settings::searchViewActive = searchView;
    Settings::globalSearchRegEx.setPattern(pattern);
    CodeEditor* const editor = Add(CodeEditorLanguage::Mel, "a");
    QSignalSpy parsed(m_group.get(), &CodeEditorGroup::ParserUpdated);
    QSignalSpy told(m_group.get(), &CodeEditorGroup::TextChanged);
    Q_EMIT editor->TextChanged("/scripts/0", "b");
    QCOMPARE(parsed.count(), 1);
    QTEST(told.count() == 1, "told");
    // A change in the background is told, too, but parses nothing.
    Q_EMIT editor->TextChanged("/elsewhere", "b");
    QTEST(told.count() == 2, "told");
    QCOMPARE(parsed.count(), 1);
    Settings::sideBarVisible = true;
}

void GroupCheckingTest::ShowsPylintAlone()
{
    UsePylint("echo '::W:1:2:[W1]:from pylint::'");
    CodeEditor* const editor = Add(CodeEditorLanguage::Python, BROKEN_PYTHON);
    QSignalSpy updated(m_group.get(), &CodeEditorGroup::ParserUpdated);
    m_group->UpdateParser();
    // The outline is there at once, the marks wait for pylint.
    QVERIFY(updated.last().at(0).value<BaseParser*>()->IsPython());
    QCOMPARE(editor->GetNumberOfErrors(), 0);
    QTRY_COMPARE(editor->GetNumberOfWarnings(), 1);
    QCOMPARE(editor->GetNumberOfErrors(), 0);
    QCOMPARE(editor->GetErrorAndWarningsText(), "[W1] from pylint");
}

void GroupCheckingTest::FallsBackToItsParser_data()
{
    // "pylint": null: there is none
    Columns<QByteArray>("pylint");
    Row("missing", QByteArray());
    Row("crashing", QByteArray("kill -9 $$"));
    Row("complaining about its options", QByteArray("exit 32"));
}

void GroupCheckingTest::FallsBackToItsParser()
{
    QFETCH(QByteArray, pylint);
    UsePylint(pylint);
    if (pylint.isNull())
        Settings::pylintPath = m_directory.filePath("nowhere");
    CodeEditor* const editor = Add(CodeEditorLanguage::Python, BROKEN_PYTHON);
    m_group->UpdateParser();
    QTRY_VERIFY(editor->GetNumberOfErrors() > 0);
}

void GroupCheckingTest::LeavesOtherTextsAlone()
{
    UsePylint("echo '::E:1:2:[E1]:of the first::'");
    QSignalSpy sent(m_group.get(), &CodeEditorGroup::PylintSourceCode);
    CodeEditor* const first = Add(CodeEditorLanguage::Python, "first");
    CodeEditor* const second = Add(CodeEditorLanguage::Text, "second");
    m_group->UpdateParser();
    QCOMPARE(sent.count(), 1);
    m_group->SetCurrentIndex(1);
    // The answer needs at least one more turn of this thread than its request.
    auto* const thread = m_group->findChild<QThread*>();
    QVERIFY(thread->isRunning());
    Q_EMIT m_group->ShutdownWorkers();
    QTRY_VERIFY(thread->isFinished());
    QCoreApplication::processEvents();
    QCOMPARE(first->GetNumberOfErrors(), 0);
    QCOMPARE(second->GetNumberOfErrors(), 0);
}

void GroupCheckingTest::EndsARunningPylint()
{
    const QString started = m_directory.filePath("started");
    UsePylint("echo > " + started.toLocal8Bit() + "; exec sleep 60");
    Add(CodeEditorLanguage::Python, "x");
    m_group->UpdateParser();
    QTRY_VERIFY(QFile::exists(started));
    m_group.reset();
    // Neither crashed nor complained.
    QCOMPARE(m_host->TakeMessages(host::MessageType::Error), QStringList());
}

void GroupCheckingTest::NamesAMismatch()
{
    Add(CodeEditorLanguage::Text, "x");
    auto* const stray = new QWidget;
    m_group->findChild<QStackedWidget*>()->addWidget(stray);
    m_host->TakeMessages(host::MessageType::Error);
    QVERIFY(m_group->InsertCodeEditor(0, Script(CodeEditorLanguage::Text, "y"), "y") < 0);
    QVERIFY(!m_group->RemoveCodeEditor(0));
    m_group->DeleteCodeEditor(0);
    QString log = m_host->TakeMessages(host::MessageType::Error).join('|');
    log.remove("[TarnwickEditor2] ");
    QCOMPARE(log.split('|'),
        QStringList({"Failed to insert code editor. Tab and code editor count mismatch.",
            "Failed to remove code editor. Tab and code editor count mismatch.",
            "Failed to delete code editor. Tab and code editor count mismatch."}));
    delete stray;
}

TE2_TEST(GroupCheckingTest)
#include "GroupCheckingTest.moc"
