#include "window/TarnwickEditor.h"

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "output/OutputTextEdit.h"
#include "plugin/MayaUtil.h"
#include "settings/Settings.h"
#include "support/TestMain.h"
#include "window/DialogAnswers.h"
#include "window/WindowFixture.h"
#include "window/chrome/FlatButton.h"
#include "window/chrome/StatusBar.h"
#include "window/chrome/StatusItem.h"

#include <QFileInfo>
#include <QLineEdit>
#include <QMainWindow>
#include <QThread>
#include <QVBoxLayout>
#include <QtTest>

using host::MessageType;
using Language = CodeEditorLanguage;

class TarnwickEditorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_host = std::make_unique<WindowFixture>(); }
    void init();
    void cleanup();
    void cleanupTestCase() { m_host.reset(); }
    void StartsWithOneBufferOfEachLanguage();
    void ExecutesByKey_data();
    void ExecutesByKey();
    void ExecutesByButtonWithoutTakingTheFocus();
    void ExecutesNothingWithoutAnEditorInFocus();
    void RevertsModulesBeforeAnyScript();
    void ShowsTheHistoryThatWasThereBefore();
    void ShowsOutputOfOtherThreadsInOrder();
    void OutputMayArriveWhileTheWindowGoes();
    void TakesTheModuleBaselineOnTheFirstShow();
    void KeepsTheBuffersTextForTheNextWindow();
    void ShortcutsWorkOnlyInsideWhileDocked();
    void OpensAFileOnlyOnce();
    void TellsTheLanguageByTheFileName_data();
    void TellsTheLanguageByTheFileName();
    void TellsTheCursorsPlace();

private:
    void CreateWindow();
    CodeEditor* FocusEditor(Language language, const QString& text);
    OutputTextEdit* Output() const { return m_window->findChild<OutputTextEdit*>(); }
    int PythonInt(const QString& expression) const;

    std::unique_ptr<WindowFixture> m_host;
    std::unique_ptr<QMainWindow> m_frame; ///< stands for the host's window around the panel
    QPointer<TarnwickEditor> m_window;
};

void TarnwickEditorTest::init()
{
    Settings::showTabBarMiniToolbar = true;
    Settings::saveAllOnExecute = false;
    Settings::pythonRevertModuleStateOnExecute = false;
    CreateWindow();
}

void TarnwickEditorTest::cleanup()
{
    m_frame.reset();
    QDir(Settings::GetInternalBufferDirectoryPath()).removeRecursively();
    m_host->RunIdle();
}

void TarnwickEditorTest::CreateWindow()
{
    m_frame = std::make_unique<QMainWindow>();
    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    layout->addWidget(new QLineEdit);
    m_window = new TarnwickEditor;
    layout->addWidget(m_window);
    m_frame->setCentralWidget(content);
    m_frame->resize(900, 700);
    m_frame->show();
    m_frame->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_frame.get()));
    m_host->RunIdle();
}

CodeEditor* TarnwickEditorTest::FocusEditor(Language language, const QString& text)
{
    CodeEditorGroup* group = m_window->GetActiveCodeEditorGroup();
    for (int i = 0; i < group->GetCount(); ++i) {
        if (group->GetLanguage(i) == language)
            m_window->SetActiveCodeEditor(0, i, true);
    }
    CodeEditor* editor = m_window->GetActiveCodeEditor();
    editor->SetText(text);
    m_host->TakeMessages(MessageType::History);
    return editor;
}

int TarnwickEditorTest::PythonInt(const QString& expression) const
{
    int value = -1;
    MayaUtil::ExecutePythonIntResult(expression, value, false, false);
    return value;
}

void TarnwickEditorTest::StartsWithOneBufferOfEachLanguage()
{
    const CodeEditorGroup* group = m_window->GetActiveCodeEditorGroup();
    QCOMPARE(group->GetCount(), 2);
    QCOMPARE(group->GetLabel(0), "MEL");
    QCOMPARE(group->GetLanguage(0), Language::Mel);
    QCOMPARE(group->GetLabel(1), "Python");
    QCOMPARE(group->GetLanguage(1), Language::Python);
    QCOMPARE(group->GetType(1), CodeEditorType::Buffer);
    QCOMPARE(m_window->GetCodeEditorWithFocus(), group->GetCodeEditor(1));
    QCOMPARE(m_window->objectName(), "TarnwickEditor2");
}

void TarnwickEditorTest::ExecutesByKey_data()
{
    // "selected": the second line; "expected": 1: the first line ran, 2: the second, 4: the third
    Columns<int, int, bool, int>("key", "modifiers", "selected", "expected");
    const int ctrl = Qt::ControlModifier;
    const int shift = Qt::ShiftModifier;
    const int alt = Qt::AltModifier;
    const int keypad = Qt::KeypadModifier;
    Row("execute without a selection", int(Qt::Key_Return), ctrl, false, 7);
    Row("execute the selection", int(Qt::Key_Return), ctrl, true, 2);
    Row("keypad enter", int(Qt::Key_Enter), keypad, true, 2);
    Row("ctrl and keypad enter", int(Qt::Key_Enter), (ctrl | keypad), true, 2);
    Row("execute all", int(Qt::Key_Return), (ctrl | shift), true, 7);
    Row("execute line", int(Qt::Key_Return), (ctrl | alt), false, 4);
    Row("return only edits", int(Qt::Key_Return), 0, false, 0);
}

void TarnwickEditorTest::ExecutesByKey()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(bool, selected);
    for (const Language language : {Language::Mel, Language::Python}) {
        const bool mel = language == Language::Mel;
        MayaUtil::ExecuteMel(QString("global int $teRan; $teRan = 0;"));
        MayaUtil::ExecutePython(QString("teRan = 0"));
        const QString line = mel ? "global int $teRan; $teRan += %1;\n" : "teRan += %1\n";
        const QString text = line.arg(1) + line.arg(2) + line.arg(4).trimmed();
        CodeEditor* editor = FocusEditor(language, text);
        editor->SetCursorSelection(text.size(), text.size());
        if (selected)
            editor->SetCursorSelection(line.arg(1).size(), line.arg(1).size() * 2);
        QTest::keyClick(m_frame->windowHandle(), Qt::Key(key), Qt::KeyboardModifiers(modifiers));
        int ran = -1;
        if (mel)
            MayaUtil::ExecuteMelIntResult(QString("global int $teRan; int $teCopy = $teRan;"), ran);
        else
            ran = PythonInt("teRan");
        QTEST(ran, "expected");
    }
}

void TarnwickEditorTest::ExecutesByButtonWithoutTakingTheFocus()
{
    CodeEditor* editor = FocusEditor(Language::Python, "teClicked = 1\nteClicked += 10");
    const CodeEditorGroup* group = m_window->GetActiveCodeEditorGroup();
    auto* all = group->findChild<FlatButton*>("m_executeAllButton");
    QTest::mouseClick(all, Qt::LeftButton);
    QCOMPARE(PythonInt("teClicked"), 11);
    QVERIFY(editor->hasFocus());
    editor->SetCurrentLine(2);
    QTest::mouseClick(group->findChild<FlatButton*>("m_executeLineButton"), Qt::LeftButton);
    QCOMPARE(PythonInt("teClicked"), 21);
    editor->SetCurrentLine(1);
    QTest::mouseClick(group->findChild<FlatButton*>("m_executeButton"), Qt::LeftButton);
    QCOMPARE(PythonInt("teClicked"), 11);
    // From elsewhere it is the button's own group that is meant.
    MayaUtil::ExecutePython(QString("teClicked = 0"));
    Output()->setFocus();
    QTest::mouseClick(all, Qt::LeftButton);
    QCOMPARE(PythonInt("teClicked"), 11);
    QVERIFY(editor->hasFocus());
    QCOMPARE(all->toolTip(), "Execute All (Ctrl+Shift+Return)");
}

void TarnwickEditorTest::ExecutesNothingWithoutAnEditorInFocus()
{
    FocusEditor(Language::Python, "teUnfocused = 1");
    MayaUtil::ExecutePython(QString("teUnfocused = 0"));
    Output()->setFocus();
    QTest::keyClick(m_frame->windowHandle(), Qt::Key_Return, Qt::ControlModifier);
    m_window->ExecuteAll();
    QCOMPARE(PythonInt("teUnfocused"), 0);
}

void TarnwickEditorTest::RevertsModulesBeforeAnyScript()
{
    MayaUtil::ExecutePython(QString("import sys, colorsys"));
    QCOMPARE(PythonInt("int('colorsys' in sys.modules)"), 1);
    Settings::pythonRevertModuleStateOnExecute = true;
    FocusEditor(Language::Mel, "print \"\";");
    m_window->Execute();
    m_host->RunIdle();
    QCOMPARE(PythonInt("int('colorsys' in sys.modules)"), 0);
}

void TarnwickEditorTest::ShowsTheHistoryThatWasThereBefore()
{
    m_frame.reset();
    MayaUtil::ExecuteMel(QString("print \"printed before the window\\n\";"));
    CreateWindow();
    QVERIFY(Output()->GetText().contains("printed before the window\n"));
}

void TarnwickEditorTest::ShowsOutputOfOtherThreadsInOrder()
{
    constexpr int LINES = 2000;
    m_window->ClearHistory();
    Settings::outputBufferSize = 5 * LINES;
    m_window->ApplyPreferences();
    QVector<QThread*> threads;
    for (const char* name : {"a", "b", "c", "d"}) {
        threads += QThread::create([this, name] {
            for (int i = 0; i < LINES; ++i)
                m_window->AppendToOutputThreadSafe(QString("%1%2\n").arg(name).arg(i));
        });
        threads.last()->start();
    }
    QTRY_COMPARE(Output()->blockCount(), 4 * LINES + 1);
    QMap<QChar, int> next;
    for (const QString& line : Output()->GetText().split('\n', Qt::SkipEmptyParts))
        QCOMPARE(line.mid(1).toInt(), next[line.at(0)]++);
    for (QThread* thread : threads) {
        QVERIFY(thread->wait());
        delete thread;
    }
    Settings::outputBufferSize = 3000;
}

void TarnwickEditorTest::OutputMayArriveWhileTheWindowGoes()
{
    QThread* thread = QThread::create([this] {
        for (int i = 0; i < 500; ++i)
            m_window->AppendToOutputThreadSafe("late\n");
    });
    thread->start();
    QVERIFY(thread->wait());
    delete thread;
    // What is queued now finds no window any more.
    m_window->Shutdown();
    m_frame.reset();
    QVERIFY(m_window.isNull());
    QCoreApplication::processEvents();
}

void TarnwickEditorTest::TakesTheModuleBaselineOnTheFirstShow()
{
    QVERIFY(m_window->IsPythonModuleStateUpdated());
    QCOMPARE(PythonInt("int('sys' in TarnwickEditorHelpers.module_names)"), 1);
    MayaUtil::ExecutePython(QString("TarnwickEditorHelpers.module_names = ['kept']"));
    m_frame->hide();
    m_frame->show();
    m_host->RunIdle();
    const auto hasOne
        = [this] { return PythonInt("len(TarnwickEditorHelpers.module_names)") == 1; };
    QVERIFY(hasOne());
    // From then on it asks.
    DialogAnswers dialogs;
    for (const char* button : {"", "No", "Yes"}) {
        QVERIFY(hasOne());
        dialogs.Press(button);
        m_window->PythonUpdateModuleState();
        m_host->RunIdle();
        QCOMPARE(dialogs.Take().value(0).title, "Python Module State");
    }
    QVERIFY(!hasOne());
}

void TarnwickEditorTest::KeepsTheBuffersTextForTheNextWindow()
{
    const QString text = QString::fromUtf8("print('\xc3\xa4 \xe2\x82\xac')\n");
    FocusEditor(Language::Python, text);
    FocusEditor(Language::Mel, "polyCube;");
    m_window->GetActiveCodeEditorGroup()->SetModified(0, true);
    m_window->GetActiveCodeEditorGroup()->SetModified(1, true);
    m_window->Shutdown();
    m_frame.reset();
    CreateWindow();
    const CodeEditorGroup* group = m_window->GetActiveCodeEditorGroup();
    QCOMPARE(group->GetText(0), "polyCube;");
    QCOMPARE(group->GetText(1), text);
    QVERIFY(!group->IsModified(0) && !group->IsModified(1));
}

void TarnwickEditorTest::ShortcutsWorkOnlyInsideWhileDocked()
{
    const auto clear = [this] {
        m_window->AppendToOutput("some text");
        QTest::keyClick(
            m_frame->windowHandle(), Qt::Key_1, Qt::ControlModifier | Qt::ShiftModifier);
        return Output()->GetText().isEmpty();
    };
    FocusEditor(Language::Mel, "");
    QVERIFY(clear());
    m_frame->findChild<QLineEdit*>()->setFocus();
    QVERIFY(!clear());
    Output()->setFocus();
    QVERIFY(clear());
}

void TarnwickEditorTest::OpensAFileOnlyOnce()
{
    CodeEditorGroup* group = m_window->GetActiveCodeEditorGroup();
    const auto open = [this, group](const QString& path) {
        return m_window->CreateCodeEditor(
            CodeEditorType::Buffer, Language::Text, path, "notes", "text", group, -1);
    };
    QCOMPARE(open("/x/notes.txt"), 2);
    QCOMPARE(group->GetCurrentIndex(), 1);
    QCOMPARE(open("/x/notes.txt"), -1);
    QCOMPARE(group->GetCurrentIndex(), 2);
    QCOMPARE(m_window->GetCodeEditorCount(), 3);
    QCOMPARE(m_window->CreateCodeEditor(
                 CodeEditorType::Buffer, Language::Text, "/x/other.txt", "", "", nullptr, -1),
        -1);
}

void TarnwickEditorTest::TellsTheLanguageByTheFileName_data()
{
    Columns<QString, int>("name", "language");
    Row("py", "a.py", int(Language::Python));
    Row("upper case", "A.PY", int(Language::Python));
    Row("pyw", "a.b.pyw", int(Language::Python));
    Row("pyi is text", "a.pyi", int(Language::Text));
    Row("mel", "a.Mel", int(Language::Mel));
    Row("none", "mel", int(Language::Text));
}

void TarnwickEditorTest::TellsTheLanguageByTheFileName()
{
    QFETCH(QString, name);
    QTEST(int(TarnwickEditor::GetLanguageFromFilename(QFileInfo(name))), "language");
}

void TarnwickEditorTest::TellsTheCursorsPlace()
{
    CodeEditor* editor = FocusEditor(Language::Mel, "first\n\tsecond");
    const auto shown = [this](const char* name) {
        return m_window->findChild<StatusBar*>()->findChild<StatusItem*>(name)->GetText();
    };
    editor->SetCursorSelection(7, 9);
    QCOMPARE(shown("m_position"), "Ln 2, Col 7 (2 selected)");
    QCOMPARE(shown("m_interpreter"), "MEL");
    m_window->SetActiveCodeEditor(0, 1, true);
    QCOMPARE(shown("m_position"), "Ln 1, Col 1");
    QCOMPARE(shown("m_interpreter"), "Python");
}

TE2_TEST(TarnwickEditorTest)
#include "TarnwickEditorTest.moc"
