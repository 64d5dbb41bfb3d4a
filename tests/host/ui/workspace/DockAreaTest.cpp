#include "ui/workspace/DockArea.h"

#include "support/TestMain.h"
#include "ui/workspace/DockTabBar.h"
#include "ui/workspace/WorkspacePanel.h"

#include <QPointer>
#include <QtTest>

using namespace host::ui;

class DockAreaTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void GoesWithItsPanels();
    void ForgetsAPanelThatDiesAlone();
};

/// The host once crashed at its end while a panel was docked.
void DockAreaTest::GoesWithItsPanels()
{
    auto area = std::make_unique<DockArea>(nullptr);
    const QPointer<WorkspacePanel> first = new WorkspacePanel("first", area.get());
    const QPointer<WorkspacePanel> second = new WorkspacePanel("second", area.get());
    area->Insert(-1, first);
    area->Insert(-1, second);
    QCOMPARE(area->Panels(), (QVector<WorkspacePanel*>{first, second}));
    area.reset();
    QVERIFY(!first && !second);
}

void DockAreaTest::ForgetsAPanelThatDiesAlone()
{
    DockArea area(nullptr);
    auto* first = new WorkspacePanel("first", &area);
    auto* second = new WorkspacePanel("second", &area);
    area.Insert(-1, first);
    area.Insert(-1, second);
    delete first;
    QCOMPARE(area.TabBar()->count(), 1);
    QTRY_COMPARE(area.CurrentPanel(), second);
    QCOMPARE(area.IndexOf(second), 0);
}

TE2_TEST(DockAreaTest)
#include "DockAreaTest.moc"
