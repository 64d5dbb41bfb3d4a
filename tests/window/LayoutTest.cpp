#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "output/OutputTextEdit.h"
#include "settings/Settings.h"
#include "support/TestMain.h"
#include "views/SideBar.h"
#include "window/PanelGroup.h"
#include "window/TarnwickEditor.h"
#include "window/WindowFixture.h"
#include "window/chrome/ActivityBar.h"
#include "window/chrome/SplitterState.h"
#include "window/chrome/StatusBar.h"

#include <QAction>
#include <QMainWindow>
#include <QSplitter>
#include <QSplitterHandle>
#include <QtTest>

namespace {

constexpr int SIDE_BAR = 231; // pixels
constexpr int OUTPUT = 317;

/// A stored state with any direction and sizes, as the splitter writes it.
QByteArray State(Qt::Orientation orientation, const QList<int>& sizes)
{
    QByteArray state;
    QDataStream stream(&state, QIODevice::WriteOnly);
    stream << qint32(0xff) << qint32(1) << sizes << true << qint32(4) << true << qint32(orientation)
           << true;
    return state;
}

/// A list of 4 billion sizes, of which none is there.
QByteArray EndlessState()
{
    QByteArray state = State(Qt::Horizontal, {}).left(8);
    return state + QByteArray(4, '\xff');
}

} // namespace

class LayoutTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_host = std::make_unique<WindowFixture>(); }
    void cleanupTestCase() { m_host.reset(); }
    void init();
    void cleanup();
    void KeepsSizesEverywhere_data();
    void KeepsSizesEverywhere();
    void StartsWithTheRatios();
    void KeepsOnlyChosenSizesInAnotherWindow();
    void SurvivesHostileStates_data();
    void SurvivesHostileStates();
    void ShowsTheEditorsOrTheOutput_data();
    void ShowsTheEditorsOrTheOutput();
    void HandsTheFocusOn_data();
    void HandsTheFocusOn();
    void ResizingGoesToTheEditors();
    void DraggingAwayHidesTheSideBar();
    void DoubleClickGivesTheRatio();
    void MovesTheSideBarAndItsNeighbours();
    void MovingAHiddenPaneKeepsItsSize();
    void TurningTheOutputGivesTheRatio();
    void HidesEmptyGroups();
    void GoesRoundTheEditorsOfAllGroups();
    void GoesThroughUsedEditorsWhileCtrlIsHeld();
    void SaysWhatAnEntryWouldDo();
    void TabGoesFromTheEdgeInwards();
    void RemembersAFloatingPanelsPlaceOnly();

private:
    void CreateWindow();
    void Reopen();
    template <typename T>
    T* Find(const char* name) const
    {
        return m_window->findChild<T*>(name);
    }
    QSplitter* SideBarSplitter() const { return Find<QSplitter>("m_sideBarSplitter"); }
    QSplitter* OutputSplitter() const { return Find<QSplitter>("m_outputSplitter"); }
    int SideBarWidth() const;
    int OutputExtent() const;
    void SetExtents(int sideBar, int output) const;
    void ToggleSideBarAtOnce();
    CodeEditor* OpenBuffer(int group, const QString& name) const;
    QAction* Action(const QString& text) const;

    std::unique_ptr<WindowFixture> m_host;
    std::unique_ptr<QMainWindow> m_frame;
    QPointer<TarnwickEditor> m_window;
};

void LayoutTest::init()
{
    Settings::ResetToDefaults();
    m_host->GetEngine().history.Clear(); // which every window shows
}

void LayoutTest::cleanup()
{
    m_frame.reset();
    QFile::remove(Settings::GetUserConfigPath());
    QDir(Settings::GetInternalBufferDirectoryPath()).removeRecursively();
    m_host->RunIdle();
}

void LayoutTest::CreateWindow()
{
    m_frame = std::make_unique<QMainWindow>();
    m_window = new TarnwickEditor;
    m_frame->setCentralWidget(m_window);
    m_frame->resize(1300, 1000);
    m_frame->show();
    m_frame->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_frame.get()));
    m_host->RunIdle();
}

/// As the host is left and started again.
void LayoutTest::Reopen()
{
    m_window->Shutdown();
    m_frame.reset();
    Settings::ResetToDefaults();
    Settings::ReadUserConfig();
    CreateWindow();
}

int LayoutTest::SideBarWidth() const
{
    return SideBarSplitter()->sizes()[!Settings::sideBarLeft];
}

int LayoutTest::OutputExtent() const
{
    return OutputSplitter()->sizes()[!Settings::outputTopLeft];
}

void LayoutTest::SetExtents(int sideBar, int output) const
{
    const auto set = [](QSplitter* splitter, int pane, bool first) {
        const QList<int> sizes = splitter->sizes();
        const int rest = sizes[0] + sizes[1] - pane;
        splitter->setSizes(first ? QList<int>{pane, rest} : QList<int>{rest, pane});
    };
    set(SideBarSplitter(), sideBar, Settings::sideBarLeft);
    set(OutputSplitter(), output, Settings::outputTopLeft);
}

/// Where nobody sees it, nothing slides.
void LayoutTest::ToggleSideBarAtOnce()
{
    m_frame->hide();
    m_window->ToggleSideBar();
    m_frame->show();
}

CodeEditor* LayoutTest::OpenBuffer(int group, const QString& name) const
{
    CodeEditorGroup* const target = m_window->GetCodeEditorGroupByIndex(group);
    const int index = m_window->CreateCodeEditor(CodeEditorType::Buffer, CodeEditorLanguage::Text,
        "/x/" + name, name, QString(), target, -1);
    return target->GetCodeEditor(index);
}

QAction* LayoutTest::Action(const QString& text) const
{
    for (QAction* action : m_window->actions()) {
        if (action->text() == text)
            return action;
    }
    return nullptr;
}

void LayoutTest::KeepsSizesEverywhere_data()
{
    Columns<bool, bool, bool, bool>("vertical", "topLeft", "sideBarLeft", "groupsVertical");
    for (int row = 0; row < 16; ++row) {
        QTest::addRow("output %s, side bar %s, groups %s",
            row & 1 ? (row & 2 ? "top" : "bottom") : (row & 2 ? "left" : "right"),
            row & 4 ? "left" : "right", row & 8 ? "stacked" : "side by side")
            << bool(row & 1) << bool(row & 2) << bool(row & 4) << bool(row & 8);
    }
}

void LayoutTest::KeepsSizesEverywhere()
{
    QFETCH(bool, vertical);
    QFETCH(bool, topLeft);
    QFETCH(bool, sideBarLeft);
    QFETCH(bool, groupsVertical);
    Settings::outputOrientVertical = vertical;
    Settings::outputTopLeft = topLeft;
    Settings::sideBarLeft = sideBarLeft;
    Settings::codeEditorOrientVertical = groupsVertical;
    CreateWindow();
    SetExtents(SIDE_BAR, OUTPUT);

    for (const auto toggle : {&TarnwickEditor::ToggleOutput, &TarnwickEditor::ToggleCodeEditor}) {
        (m_window->*toggle)();
        (m_window->*toggle)();
    }
    QCOMPARE(OutputExtent(), OUTPUT);
    ToggleSideBarAtOnce();
    QVERIFY(Find<SideBar>("m_sideBar")->isHidden());
    ToggleSideBarAtOnce();
    QCOMPARE(SideBarWidth(), SIDE_BAR);

    // Hidden at the end, shown after the restart.
    m_window->ToggleOutput();
    ToggleSideBarAtOnce();
    Settings::alwaysShowEditorAndOutputOnStartup = false;
    Reopen();
    QVERIFY(Find<PanelGroup>("m_outputPanel")->isHidden());
    QVERIFY(Find<SideBar>("m_sideBar")->isHidden());
    m_window->ToggleOutput();
    m_window->ToggleSideBar();
    QTRY_COMPARE(SideBarWidth(), SIDE_BAR);
    QCOMPARE(OutputExtent(), OUTPUT);
    QCOMPARE(
        Find<QSplitter>("m_codeEditorSplitter")->orientation() == Qt::Vertical, groupsVertical);
    const QPoint editors = Find<QSplitter>("m_codeEditorSplitter")->pos();
    const QPoint output = Find<PanelGroup>("m_outputPanel")->pos();
    QCOMPARE(vertical ? output.y() < editors.y() : output.x() < editors.x(), topLeft);
}

void LayoutTest::StartsWithTheRatios()
{
    CreateWindow();
    QCOMPARE(SideBarWidth(), 287);
    const QList<int> sizes = OutputSplitter()->sizes();
    QCOMPARE(OutputExtent(), (sizes[0] + sizes[1]) / 3);
    m_frame.reset();
    Settings::sideBarState.clear();
    Settings::sideBarSize = 1;
    Settings::mainWindowSize = 5;
    CreateWindow();
    QCOMPARE(SideBarWidth(), SideBarSplitter()->width() / 6);
    Settings::mainWindowSize = 3;
}

/// As when a floating panel is docked.
void LayoutTest::KeepsOnlyChosenSizesInAnotherWindow()
{
    CreateWindow();
    const auto showAt = [this](int width, int height) {
        m_frame->hide();
        m_frame->resize(width, height);
        m_frame->show();
    };
    const auto third = [this] { return (OutputSplitter()->height() - 1) / 3; };
    showAt(900, 700);
    QCOMPARE(SideBarWidth(), SideBarSplitter()->width() / 4);
    QVERIFY(qAbs(OutputExtent() - third()) <= 1);
    showAt(500, 300);
    QCOMPARE(SideBarWidth(), 180);
    showAt(1500, 1000);
    QCOMPARE(SideBarWidth(), 287);
    QVERIFY(qAbs(OutputExtent() - third()) <= 1);

    // Coming back as large as it went, the window stays as it was.
    const int output = OutputExtent();
    m_frame->resize(1500, 1100);
    showAt(1500, 1100);
    QCOMPARE(OutputExtent(), output);
    showAt(1500, 700);
    QVERIFY(qAbs(OutputExtent() - third()) <= 1);
    Reopen();
    QVERIFY(qAbs(OutputExtent() - third()) <= 1);

    SetExtents(SIDE_BAR, OUTPUT);
    showAt(1400, 900);
    QCOMPARE(SideBarWidth(), SIDE_BAR);
    QCOMPARE(OutputExtent(), OUTPUT);
}

void LayoutTest::SurvivesHostileStates_data()
{
    Columns<QByteArray>("state");
    Row("garbage", QByteArray("\x13\x37 no splitter at all \xff\xff\xff\xff"));
    Row("cut off", State(Qt::Horizontal, {200, 300}).left(17));
    Row("endless", EndlessState());
    Row("negative", State(Qt::Horizontal, {-5, 300}));
    Row("nothing", State(Qt::Horizontal, {0, 0}));
    Row("one pane", State(Qt::Horizontal, {400}));
    Row("three panes", State(Qt::Horizontal, {400, 300, 200}));
    Row("no direction", State(Qt::Orientation(77), {400, 300}));
    Row("huge", State(Qt::Horizontal, {INT_MAX, INT_MAX}));
}

void LayoutTest::SurvivesHostileStates()
{
    QFETCH(QByteArray, state);
    Settings::sideBarState = state;
    Settings::outputState = state;
    Settings::outputOrientVertical = false;
    CreateWindow();
    QCOMPARE(SideBarWidth(), 287);
    const QList<int> sizes = OutputSplitter()->sizes();
    QCOMPARE(OutputExtent(), (sizes[0] + sizes[1]) / 3);
    QCOMPARE(OutputSplitter()->orientation(), Qt::Horizontal);
    QVERIFY(SplitterState::Reversed(state).size() <= state.size());
}

void LayoutTest::ShowsTheEditorsOrTheOutput_data()
{
    // "toggles": e: code editor, o: output
    Columns<QString, QString>("toggles", "shown");
    Row("both at first", "", "eo");
    Row("a large console", "e", "o");
    Row("and back", "ee", "eo");
    Row("no output", "o", "e");
    Row("the last one left is replaced", "oe", "o");
    Row("in either direction", "eo", "e");
}

void LayoutTest::ShowsTheEditorsOrTheOutput()
{
    QFETCH(QString, toggles);
    CreateWindow();
    for (const QChar toggle : toggles)
        toggle == 'e' ? m_window->ToggleCodeEditor() : m_window->ToggleOutput();
    const auto shown = [this] {
        return QString(Find<QSplitter>("m_codeEditorSplitter")->isVisible() ? "e" : "")
            + (Find<PanelGroup>("m_outputPanel")->isVisible() ? "o" : "");
    };
    QTEST(shown(), "shown");
    // Hiding the whole window is not hiding its panes.
    m_frame->hide();
    m_frame->show();
    QTEST(shown(), "shown");
}

void LayoutTest::HandsTheFocusOn_data()
{
    Columns<QString, QString, QString>("toggle", "from", "to");
    Row("output to editor", "Toggle Output", "m_output", "editor");
    Row("editor to output", "Toggle Code Editor", "editor", "m_output");
    Row("editor stays", "Toggle Output", "editor", "editor");
    Row("output stays", "Toggle Code Editor", "m_output", "m_output");
    Row("activity bar", "Hide Activity Bar", "explorerButton", "editor");
    Row("side bar", "Toggle Side Bar", "probe", "editor");
}

void LayoutTest::HandsTheFocusOn()
{
    QFETCH(QString, toggle);
    QFETCH(QString, from);
    CreateWindow();
    auto* probe = new QWidget(Find<SideBar>("m_sideBar"));
    probe->setObjectName("probe");
    probe->show();
    QWidget* const editor = m_window->GetActiveCodeEditor();
    (from == "editor" ? editor : m_window->findChild<QWidget*>(from))->setFocus();
    Action(toggle)->trigger();
    const QWidget* const focus = QApplication::focusWidget();
    QVERIFY(focus);
    QTEST(focus == editor ? "editor" : focus->objectName(), "to");
}

void LayoutTest::ResizingGoesToTheEditors()
{
    CreateWindow();
    SetExtents(SIDE_BAR, OUTPUT);
    m_frame->resize(1500, 1100);
    QCOMPARE(SideBarWidth(), SIDE_BAR);
    QCOMPARE(OutputExtent(), OUTPUT);
}

void LayoutTest::DraggingAwayHidesTheSideBar()
{
    CreateWindow();
    SetExtents(SIDE_BAR, OUTPUT);
    QSplitterHandle* const handle = SideBarSplitter()->handle(1);
    const QPoint grip(0, 100);
    QTest::mousePress(handle, Qt::LeftButton, {}, grip);
    const QPoint far = grip - QPoint(SIDE_BAR - 40, 0);
    QMouseEvent move(QEvent::MouseMove, far, handle->mapToGlobal(far), Qt::LeftButton,
        Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(handle, &move);
    QCOMPARE(SideBarWidth(), 0);
    // Until the button is released the way back is open.
    QVERIFY(Settings::sideBarVisible);
    QTest::mouseRelease(handle, Qt::LeftButton, {}, grip);
    QTRY_VERIFY(!Settings::sideBarVisible);
    QVERIFY(Find<SideBar>("m_sideBar")->isHidden());
    QVERIFY(!Find<ActivityBar>("m_activityBar")->IsCurrent(ActivityBar::Item::Explorer));
    m_window->ShowExplorer();
    QTRY_COMPARE(SideBarWidth(), SIDE_BAR);
    QVERIFY(Find<ActivityBar>("m_activityBar")->IsCurrent(ActivityBar::Item::Explorer));
}

void LayoutTest::DoubleClickGivesTheRatio()
{
    CreateWindow();
    const int output = OutputExtent();
    SetExtents(SIDE_BAR, OUTPUT);
    QTest::mouseDClick(SideBarSplitter()->handle(1), Qt::LeftButton);
    QCOMPARE(SideBarWidth(), 287);
    QTest::mouseDClick(OutputSplitter()->handle(1), Qt::LeftButton);
    QCOMPARE(OutputExtent(), output);
}

void LayoutTest::MovesTheSideBarAndItsNeighbours()
{
    CreateWindow();
    SetExtents(SIDE_BAR, OUTPUT);
    const auto places = [this] {
        const auto x = [this](const char* name) {
            return Find<QWidget>(name)->mapTo(m_window, QPoint()).x();
        };
        return QList<int>{x("m_activityBar"), x("m_sideBar"), x("m_outputSplitter")};
    };
    QCOMPARE(places(), (QList<int>{0, 44, 44 + SIDE_BAR + 1}));
    m_window->ToggleSideBarPosition();
    const int right = m_window->width() - 44;
    QTRY_COMPARE(places(), (QList<int>{right, right - SIDE_BAR, 0}));
    QCOMPARE(OutputExtent(), OUTPUT);
    m_window->ToggleSideBarPosition();
    QTRY_COMPARE(places(), (QList<int>{0, 44, 44 + SIDE_BAR + 1}));
}

void LayoutTest::MovingAHiddenPaneKeepsItsSize()
{
    CreateWindow();
    SetExtents(SIDE_BAR, OUTPUT);
    m_window->ToggleOutput();
    m_window->ToggleSideBar();
    QTRY_VERIFY(Find<SideBar>("m_sideBar")->isHidden());
    m_window->OutputPositionBottom();
    m_window->ToggleSideBarPosition();
    m_window->ToggleOutput();
    m_window->ToggleSideBar();
    QTRY_COMPARE(SideBarWidth(), SIDE_BAR);
    QCOMPARE(OutputExtent(), OUTPUT);
}

void LayoutTest::TurningTheOutputGivesTheRatio()
{
    CreateWindow();
    SetExtents(SIDE_BAR, OUTPUT);
    m_window->OutputPositionRight();
    const QList<int> sizes = OutputSplitter()->sizes();
    QCOMPARE(sizes[1], (sizes[0] + sizes[1]) / 3);
    QVERIFY(!Settings::outputOrientVertical && !Settings::outputTopLeft);
    QCOMPARE(Find<PanelGroup>("m_outputPanel")->findChild<OutputTextEdit*>()->isVisible(), true);
}

void LayoutTest::HidesEmptyGroups()
{
    CreateWindow();
    const auto shown
        = [this](int group) { return m_window->GetCodeEditorGroupByIndex(group)->isVisible(); };
    QVERIFY(shown(0) && !shown(1) && !shown(2));
    OpenBuffer(2, "notes");
    QVERIFY(shown(0) && !shown(1) && shown(2));
    const QList<int> sizes = Find<QSplitter>("m_codeEditorSplitter")->sizes();
    QVERIFY(qAbs(sizes[0] - sizes[2]) <= 1);
    QCOMPARE(sizes[1], 0);
    // The last editors go: one group stays.
    for (int group : {2, 0}) {
        while (m_window->GetCodeEditorGroupByIndex(group)->GetCount() > 0)
            m_window->GetCodeEditorGroupByIndex(group)->DeleteCodeEditor(0);
    }
    m_window->FocusActiveCodeEditor();
    QVERIFY(shown(0) && !shown(1) && !shown(2));
}

void LayoutTest::GoesRoundTheEditorsOfAllGroups()
{
    CreateWindow();
    OpenBuffer(2, "notes");
    m_window->SetActiveCodeEditor(0, 0, true);
    QStringList labels;
    for (int i = 0; i < 3; ++i) {
        Action("Next Editor")->trigger();
        labels += m_window->GetActiveCodeEditor()->GetLabel();
    }
    QCOMPARE(labels, (QStringList{"Python", "notes", "MEL"}));
    Action("Previous Editor")->trigger();
    QCOMPARE(m_window->GetActiveCodeEditor()->GetLabel(), "notes");
    QVERIFY(m_window->GetActiveCodeEditor()->hasFocus());
    Action("Next Editor Group")->trigger();
    QCOMPARE(m_window->GetActiveCodeEditorGroupIndex(), 0);
    Action("Previous Editor Group")->trigger();
    QCOMPARE(m_window->GetActiveCodeEditorGroupIndex(), 2);
}

void LayoutTest::GoesThroughUsedEditorsWhileCtrlIsHeld()
{
    CreateWindow();
    OpenBuffer(0, "notes");
    for (int tab : {0, 2, 1})
        m_window->SetActiveCodeEditor(0, tab, true);
    const auto press = [this](int key) {
        QTest::keyPress(m_frame->windowHandle(), Qt::Key(key), Qt::ControlModifier);
        return m_window->GetActiveCodeEditor()->GetLabel();
    };
    QCOMPARE(press(Qt::Key_Tab), "notes");
    QCOMPARE(press(Qt::Key_Tab), "MEL");
    QCOMPARE(press(Qt::Key_Tab), "Python");
    QCOMPARE(press(Qt::Key_Tab), "notes");
    // From here on "notes" is the last used, and "Python" the one before.
    QTest::keyRelease(m_frame->windowHandle(), Qt::Key_Control);
    QCOMPARE(press(Qt::Key_Tab), "Python");
    QTest::keyRelease(m_frame->windowHandle(), Qt::Key_Control);
    QCOMPARE(press(Qt::Key_Tab), "notes");
    QTest::keyRelease(m_frame->windowHandle(), Qt::Key_Control);
    // From the menu each step is a walk of its own.
    for (const char* label : {"Python", "notes", "Python"}) {
        Action("Next Used Editor in Group")->trigger();
        QCOMPARE(m_window->GetActiveCodeEditor()->GetLabel(), QString(label));
    }
}

void LayoutTest::SaysWhatAnEntryWouldDo()
{
    CreateWindow();
    for (const char* bar : {"Activity Bar", "Status Bar"}) {
        const QString hide = QString("Hide %1").arg(bar);
        const QString show = QString("Show %1").arg(bar);
        QAction* const action = Action(hide);
        QVERIFY(action);
        action->trigger();
        QCOMPARE(action->text(), show);
        QCOMPARE(action->statusTip(), show);
        action->trigger();
        QCOMPARE(action->text(), hide);
    }
    QAction* const move = Action("Move Side Bar Right");
    move->trigger();
    QCOMPARE(move->text(), "Move Side Bar Left");
    Reopen();
    QVERIFY(Action("Move Side Bar Left"));
}

void LayoutTest::TabGoesFromTheEdgeInwards()
{
    CreateWindow();
    OpenBuffer(1, "notes");
    m_window->OnQuickHelpChanged(QString(), true);
    Find<StatusBar>("m_statusBar")->SetErrorAndWarningCount(1, 0);
    const QStringList parts = {"m_activityBar", "m_sideBar", "codeEditorGroup0", "codeEditorGroup1",
        "m_outputPanel", "m_statusBar"};
    QStringList order;
    for (QWidget* stop = m_window->nextInFocusChain(); stop != m_window;
         stop = stop->nextInFocusChain()) {
        for (const QString& part : parts) {
            const bool isStop = stop->focusPolicy() & Qt::TabFocus
                && m_window->findChild<QWidget*>(part)->isAncestorOf(stop);
            if (isStop && (order.isEmpty() || order.last() != part))
                order += part;
        }
    }
    QCOMPARE(order, parts);
}

void LayoutTest::RemembersAFloatingPanelsPlaceOnly()
{
    Settings::windowGeometry = QRect(10, 20, 300, 200);
    CreateWindow();
    m_window->WriteUserConfigs();
    // The frame is not the host's window and so counts as a floating panel.
    QCOMPARE(Settings::windowGeometry, m_frame->geometry());
    m_window->setParent(nullptr);
    m_window->show();
    Settings::windowGeometry = QRect(10, 20, 300, 200);
    m_window->WriteUserConfigs();
    QCOMPARE(Settings::windowGeometry, QRect(10, 20, 300, 200));
    delete m_window;
}

TE2_TEST(LayoutTest)
#include "LayoutTest.moc"
