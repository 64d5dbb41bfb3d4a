#include "views/quickhelp/QuickHelpView.h"

#include "plugin/MayaUtil.h"
#include "settings/Settings.h"
#include "support/TestMain.h"
#include "views/quickhelp/QuickHelpFlags.h"
#include "views/quickhelp/QuickHelpPage.h"
#include "window/WindowFixture.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QSignalSpy>
#include <QtTest>

class QuickHelpViewTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { m_host.reset(); }
    void init();
    void cleanup() { m_view.reset(); }
    void SaysWhatANameIs_data();
    void SaysWhatANameIs();
    void ListsAndFiltersFlags();
    void GivesFlagsAway();
    void OpensTheFileOfAProcedure();
    void FollowsEveryWidth();
    void LooksUpWhatIsTyped();
    void AFlagsNameOnlyFilters();
    void RemembersNames();
    void PassingNamesTakeOnePlace();
    void UnaskedOnlyShowsWhatIsKnown();
    void AsksOnce_data();
    void AsksOnce();
    void NamesAreNoMarkup();

private:
    void Run(const QString& mel);
    void RunPython(const QString& text);
    void Ask(const QString& text, QuickHelpView::Script script = {});
    template <typename T>
    T* Find(const char* name) const
    {
        return m_view->findChild<T*>(name);
    }
    QString Page() const { return Find<QuickHelpPage>("m_quickHelpPage")->toPlainText(); }
    QString Title() const { return Page().section('\t', 0, 0).mid(2); }
    QString EmptyTitle() const { return Find<QLabel>("m_emptyTitle")->text(); }
    QuickHelpFlags* Flags() const { return Find<QuickHelpFlags>("m_quickHelpFlags"); }
    QLineEdit* Search() const { return Find<QLineEdit>("m_quickHelpSearch"); }

    std::unique_ptr<WindowFixture> m_host;
    QTemporaryDir m_folder;
    std::unique_ptr<QuickHelpView> m_view;
    QuickHelpView::Script m_script;
};

void QuickHelpViewTest::initTestCase()
{
    m_host = std::make_unique<WindowFixture>();
    QFile file(m_folder.filePath("te_tools.mel"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("// Tools\nglobal proc int teTwice(int $a)\n{\n    return 2 * $a;\n}\n");
    file.close();
    Run("source \"" + file.fileName() + "\"");
    Run("runTimeCommand -annotation \"Greets <b>all\" -command \"print \\\"hello\\\"\" teGreet");
    MayaUtil::RefreshCommandList();
}

void QuickHelpViewTest::init()
{
    m_view = std::make_unique<QuickHelpView>(nullptr);
    m_view->SetScriptSource([this] { return m_script; });
    m_view->resize(300, 700);
    m_view->show();
    m_view->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
}

void QuickHelpViewTest::Run(const QString& mel)
{
    QVERIFY2(MayaUtil::ExecuteMel(mel), qPrintable(mel));
}

void QuickHelpViewTest::RunPython(const QString& text)
{
    QVERIFY2(MayaUtil::ExecutePython(text), qPrintable(text));
}

void QuickHelpViewTest::Ask(const QString& text, QuickHelpView::Script script)
{
    m_script = script;
    m_view->Show(text, true);
}

void QuickHelpViewTest::SaysWhatANameIs_data()
{
    Columns<bool, QString, QStringList>("python", "text", "shown");
    const QString script = "import os.path as p\n\n\nclass Rig(object):\n    \"\"\"A <i>rig.\n\n"
                           "    More.\n    \"\"\"\n\n    def __init__(self, root, sides=2):\n"
                           "        self.x = self.mirror\n\n    def mirror(self):\n"
                           "        \"\"\"Turns it.\"\"\"\n\n\nrig = Rig(None)\n";
    const auto row = [&](const char* name, bool python, const char* text,
                         const QStringList& shown) { Row(name, python, QString(text), shown); };
    row("command", false, "button -l \"x\"", {"button", "MEL command", "button [flags] [String]"});
    row("command of a dotted name", true, "cmds.button(", {"button", "MEL command"});
    row("run-time command", false, "teGreet",
        {"teGreet", "Run-time command", "Greets <b>all", "COMMAND", "print \"hello\""});
    row("procedure", false, "teTwice(2)",
        {"teTwice", "MEL procedure", "global proc int teTwice(int $a)", "te_tools.mel"});
    row("Python function", true, "p.join(", {"p.join", "Python function", "join(a, *p)", "Join"});
    row("Python module", true, "os", {"os", "Python module", "/os.py"});
    row("class of the script", true, "Rig",
        {"Rig", "Python class", "Rig(root, sides=2)", "A <i>rig."});
    row("method at its place", true, "self.mirror", {"Python function", "mirror(self)", "Turns"});
    row("method of a variable", true, "rig.mirror", {"rig.mirror", "mirror(self)"});
    row("builtin that is a command, too", true, "print", {"print", "Python function", "*args"});
    row("no attribute that would have to be asked for", true, "te_thing.size",
        {"te_thing.size", "Python property", "How big."});
    Row("nothing known", false, "teNobody", QStringList());
    Row("not imported", true, "xml.dom.minidom", QStringList());
    m_script = {CodeEditorLanguage::Python, script, 11};
}

void QuickHelpViewTest::SaysWhatANameIs()
{
    QFETCH(bool, python);
    QFETCH(QString, text);
    QFETCH(QStringList, shown);
    RunPython(
        "import os\nclass TeThing:\n    @property\n    def size(self):\n        \"How big.\"\n"
        "        TeThing.asked = True\nte_thing = TeThing()");
    QuickHelpView::Script script = m_script;
    script.language = python ? CodeEditorLanguage::Python : CodeEditorLanguage::Mel;
    Ask(text, script);
    const bool isKnown = !shown.isEmpty();
    QCOMPARE(Find<QWidget>("m_quickHelpPage")->isVisible(), isKnown);
    if (!isKnown)
        QCOMPARE(EmptyTitle(), "No help for '" + text + "'");
    for (const QString& part : shown)
        QVERIFY2(Page().contains(part), qPrintable(Page()));
    QVERIFY(!Page().contains("More."));
    int asked = 1;
    QVERIFY(MayaUtil::ExecutePythonIntResult(QString("int(hasattr(TeThing, 'asked'))"), asked));
    QCOMPARE(asked, 0);
}

void QuickHelpViewTest::ListsAndFiltersFlags()
{
    Ask("button");
    QVERIFY(Flags()->topLevelItemCount() > 10);
    Search()->setText("-annotation");
    auto* const count = Find<QLabel>("m_quickHelpCount");
    QCOMPARE(count->text().section(' ', 0, 0), "1");
    Search()->setText("-annotationz");
    QVERIFY(count->text().startsWith("No flag matches"));
    Ask("teTwice");
    QVERIFY(!Flags()->isVisible());
    QVERIFY(!count->isVisible());
}

void QuickHelpViewTest::GivesFlagsAway()
{
    Ask("button");
    Search()->setText("annot");
    m_view->FocusSearch(Qt::TabFocusReason);
    QTest::keyClick(Search(), Qt::Key_Down);
    QVERIFY(Flags()->hasFocus());
    QSignalSpy chosen(m_view.get(), &QuickHelpView::FlagChosen);
    QTest::keyClick(Flags(), Qt::Key_Return);
    QCOMPARE(chosen.size(), 1);
    QCOMPARE(chosen[0][0].toString(), "annotation");
    QTest::keyClick(Flags(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), "-annotation");
    const std::unique_ptr<QMimeData> dragged(Flags()->model()->mimeData({Flags()->currentIndex()}));
    QCOMPARE(dragged->text(), "-annotation");
    QCOMPARE(dragged->data("text/tarnwickEditorFlag"), "annotation");
}

void QuickHelpViewTest::OpensTheFileOfAProcedure()
{
    Ask("teTwice");
    auto* const page = Find<QuickHelpPage>("m_quickHelpPage");
    QSignalSpy wanted(m_view.get(), &QuickHelpView::FileRequested);
    page->setFocus(Qt::TabFocusReason);
    QTest::keyClick(page, Qt::Key_Tab); // to the link
    QTest::keyClick(page, Qt::Key_Return);
    QCOMPARE(wanted.size(), 1);
    QCOMPARE(wanted[0][0].toString(), m_folder.filePath("te_tools.mel"));
    QCOMPARE(wanted[0][1].toInt(), 2);
}

void QuickHelpViewTest::FollowsEveryWidth()
{
    Ask("teTwice");
    auto* const page = Find<QuickHelpPage>("m_quickHelpPage");
    // So low that a scroll bar comes and goes while the page is written.
    for (int width = 400; width > 20; width -= 3) {
        m_view->resize(width, 150);
        QCoreApplication::processEvents();
        QVERIFY(Page().contains("teTwice"));
        QTRY_VERIFY(page->document()->idealWidth() <= page->viewport()->width() || width < 150);
    }
}

void QuickHelpViewTest::LooksUpWhatIsTyped()
{
    m_view->FocusSearch(Qt::TabFocusReason);
    QTest::keyClicks(Search(), "button");
    QTRY_COMPARE(Title(), "button");
    // The field is left to whoever types in it.
    QCOMPARE(Search()->text(), "button");
    QVERIFY(Flags()->Filter(QString()) > 10);
    QTest::keyClicks(Search(), "Nobody");
    QTest::keyClick(Search(), Qt::Key_Return);
    QCOMPARE(EmptyTitle(), "No help for 'buttonNobody'");
    Find<QAbstractButton>("m_quickHelpBackButton")->click();
    QCOMPARE(Title(), "button");
}

void QuickHelpViewTest::AFlagsNameOnlyFilters()
{
    // Both a flag of buttons and a command.
    const QString name = "menu";
    Ask("button");
    QVERIFY(!Flags()->HasFlag(name) && MayaUtil::MelCommands().contains(name));
    auto* const item = Flags()->topLevelItem(0)->clone();
    item->setText(0, "-" + name);
    Flags()->addTopLevelItem(item);
    Search()->setText(name);
    QTimer* const rest = m_view->findChild<QTimer*>();
    QTRY_VERIFY(!rest->isActive());
    QCOMPARE(Title(), "button");
    QTest::keyClick(Search(), Qt::Key_Return);
    QCOMPARE(Title(), name);
}

void QuickHelpViewTest::RemembersNames()
{
    for (const char* command : {"button", "window", "window", "menu"})
        Ask(command);
    auto* const back = Find<QAbstractButton>("m_quickHelpBackButton");
    auto* const forward = Find<QAbstractButton>("m_quickHelpForwardButton");
    QVERIFY(!forward->isEnabled());
    back->click();
    QCOMPARE(Title(), "window");
    back->click();
    QCOMPARE(Title(), "button");
    QVERIFY(!back->isEnabled());
    forward->click();
    QCOMPARE(Title(), "window");
    // A new name takes the place of what lay ahead.
    Ask("text");
    QVERIFY(!forward->isEnabled());
    back->click();
    QCOMPARE(Title(), "window");
}

void QuickHelpViewTest::PassingNamesTakeOnePlace()
{
    Ask("button");
    for (const char* command : {"window", "menu", "text"})
        m_view->Show(command, false);
    QCOMPARE(Title(), "text");
    Find<QAbstractButton>("m_quickHelpBackButton")->click();
    QCOMPARE(Title(), "button");
}

void QuickHelpViewTest::UnaskedOnlyShowsWhatIsKnown()
{
    m_script.language = CodeEditorLanguage::Python;
    Ask("button");
    for (const char* text : {"no_such_command", "os.path.join", ""})
        m_view->Show(text, false);
    QCOMPARE(Title(), "button");
    m_view->Show("window", false);
    QCOMPARE(Title(), "window");
}

void QuickHelpViewTest::AsksOnce_data()
{
    // "delay": ms
    Columns<QString, int, int>("answer", "delay", "times");
    Row("known", "['function', 'f()', '', '', '0', 'm']", 0, 1);
    Row("unknown, which may be imported next", "[]", 0, 2);
    Row("unknown and slow", "[]", 200, 1);
}

void QuickHelpViewTest::AsksOnce()
{
    QFETCH(QString, answer);
    QFETCH(int, delay);
    QStringList unused;
    MayaUtil::PythonNameHelp({}, "os", 0, unused);
    RunPython(QString("import time\nclass TeStandIn:\n    asked = 0\n"
                      "    def describe(self, *arguments):\n        TeStandIn.asked += 1\n"
                      "        time.sleep(%1 / 1000)\n        return %2\n"
                      "te_kept, TarnwickEditorInspector = TarnwickEditorInspector, TeStandIn")
                  .arg(delay)
                  .arg(answer));
    const QuickHelpView::Script script = {CodeEditorLanguage::Python, "te_name", 1};
    Ask("te_name", script);
    Ask("te_name", script);
    int asked = 0;
    QVERIFY(MayaUtil::ExecutePythonIntResult(QString("TeStandIn.asked"), asked));
    RunPython("TarnwickEditorInspector = te_kept");
    QTEST(asked, "times");
}

void QuickHelpViewTest::NamesAreNoMarkup()
{
    RunPython("def te_function():\n    '''Less than <b>that</b> &amp; more.'''");
    Ask("te_function", {CodeEditorLanguage::Python, {}, 0});
    QVERIFY(Page().contains("Less than <b>that</b> &amp; more."));
}

TE2_TEST(QuickHelpViewTest)
#include "QuickHelpViewTest.moc"
