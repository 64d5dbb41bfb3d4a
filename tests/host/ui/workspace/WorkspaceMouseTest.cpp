#include "host/ui/window/WindowFixture.h"
#include "support/TestMain.h"
#include "ui/workspace/DockArea.h"
#include "ui/workspace/DockTabBar.h"
#include "ui/workspace/FloatingTitleBar.h"
#include "ui/workspace/FloatingWindow.h"
#include "ui/workspace/ResizeGrip.h"
#include "ui/workspace/Workspace.h"

#include <QToolButton>
#include <QtTest>

using namespace host::ui;

/// Panels moved by hand.
class WorkspaceMouseTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_host.reset(); }

    void DoubleClickFloatsAndDocks();
    void TitleDroppedOnTheStripDocks();
    void TitleDroppedElsewhereOnlyMoves();
    void TabDraggedOutFloats();
    void TitleButtonsAct();
    void TabCrossCloses();
    void EdgesResize();
    void PanelDeletedInsideItsAreaLeavesNoTab();

private:
    DockTabBar* Strip() const { return m_workspace->GetArea(DockSide::Center)->TabBar(); }
    QString Floating() { return m_host->Run("workspaceControl -q -floating p"); }
    FloatingWindow* Window() const
    {
        return qobject_cast<FloatingWindow*>(m_host->Panel("p")->window());
    }
    FloatingTitleBar* Title() const { return Window()->findChild<FloatingTitleBar*>(); }
    void DragTitle(const QPoint& target);

    std::unique_ptr<WindowFixture> m_host;
    Workspace* m_workspace = nullptr;
};

void WorkspaceMouseTest::init()
{
    m_host = std::make_unique<WindowFixture>();
    m_workspace = m_host->GetWindow().findChild<Workspace*>();
    m_host->Run("workspaceControlState -e -tlc 200 150 -wh 400 300 p; "
                "workspaceControl -floating 1 -label Panel p");
}

void WorkspaceMouseTest::DragTitle(const QPoint& target)
{
    FloatingTitleBar* title = Title();
    const QPoint start(60, 15);
    QTest::mousePress(title, Qt::LeftButton, {}, start);
    const auto move = [title](const QPoint& global) {
        QMouseEvent event(QEvent::MouseMove, title->mapFromGlobal(global), global, Qt::NoButton,
            Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(title, &event);
    };
    move(title->mapToGlobal(start) + QPoint(40, 40));
    move(target);
    QMouseEvent release(QEvent::MouseButtonRelease, title->mapFromGlobal(target), target,
        Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(title, &release);
}

void WorkspaceMouseTest::DoubleClickFloatsAndDocks()
{
    QTest::mouseDClick(Title(), Qt::LeftButton, {}, QPoint(60, 15));
    QCOMPARE(Floating(), "0");
    QTest::mouseDClick(Strip(), Qt::LeftButton, {}, Strip()->tabRect(1).center());
    QCOMPARE(Floating(), "1");
    QCOMPARE(Window()->geometry(), QRect(150, 200, 400, 300));
}

void WorkspaceMouseTest::TitleDroppedOnTheStripDocks()
{
    DragTitle(Strip()->mapToGlobal(QPoint(300, 12)));
    QCOMPARE(Floating(), "0");
    QCOMPARE(Strip()->count(), 2);
    QCOMPARE(Strip()->currentIndex(), 1);
    // The way to the strip is not where the window stood.
    m_host->Run("workspaceControl -e -floating 1 p");
    QCOMPARE(Window()->geometry(), QRect(150, 200, 400, 300));
}

void WorkspaceMouseTest::TitleDroppedElsewhereOnlyMoves()
{
    const QPoint target = m_workspace->mapToGlobal(m_workspace->rect().center());
    DragTitle(target);
    QCOMPARE(Floating(), "1");
    QVERIFY(Window()->geometry().topLeft() != QPoint(150, 200));
    QCOMPARE(m_host->Run("workspaceControlState -q -leftEdge p").toInt(), Window()->x());
}

void WorkspaceMouseTest::TabDraggedOutFloats()
{
    m_host->Run("workspaceControl -e -floating 0 p");
    DockTabBar* strip = Strip();
    const QPoint start = strip->tabRect(1).center();
    QTest::mousePress(strip, Qt::LeftButton, {}, start);
    const QPoint target = start + QPoint(30, 200);
    QMouseEvent move(QEvent::MouseMove, target, strip->mapToGlobal(target), Qt::NoButton,
        Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(strip, &move);
    QCOMPARE(Floating(), "1");
    QCOMPARE(Window()->size(), QSize(400, 300));
    QVERIFY(Title()->rect().contains(Title()->mapFromGlobal(strip->mapToGlobal(target))));
    QTest::mouseRelease(Title(), Qt::LeftButton);
    QVERIFY(!QWidget::mouseGrabber());
}

void WorkspaceMouseTest::TitleButtonsAct()
{
    const auto click = [this](const char* name) {
        QTest::mouseClick(Title()->findChild<QToolButton*>(name), Qt::LeftButton);
    };
    click("collapseButton");
    QCOMPARE(m_host->Run("workspaceControl -q -collapse p"), "1");
    click("collapseButton");
    QCOMPARE(Window()->geometry(), QRect(150, 200, 400, 300));
    click("maximizeButton");
    QVERIFY(Window()->IsFilling());
    QCOMPARE(m_host->Run("workspaceControlState -q -maximized p"), "1");
    click("maximizeButton");
    QCOMPARE(Window()->geometry(), QRect(150, 200, 400, 300));
    click("closeButton");
    QCOMPARE(m_host->Run("workspaceControl -q -visible p"), "0");
}

void WorkspaceMouseTest::TabCrossCloses()
{
    m_host->Run("workspaceControl -e -floating 0 p");
    const QRect tab = Strip()->tabRect(1);
    QTest::mouseClick(Strip(), Qt::LeftButton, {}, QPoint(tab.right() - 10, tab.center().y()));
    QCOMPARE(m_host->Run("workspaceControl -q -visible p"), "0");
    QCOMPARE(Strip()->count(), 1);
}

void WorkspaceMouseTest::EdgesResize()
{
    FloatingWindow* window = Window();
    QWidget* grip = window->childAt(window->width() - 2, window->height() / 2);
    QVERIFY(qobject_cast<ResizeGrip*>(grip));
    QTest::mousePress(grip, Qt::LeftButton, {}, QPoint(1, 5));
    const QPoint target = grip->mapToGlobal(QPoint(1 + 70, 5));
    QMouseEvent move(QEvent::MouseMove, grip->mapFromGlobal(target), target, Qt::NoButton,
        Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(grip, &move);
    QCOMPARE(window->size(), QSize(470, 300));
}

void WorkspaceMouseTest::PanelDeletedInsideItsAreaLeavesNoTab()
{
    m_host->Run("workspaceControl -e -floating 0 p");
    delete m_host->Panel("p");
    QTRY_COMPARE(Strip()->count(), 1);
    QCOMPARE(m_host->Run("workspaceControl -exists p"), "0");
}

TE2_TEST(WorkspaceMouseTest)
#include "WorkspaceMouseTest.moc"
