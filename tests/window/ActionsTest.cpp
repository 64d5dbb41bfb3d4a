#include "commands/HelpRequests.h"
#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "editor/FindReplaceWidget.h"
#include "output/OutputTextEdit.h"
#include "plugin/MayaUtil.h"
#include "settings/Settings.h"
#include "support/TestMain.h"
#include "views/SideBar.h"
#include "window/FilesFixture.h"
#include "window/PanelGroup.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QLineEdit>
#include <QSplitter>
#include <QtTest>

/// Triggers every command of the window once, after which something must have come of it.
class ActionsTest : public QObject, private FilesFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    /// The host goes later than what the listener writes to.
    void cleanupTestCase() { m_host->GetEngine().output.Remove(m_listener); }
    void init();
    void cleanup() { QVERIFY(Finish()); }
    void DoesWhatItSays_data();
    void DoesWhatItSays();
    void EveryCommandHasARow();

private:
    using Step = std::function<void()>;
    using State = std::function<QString()>;

    struct Row
    {
        QString text; ///< of the action; of the second one with that text, with "#2" behind it
        State state; ///< read before and after
        QString expected;
        Step prepare;
    };

    void AddFileRows();
    void AddEditRows();
    void AddLineRows();
    void AddFindRows();
    void AddViewRows();
    void AddGoRows();
    void AddOutputRows();
    void AddCommandRows();
    void AddPythonRows();
    void AddHelpRows();
    void Add(
        const QString& text, const State& state, const QString& expected,
        const Step& prepare = [] {})
    {
        m_rows.append({text, state, expected, prepare});
    }
    QMap<QString, QAction*> Actions() const;
    CodeEditor* Editor() const { return m_window->GetActiveCodeEditor(); }
    PanelGroup* Panel() const { return m_window->findChild<PanelGroup*>(); }
    void Type(const QString& text) const { QTest::keyClicks(Editor(), text); }
    void Select(int start, int end) const { Editor()->SetCursorSelection(start, end); }
    void OpenBar() const;

    // States
    QString Text() const { return Editor()->GetText(); }
    QString Selection() const;
    QString Tabs() const;
    QString Dialogs() const;
    QString File() const { return Content(Path("script.py")); }
    QString BarRows() const;
    QString Page() const;
    QString Panes() const;
    /// The line when the host has printed it.
    QString Printed(const QString& line) const;

    QVector<Row> m_rows;
    mutable QStringList m_titles; ///< of the dialogs that came up
    QString m_printed;
    int m_listener = 0;
};

namespace {

const QByteArray SCRIPT = "import os\nprint('one')\nprint('two')\n";
constexpr int ONE = 17; ///< where "one" stands
constexpr int TWO = 30;

QString Number(int value)
{
    return QString::number(value);
}

} // namespace

void ActionsTest::initTestCase()
{
    m_listener = m_host->GetEngine().output.AddListener(
        [this](const host::Message& message) { m_printed += message.text + '\n'; });
    AddFileRows();
    AddEditRows();
    AddLineRows();
    AddFindRows();
    AddViewRows();
    AddGoRows();
    AddOutputRows();
    AddCommandRows();
    AddPythonRows();
    AddHelpRows();
}

/// Three tabs, of which the last is current, and one in the next group; the cursor before "one".
void ActionsTest::init()
{
    Start();
    Settings::saveAllOnExecute = false;
    OpenFile("a.py");
    OpenFile("b.py");
    m_window->CreateCodeEditor(CodeEditorType::Buffer, CodeEditorLanguage::Text, Path("x"), "x",
        QString(), m_window->GetCodeEditorGroupByIndex(1), -1);
    OpenFile("script.py", SCRIPT);
    Select(ONE, ONE);
    m_titles.clear();
    m_printed.clear();
}

QMap<QString, QAction*> ActionsTest::Actions() const
{
    QMap<QString, QAction*> actions;
    for (QAction* action : m_window->actions())
        actions.insert(action->text() + (actions.contains(action->text()) ? "#2" : ""), action);
    return actions;
}

void ActionsTest::OpenBar() const
{
    Select(ONE, ONE + 3);
    m_window->Replace();
    Group()->findChild<QLineEdit*>("m_replaceLineEdit")->setText("six");
}

QString ActionsTest::Selection() const
{
    const QTextCursor cursor = Editor()->textCursor();
    return QStringLiteral("%1-%2").arg(cursor.selectionStart()).arg(cursor.selectionEnd());
}

/// The labels of all groups; the active one's current tab is marked.
QString ActionsTest::Tabs() const
{
    QStringList labels;
    for (int i = 0; i < m_window->GetCodeEditorGroupCount(); ++i) {
        const CodeEditorGroup* const group = m_window->GetCodeEditorGroupByIndex(i);
        for (int tab = 0; tab < group->GetCount(); ++tab)
            labels += group->GetLabel(tab) + (group->GetCodeEditor(tab) == Editor() ? "*" : "");
    }
    return labels.join(' ');
}

/// The titles of the dialogs that came up, all of which were answered.
QString ActionsTest::Dialogs() const
{
    for (const DialogAnswers::Seen& seen : const_cast<DialogAnswers&>(m_dialogs).Take())
        m_titles += seen.title;
    return m_titles.join(' ');
}

QString ActionsTest::BarRows() const
{
    if (!Group()->IsFindReplaceVisible())
        return "none";
    return Group()->GetFindReplace()->IsReplaceVisible() ? "find and replace" : "find";
}

QString ActionsTest::Page() const
{
    const auto* const bar = m_window->findChild<SideBar*>();
    return bar->isVisible() ? Number(int(bar->GetPage())) : "none";
}

QString ActionsTest::Panes() const
{
    QStringList names;
    for (const char* name :
        {"m_codeEditorSplitter", "m_outputPanel", "m_sideBar", "m_activityBar", "m_statusBar"}) {
        if (m_window->findChild<QWidget*>(name)->isVisible())
            names += QString(name).mid(2);
    }
    return names.join(' ');
}

QString ActionsTest::Printed(const QString& line) const
{
    return m_printed.split('\n').contains(line) ? line : QString();
}

void ActionsTest::AddFileRows()
{
    const State tabs = [this] { return Tabs(); };
    const State dialogs = [this] { return Dialogs(); };
    const State file = [this] { return File(); };
    Add("New...", tabs, "a.py b.py script.py MEL* x", [this] { m_dialogs.Press("MEL"); });
    Add("New MEL Buffer", tabs, "a.py b.py script.py MEL* x");
    Add("New Python Buffer", tabs, "a.py b.py script.py Python* x");
    Add("Open File...", tabs, "a.py b.py script.py c.mel* x",
        [this] { m_dialogs.ChooseFile(MakeFile("c.mel")); });
    Add("Reopen Closed File", tabs, "a.py b.py script.py* x", [this] { m_window->CloseFile(); });
    Add(
        "Clear Items", [] { return Settings::recentFiles.join(' '); }, "",
        [this] { m_window->CloseFile(); });
    Add("Open Workspace...", dialogs, "Open File");
    Add("Add Folder to Workspace...", dialogs, "Add Folder to Workspace");
    Add(
        "Save Workspace As...", [this] { return Number(QFile::exists(Path("w.te2-workspace"))); },
        "1", [this] { m_dialogs.ChooseFile(Path("w.te2-workspace")); });
    Add("Save", file, QString(SCRIPT).insert(ONE, "x"), [this] { Type("x"); });
    Add("Save As...", tabs, "a.py b.py d.py* x", [this] { m_dialogs.ChooseFile(Path("d.py")); });
    Add("Save All", file, QString(SCRIPT).insert(ONE, "x"), [this] { Type("x"); });
    Add("Rename...", tabs, "a.py b.py e.py* x", [this] { m_dialogs.Type("e.py"); });
    Add("Save Script to Shelf...", dialogs, "New Shelf Item");
    Add(
        "Source Script...", [this] { return Printed("sourced"); }, "sourced",
        [this] { m_dialogs.ChooseFile(MakeFile("s.mel", "print \"sourced\\n\";\n")); });
    Add(
        "Revert File", [this] { return Text(); }, SCRIPT,
        [this] {
            Type("x");
            m_dialogs.Press("Yes");
        });
    Add("Close File", tabs, "a.py b.py* x");
    Add("Close All Files", tabs, "");
    const QString ini = Settings::GetUserConfigDirectory() + "/tarnwickEditor2.ini";
    Add(
        "Save State", [ini] { return Number(QFile::exists(ini)); }, "1",
        [ini] { QFile::remove(ini); });
}

void ActionsTest::AddEditRows()
{
    const State text = [this] { return Text(); };
    const State clipboard = [] { return QApplication::clipboard()->text(); };
    const QString typed = QString(SCRIPT).insert(ONE, "x");
    const Step selectOne = [this] {
        QApplication::clipboard()->clear();
        Select(ONE, ONE + 3);
    };
    Add("Undo", text, SCRIPT, [this] { Type("x"); });
    Add("Redo", text, typed, [this] {
        Type("x");
        m_window->Undo();
    });
    Add("Cut", text, QString(SCRIPT).remove(ONE, 3), selectOne);
    Add("Copy", clipboard, "one", selectOne);
    Add("Paste", text, typed, [] { QApplication::clipboard()->setText("x"); });
    Add(
        "Select All", [this] { return Selection(); }, "0-" + Number(SCRIPT.size()));
    Add("Convert Tabs to Spaces", text, "    x", [this] { Editor()->SetText("\tx"); });
    const State shortText = [this] { return Text().remove(m_folder->path()); };
    Add("Insert Path...", shortText, "/new.txt", [this] {
        Editor()->SetText(QString());
        m_dialogs.Do([path = Path("new.txt")](QDialog* dialog) {
            dialog->findChild<QLineEdit*>("m_path")->setText(path);
            dialog->accept();
        });
    });
    Add(
        "Clear Output", [this] { return m_window->findChild<OutputTextEdit*>()->toPlainText(); },
        "", [this] { m_window->AppendToOutput("x\n"); });
    Add(
        "Preferences...", [this] { return Dialogs(); }, "Preferences");
}

void ActionsTest::AddLineRows()
{
    const State text = [this] { return Text(); };
    const auto changed = [](const char* lines) { return "import os\n" + QString(lines); };
    Add("Increase Indent", text, changed("    print('one')\nprint('two')\n"),
        [this] { Select(ONE - 7, ONE + 5); });
    Add("Decrease Indent", text, "x\n", [this] { Editor()->SetText("    x\n"); });
    Add("Copy Line Up", text, changed("print('one')\nprint('one')\nprint('two')\n"));
    Add("Copy Line Down", text, changed("print('one')\nprint('one')\nprint('two')\n"));
    Add("Move Line Up", text, "print('one')\nimport os\nprint('two')\n");
    Add("Move Line Down", text, changed("print('two')\nprint('one')\n"));
    Add("Delete Line", text, changed("print('two')\n"));
    Add("Toggle Comment", text, changed("# print('one')\nprint('two')\n"));
    Add("Toggle Block Comment", text, changed("# print('one')\nprint('two')\n"));
}

void ActionsTest::AddFindRows()
{
    const State text = [this] { return Text(); };
    const State bar = [this] { return BarRows(); };
    const State selection = [this] { return Selection(); };
    const State page = [this] { return Page(); };
    const QString search = Number(int(SideBar::Page::Search));
    const auto at = [](int start, int length) {
        return QStringLiteral("%1-%2").arg(start).arg(start + length);
    };
    // "print" stands twice.
    const Step inFirst = [this] { Select(ONE - 5, ONE - 5); };
    const Step seek = [this] {
        Select(ONE - 7, ONE - 2);
        m_window->Find();
        Group()->SetFindReplaceVisible(false);
    };
    Add("Find", bar, "find");
    Add("Replace", bar, "find and replace");
    Add("Find Next", selection, at(TWO - 7, 5), seek);
    Add("Find Previous", selection, at(TWO - 7, 5), seek);
    Add("Select and Find Next", selection, at(TWO - 7, 5), inFirst);
    Add("Select and Find Previous", selection, at(TWO - 7, 5), inFirst);
    Add("Replace Next", text, QString(SCRIPT).replace("one", "six"), [this] { OpenBar(); });
    Add("Replace#2", text, QString(SCRIPT).replace("one", "six"), [this] { OpenBar(); });
    for (const char* name :
        {"Find in Files", "Replace in Files", "Find in Files Next", "Find in Files Previous"})
        Add(name, page, search);
}

void ActionsTest::AddViewRows()
{
    const State panes = [this] { return Panes(); };
    const State page = [this] { return Page(); };
    const State place = [] {
        return QStringLiteral("%1 %2").arg(
            Settings::outputOrientVertical ? "vertical" : "horizontal",
            Settings::outputTopLeft ? "first" : "last");
    };
    Add("Explorer", page, Number(int(SideBar::Page::Explorer)),
        [this] { m_window->ShowQuickHelp(); });
    Add("Quick Help", page, Number(int(SideBar::Page::QuickHelp)));
    Add("Toggle Code Editor", panes, "outputPanel sideBar activityBar statusBar");
    Add("Toggle Output", panes, "codeEditorSplitter sideBar activityBar statusBar");
    Add("Toggle Side Bar", panes, "codeEditorSplitter outputPanel activityBar statusBar");
    Add("Hide Activity Bar", panes, "codeEditorSplitter outputPanel sideBar statusBar");
    Add("Hide Status Bar", panes, "codeEditorSplitter outputPanel sideBar activityBar");
    Add(
        "Toggle Code Editor Layout",
        [this] {
            const auto* const splitter = m_window->findChild<QSplitter*>("m_codeEditorSplitter");
            return Number(splitter->orientation());
        },
        Number(Qt::Vertical));
    Add(
        "Move Side Bar Right",
        [this] {
            const auto* const bar = m_window->findChild<SideBar*>();
            return Number(bar->mapTo(m_window, QPoint()).x() > m_window->width() / 2);
        },
        "1");
    const Step atRight = [this] { m_window->OutputPositionRight(); };
    Add("Top", place, "vertical first", atRight);
    Add("Bottom", place, "vertical last", atRight);
    Add("Left", place, "horizontal first", atRight);
    Add("Right", place, "horizontal last");
    Add(
        "Toggle Render Whitespaces",
        [this] {
            const QTextOption option = Editor()->document()->defaultTextOption();
            return Number(bool(option.flags() & QTextOption::ShowTabsAndSpaces));
        },
        "1");
    Add(
        "Toggle Word Wrap",
        [this] { return Number(Editor()->document()->defaultTextOption().wrapMode()); },
        Number(QTextOption::WordWrap));
    const State size = [this] {
        return Number(Editor()->font().pointSize() - Settings::codeEditorFont.pointSize());
    };
    Add("Increase Font Size", size, "1");
    Add("Decrease Font Size", size, "-1");
    Add("Reset Font Size", size, "0", [this] { m_window->IncreaseFontSize(); });
}

void ActionsTest::AddGoRows()
{
    const State tabs = [this] { return Tabs(); };
    Add("Next Editor", tabs, "a.py b.py script.py x*");
    Add("Previous Editor", tabs, "a.py b.py* script.py x");
    Add("Next Used Editor in Group", tabs, "a.py b.py* script.py x");
    Add("Previous Used Editor in Group", tabs, "a.py* b.py script.py x");
    Add("Next Editor Group", tabs, "a.py b.py script.py x*");
    Add("Previous Editor Group", tabs, "a.py b.py script.py x*");
    const State goTo = [this] {
        const auto* widget = m_window->findChild<GoToWidget*>();
        const QString typed = widget->findChild<QLineEdit*>()->text();
        return widget->isVisible() ? "open " + typed : QString();
    };
    Add("Go to File...", goTo, "open ");
    Add("Go to Symbol in File...", goTo, "open @");
    Add("Go to Line...", goTo, "open :");
}

void ActionsTest::AddOutputRows()
{
    const State verbosity = [this] { return Number(Panel()->GetVerbosityIndex()); };
    const Step minimal = [this] { Panel()->SetMinimalVerbosity(); };
    Add("Echo All", verbosity, "0", minimal);
    Add("Normal", verbosity, "1", minimal);
    Add("Minimal", verbosity, "2", [this] { Panel()->SetNormalVerbosity(); });
    const State echo = [] { return Number(MayaUtil::EchoAllCommandsEnabled()); };
    Add("Echo All Commands", echo, "1", minimal);
    const Step numbersOff = [this] {
        MayaUtil::SetLineNumbersInErrorsEnabled(false);
        Actions()["Line Numbers in Errors"]->setChecked(false);
    };
    Add(
        "Line Numbers in Errors", [] { return Number(MayaUtil::LineNumbersInErrorsEnabled()); },
        "1", numbersOff);
    const Step traceOff = [this] {
        MayaUtil::SetShowStackTraceEnabled(false);
        Actions()["Show Stack Trace"]->setChecked(false);
    };
    Add(
        "Show Stack Trace", [] { return Number(MayaUtil::ShowStackTraceEnabled()); }, "1",
        traceOff);
    Add(
        "Suppress Stack Window", [] { return Number(Settings::suppressStackWindow); }, "0");
    Add(
        "Write Output to File", [this] { return Number(QFile::exists(Path("o.log"))); }, "1",
        [this] { m_dialogs.ChooseFile(Path("o.log")); });
}

void ActionsTest::AddCommandRows()
{
    const State printed = [this] { return Printed("one") + Printed("two"); };
    const Step selectLine = [this] { Select(TWO - 7, TWO + 5); };
    Add("Execute", printed, "two", selectLine);
    Add("Execute Alt", printed, "two", selectLine);
    Add("Execute Line", printed, "one");
    Add("Execute All", printed, "onetwo", selectLine);
    for (const char* name : {"MAYA_SCRIPT_PATH", "MAYA_PLUG_IN_PATH", "MAYA_MODULE_PATH",
             "MAYA_SHELF_PATH", "XBMLANGPATH", "PYTHONPATH"}) {
        const QString title = QString(name) + ':';
        Add(
            name, [this, title] { return Printed(title); }, title);
    }
}

void ActionsTest::AddPythonRows()
{
    const auto printed
        = [this](const QString& line) { return [this, line] { return Printed(line); }; };
    Add("sys.path", printed("sys.path:"), "sys.path:");
    Add("os.environ", printed("os.environ"), "os.environ");
    const Step atName = [this] {
        MayaUtil::ExecutePython(QString("import os"));
        Editor()->SetText("x = os.path.abspath(y)");
        Select(10, 10);
    };
    Add("dir( )", printed("dir(os.path.abspath)"), "dir(os.path.abspath)", atName);
    Add("help( )", printed("    Return an absolute path."), "    Return an absolute path.", atName);
    Add(
        "Update Module State", [this] { return Dialogs(); }, "Python Module State",
        [this] { m_dialogs.Press("Yes"); });
    const QString reverted = "[TarnwickEditor2] Python module state reverted.";
    Add("Revert Module State", printed(reverted), reverted);
    Add(
        "Revert Module State on Execute",
        [] { return Number(Settings::pythonRevertModuleStateOnExecute); }, "1");
    Add(
        "Open pylintrc", [this] { return Tabs(); }, "a.py b.py script.py rc* x",
        [this] { Settings::pylintConfigPath = MakeFile("rc"); });
}

void ActionsTest::AddHelpRows()
{
    const State page = [] {
        const auto& requests = host::commands::HelpRequests::Current().All();
        return requests.isEmpty() ? QString() : requests.last().target;
    };
    Add("MEL Command Reference", page, "DocsMelCommands");
    Add("Python Command Reference", page, "DocsPythonCommands");
    Add("Node and Attribute Reference", page, "DocsNodes");
    Add("Command Reference", page, "CommandsPython/index.html");
    Add(
        "About...", [this] { return Dialogs(); }, "About Tarnwick Editor 2");
}

void ActionsTest::DoesWhatItSays_data()
{
    QTest::addColumn<int>("row");
    for (int i = 0; i < m_rows.size(); ++i)
        QTest::newRow(qPrintable(m_rows[i].text)) << i;
}

void ActionsTest::DoesWhatItSays()
{
    QFETCH(int, row);
    const Row& command = m_rows[row];
    QAction* const action = Actions().value(command.text);
    QVERIFY(action);
    command.prepare();
    m_host->RunIdle();
    QVERIFY(command.state() != command.expected);
    action->trigger();
    QTRY_COMPARE(command.state(), command.expected);
}

void ActionsTest::EveryCommandHasARow()
{
    QStringList rows;
    for (const Row& row : qAsConst(m_rows))
        rows += row.text;
    rows.sort();
    QCOMPARE(rows, QStringList(Actions().keys()));
}

TE2_TEST(ActionsTest)
#include "ActionsTest.moc"
