#include "views/SideBar.h"

#include "plugin/MayaUtil.h"
#include "settings/Settings.h"
#include "support/TestMain.h"
#include "views/SideBarTree.h"
#include "views/SubViewHeader.h"
#include "views/explorer/ExplorerView.h"
#include "views/explorer/OpenEditorsView.h"
#include "views/explorer/WorkspaceView.h"
#include "views/outline/OutlineView.h"
#include "views/quickhelp/QuickHelpView.h"
#include "window/WindowFixture.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QSplitter>
#include <QtTest>

class SideBarTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { m_host.reset(); }
    void init();
    void cleanup();
    void SectionsFillTheHeight_data();
    void SectionsFillTheHeight();
    void TheRatioOutlivesCollapsingAndRestarts();
    void OnlyOpenSectionsAreDragged();
    void ABrokenStateGivesTheDefaults();
    void KeysGoFromHeaderToHeader();
    void KeysStayInTheTree_data();
    void KeysStayInTheTree();
    void ToolsComeWithTheFocus();
    void PagesAreShownWhenTheyExist();

private:
    SubView* Section(int index) const;
    QVector<int> Heights() const;
    ExplorerView* Explorer() const { return m_sideBar->findChild<ExplorerView*>(); }
    QSplitter* Splitter() const { return m_sideBar->findChild<QSplitter*>(); }
    void Restart();
    template <typename T>
    T* Help(const char* name) const
    {
        return m_sideBar->findChild<T*>(name);
    }

    std::unique_ptr<WindowFixture> m_host;
    std::unique_ptr<SideBar> m_sideBar;
};

void SideBarTest::initTestCase()
{
    m_host = std::make_unique<WindowFixture>();
    MayaUtil::RefreshCommandList();
}

void SideBarTest::init()
{
    Settings::ResetToDefaults();
    Settings::workspaceFolders.clear();
    Restart();
}

void SideBarTest::cleanup()
{
    m_sideBar.reset();
}

void SideBarTest::Restart()
{
    m_sideBar = std::make_unique<SideBar>(nullptr);
    m_sideBar->resize(300, 800);
    m_sideBar->show();
    m_sideBar->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_sideBar.get()));
}

SubView* SideBarTest::Section(int index) const
{
    return qobject_cast<SubView*>(Splitter()->widget(index));
}

QVector<int> SideBarTest::Heights() const
{
    QVector<int> heights;
    for (int i = 0; i < Splitter()->count(); ++i)
        heights.append(Section(i)->isVisible() ? Section(i)->height() : 0);
    return heights;
}

void SideBarTest::SectionsFillTheHeight_data()
{
    Columns<QVector<bool>, QVector<bool>>("expanded", "shown");
    const QVector<bool> all = {true, true, true};
    Row("all", all, all);
    Row("only the workspace", QVector<bool>{false, true, false}, all);
    Row("only the outline", QVector<bool>{false, false, true}, all);
    Row("two hidden", all, QVector<bool>{false, true, false});
    Row("none", QVector<bool>{false, false, false}, all);
}

void SideBarTest::SectionsFillTheHeight()
{
    QFETCH(QVector<bool>, expanded);
    QFETCH(QVector<bool>, shown);
    Settings::openEditorsVisible = shown[0];
    Settings::outlineVisible = shown[2];
    m_sideBar->UpdatePreferences();
    for (int i = 0; i < expanded.size(); ++i)
        Section(i)->SetExpanded(expanded[i]);
    QCoreApplication::processEvents();
    const QVector<int> heights = Heights();
    int total = Splitter()->handleWidth() * (shown.count(true) - 1);
    int top = 0;
    for (int i = 0; i < heights.size(); ++i) {
        total += heights[i];
        if (!shown[i]) {
            QCOMPARE(heights[i], 0);
            continue;
        }
        QCOMPARE(Section(i)->y(), top);
        top += heights[i] + Splitter()->handleWidth();
        if (!expanded[i])
            QCOMPARE(heights[i], SubViewHeader::Height());
    }
    if (expanded.contains(true))
        QCOMPARE(total, Explorer()->height());
}

void SideBarTest::TheRatioOutlivesCollapsingAndRestarts()
{
    QCoreApplication::processEvents();
    const int before = Section(1)->height();
    // The handle above the outline, up.
    QSplitterHandle* const handle = Splitter()->handle(2);
    const QPoint middle = handle->rect().center();
    QTest::mousePress(handle, Qt::LeftButton, Qt::NoModifier, middle);
    const QPoint up = middle - QPoint(0, 60);
    QMouseEvent move(QEvent::MouseMove, up, handle->mapToGlobal(up), Qt::LeftButton, Qt::LeftButton,
        Qt::NoModifier);
    QCoreApplication::sendEvent(handle, &move);
    QTest::mouseRelease(handle, Qt::LeftButton, Qt::NoModifier, middle);
    QCOMPARE(Section(1)->height(), before - 60);
    const QVector<int> dragged = Heights();
    Section(1)->SetExpanded(false);
    Section(1)->SetExpanded(true);
    QCOMPARE(Heights(), dragged);
    m_sideBar->SaveState();
    Restart();
    QCoreApplication::processEvents();
    QCOMPARE(Heights(), dragged);
}

void SideBarTest::OnlyOpenSectionsAreDragged()
{
    const auto draggable = [this] {
        return QVector<bool>{
            Splitter()->handle(1)->isEnabled(), Splitter()->handle(2)->isEnabled()};
    };
    QCOMPARE(draggable(), (QVector<bool>{true, true}));
    Section(1)->SetExpanded(false);
    QCOMPARE(draggable(), (QVector<bool>{false, true}));
    Section(0)->SetExpanded(false);
    QCOMPARE(draggable(), (QVector<bool>{false, false}));
    Section(1)->SetExpanded(true);
    QCOMPARE(draggable(), (QVector<bool>{false, true}));
    Section(2)->SetExpanded(false);
    QCOMPARE(draggable(), (QVector<bool>{false, false}));
}

void SideBarTest::ABrokenStateGivesTheDefaults()
{
    QCoreApplication::processEvents();
    const QVector<int> heights = Heights();
    Settings::explorerState = "no state of a splitter";
    Restart();
    QCoreApplication::processEvents();
    QCOMPARE(Heights(), heights);
    // One with the splitter lying on its side.
    QSplitter other(Qt::Horizontal);
    Settings::explorerState = other.saveState();
    Restart();
    QCOMPARE(Splitter()->orientation(), Qt::Vertical);
}

void SideBarTest::KeysGoFromHeaderToHeader()
{
    const auto focused = [this] {
        for (int i = 0; i < 3; ++i) {
            if (Section(i)->GetHeader()->hasFocus())
                return i;
        }
        return -1;
    };
    Section(0)->GetHeader()->setFocus();
    const QPair<Qt::Key, int> steps[] = {
        {Qt::Key_Up, 0}, {Qt::Key_Down, 1}, {Qt::Key_Down, 2}, {Qt::Key_Down, 2}, {Qt::Key_Up, 1}};
    for (const auto& step : steps) {
        QTest::keyClick(Section(focused())->GetHeader(), step.first);
        QCOMPARE(focused(), step.second);
    }
    QSignalSpy escaped(m_sideBar.get(), &SideBar::FocusEditorRequested);
    QTest::keyClick(Section(1)->GetHeader(), Qt::Key_Escape);
    QCOMPARE(escaped.size(), 1);
}

void SideBarTest::KeysStayInTheTree_data()
{
    Columns<int, int, QString, bool>("key", "modifiers", "text", "kept");
    Row("letter", int(Qt::Key_W), 0, "w", true);
    Row("capital", int(Qt::Key_W), int(Qt::ShiftModifier), "W", true);
    Row("execute on the keypad", int(Qt::Key_Enter), int(Qt::KeypadModifier), "\r", true);
    Row("delete", int(Qt::Key_Delete), 0, "\x7f", true);
    Row("copy", int(Qt::Key_C), int(Qt::ControlModifier), "\x03", true);
    Row("save", int(Qt::Key_S), int(Qt::ControlModifier), "\x13", false);
    Row("menu", int(Qt::Key_F), int(Qt::AltModifier), "f", false);
    Row("function key", int(Qt::Key_F5), 0, "", false);
}

void SideBarTest::KeysStayInTheTree()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(QString, text);
    QKeyEvent event(QEvent::ShortcutOverride, key, Qt::KeyboardModifiers(modifiers), text);
    event.ignore();
    QCoreApplication::sendEvent(m_sideBar->findChild<SideBarTree*>(), &event);
    QTEST(event.isAccepted(), "kept");
}

void SideBarTest::ToolsComeWithTheFocus()
{
    auto* const collapse = m_sideBar->findChild<QAbstractButton*>("m_collapseWorkspaceButton");
    Section(0)->GetHeader()->setFocus();
    QVERIFY(!collapse->isVisible());
    const QPoint place = collapse->pos();
    Section(1)->GetHeader()->setFocus();
    QVERIFY(collapse->isVisible());
    QCOMPARE(collapse->pos(), place);
    // From the header by the tools to the content.
    QTest::keyClick(Section(1)->GetHeader(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget()->objectName(), "m_addFolderButton");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), collapse);
    QTest::keyClick(collapse, Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget()->objectName(), "m_emptyAddButton");
}

void SideBarTest::PagesAreShownWhenTheyExist()
{
    QSignalSpy changed(m_sideBar.get(), &SideBar::PageChanged);
    m_sideBar->ShowPage(SideBar::Page::Explorer);
    QVERIFY(changed.isEmpty());
    m_sideBar->ShowPage(SideBar::Page::QuickHelp);
    QCOMPARE(changed.size(), 1);
    QVERIFY(!Explorer()->isVisible());
    m_sideBar->FocusPage(Qt::ShortcutFocusReason);
    QVERIFY(Help<QLineEdit>("m_quickHelpSearch")->hasFocus());
    m_sideBar->ShowPage(SideBar::Page::Explorer);
    QVERIFY(Explorer()->isVisible());
    m_sideBar->FocusPage(Qt::ShortcutFocusReason);
    QVERIFY(Section(1)->isAncestorOf(QApplication::focusWidget()));
}

TE2_TEST(SideBarTest)
#include "SideBarTest.moc"
