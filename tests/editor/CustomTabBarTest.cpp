#include "window/chrome/CustomTabBar.h"

#include "settings/Settings.h"
#include "support/TestMain.h"

#include <QAccessible>
#include <QApplication>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QSignalSpy>
#include <QUrl>
#include <QtTest>

#include <memory>

namespace {

std::unique_ptr<QMimeData> Payload(int group, int index)
{
    return std::make_unique<TabDragData>(DraggedTab{group, index});
}

std::unique_ptr<QMimeData> Files(const QStringList& paths)
{
    auto payload = std::make_unique<QMimeData>();
    QList<QUrl> urls;
    for (const QString& path : paths)
        urls += QUrl::fromLocalFile(path);
    payload->setUrls(urls);
    return payload;
}

QList<QVariantList> Calls(const QSignalSpy& spy)
{
    return spy;
}

} // namespace

class CustomTabBarTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void ClosesByCrossAndMiddleButton();
    void ACrossLetGoElsewhereClosesNothing();
    void HasNoCrossWhenSwitchedOff();
    void ADoubleClickOpensOnlyWhereNoTabIs();
    void GoesByKeys_data();
    void GoesByKeys();
    void KeepsWidthsInBounds();
    void ShowsTheCurrentTabWhole();
    void DropsTabs_data();
    void DropsTabs();
    void DropsFilesInOrder();
    void ScrollsWhileSomethingIsHeldAtItsEnd();
    void TellsTabsWithOneTextApart();
    void TellsWhatTheCurrentTabIs();
    void IsReadOutTabByTab();
    void PaintsAMarkOnlyWhereThereIsOne();
    void ShowsTheFocusOfKeysOnly();
    void OpensTheMenuOfTheCurrentTabByKey();

private:
    void Click(int index, Qt::MouseButton button, bool onCross = false);
    bool Drop(const QMimeData& payload, const QPoint& position);
    QPoint Before(int index) const;
    int CountMarkPixels(int index);

    std::unique_ptr<CustomTabBar> m_bar;
    std::unique_ptr<CustomTabBar> m_other;
};

void CustomTabBarTest::init()
{
    m_other = std::make_unique<CustomTabBar>(nullptr);
    m_other->SetGroupId(2);
    m_other->InsertTab(-1, "other");
    m_bar = std::make_unique<CustomTabBar>(nullptr);
    m_bar->SetGroupId(1);
    m_bar->resize(600, m_bar->sizeHint().height());
    for (const char* label : {"aaa", "bbb", "ccc", "ddd"})
        m_bar->InsertTab(-1, label);
    m_bar->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_bar.get()));
}

void CustomTabBarTest::cleanup()
{
    m_bar.reset();
    m_other.reset();
    Settings::showCloseButtonOnTabs = true;
    Settings::lockTabPositions = false;
}

void CustomTabBarTest::Click(int index, Qt::MouseButton button, bool onCross)
{
    const QRect target = onCross ? m_bar->GetCloseRect(index) : m_bar->GetTabRect(index);
    QTest::mouseClick(m_bar->viewport(), button, {}, target.center());
}

/// Enters, moves and drops; whether the bar took it.
bool CustomTabBarTest::Drop(const QMimeData& payload, const QPoint& position)
{
    QDragEnterEvent enter(position, Qt::MoveAction, &payload, Qt::LeftButton, {});
    QCoreApplication::sendEvent(m_bar->viewport(), &enter);
    QDragMoveEvent move(position, Qt::MoveAction, &payload, Qt::LeftButton, {});
    QCoreApplication::sendEvent(m_bar->viewport(), &move);
    QDropEvent drop(position, Qt::MoveAction, &payload, Qt::LeftButton, {});
    QCoreApplication::sendEvent(m_bar->viewport(), &drop);
    return enter.isAccepted() && move.isAccepted() && drop.isAccepted();
}

/// In the left half of that tab, or behind the last one.
QPoint CustomTabBarTest::Before(int index) const
{
    return index < m_bar->GetCount() ? m_bar->GetTabRect(index).center() - QPoint(5, 0)
                                     : QPoint(m_bar->width() - 40, 5);
}

void CustomTabBarTest::ClosesByCrossAndMiddleButton()
{
    QSignalSpy closed(m_bar.get(), &CustomTabBar::CloseRequested);
    QSignalSpy activated(m_bar.get(), &CustomTabBar::Activated);
    Click(2, Qt::LeftButton, true);
    Click(1, Qt::MiddleButton);
    QCOMPARE(Calls(closed), QList<QVariantList>({{2}, {1}}));
    // Neither makes the tab current, and the bar leaves closing to its owner.
    QCOMPARE(m_bar->GetCurrentIndex(), 0);
    QCOMPARE(activated.count(), 0);
    QCOMPARE(m_bar->GetCount(), 4);
    Click(2, Qt::LeftButton);
    QCOMPARE(m_bar->GetCurrentIndex(), 2);
    QCOMPARE(activated.count(), 1);
}

void CustomTabBarTest::ACrossLetGoElsewhereClosesNothing()
{
    QSignalSpy closed(m_bar.get(), &CustomTabBar::CloseRequested);
    QWidget* const area = m_bar->viewport();
    QTest::mousePress(area, Qt::LeftButton, {}, m_bar->GetCloseRect(1).center());
    QTest::mouseRelease(area, Qt::LeftButton, {}, m_bar->GetCloseRect(2).center());
    QTest::mousePress(area, Qt::MiddleButton, {}, m_bar->GetTabRect(1).center());
    QTest::mouseRelease(area, Qt::MiddleButton, {}, m_bar->GetTabRect(2).center());
    QTest::mousePress(area, Qt::LeftButton, {}, m_bar->GetTabRect(1).center());
    QTest::mouseRelease(area, Qt::LeftButton, {}, m_bar->GetCloseRect(1).center());
    QCOMPARE(closed.count(), 0);
}

void CustomTabBarTest::HasNoCrossWhenSwitchedOff()
{
    Settings::showCloseButtonOnTabs = false;
    QSignalSpy closed(m_bar.get(), &CustomTabBar::CloseRequested);
    Click(2, Qt::LeftButton, true);
    QCOMPARE(closed.count(), 0);
    QCOMPARE(m_bar->GetCurrentIndex(), 2);
}

void CustomTabBarTest::ADoubleClickOpensOnlyWhereNoTabIs()
{
    QSignalSpy opened(m_bar.get(), &CustomTabBar::NewTabRequested);
    const QPoint empty(m_bar->width() - 5, 5);
    const auto twice = [this](const QPoint& first, const QPoint& second) {
        QTest::mouseClick(m_bar->viewport(), Qt::LeftButton, {}, first);
        QTest::mouseDClick(m_bar->viewport(), Qt::LeftButton, {}, second);
    };
    twice(m_bar->GetTabRect(1).center(), m_bar->GetTabRect(1).center());
    QCOMPARE(opened.count(), 0);
    twice(empty, empty);
    QCOMPARE(opened.count(), 1);
    // The first click closed the last tab, the second one meets the empty place behind it.
    const QPoint cross = m_bar->GetCloseRect(3).center();
    connect(m_bar.get(), &CustomTabBar::CloseRequested, m_bar.get(), &CustomTabBar::RemoveTab);
    QTest::mouseClick(m_bar->viewport(), Qt::LeftButton, {}, cross);
    QMouseEvent second(QEvent::MouseButtonDblClick, cross, Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(m_bar->viewport(), &second);
    QCOMPARE(m_bar->GetCount(), 3);
    QCOMPARE(opened.count(), 1);
}

void CustomTabBarTest::GoesByKeys_data()
{
    Columns<int, int, int>("from", "key", "to");
    Row("right", 1, int(Qt::Key_Right), 2);
    Row("left", 1, int(Qt::Key_Left), 0);
    Row("right of the last", 3, int(Qt::Key_Right), 3);
    Row("left of the first", 0, int(Qt::Key_Left), 0);
    Row("end", 0, int(Qt::Key_End), 3);
    Row("home", 3, int(Qt::Key_Home), 0);
    Row("rename stays", 2, int(Qt::Key_F2), 2);
}

void CustomTabBarTest::GoesByKeys()
{
    QFETCH(int, from);
    QFETCH(int, key);
    QSignalSpy renamed(m_bar.get(), &CustomTabBar::RenameRequested);
    m_bar->SetCurrentIndex(from);
    QTest::keyClick(m_bar.get(), Qt::Key(key));
    QTEST(m_bar->GetCurrentIndex(), "to");
    QCOMPARE(
        Calls(renamed), key == Qt::Key_F2 ? QList<QVariantList>({{2}}) : QList<QVariantList>());
}

void CustomTabBarTest::KeepsWidthsInBounds()
{
    m_bar->SetTabText(0, QString());
    m_bar->SetTabText(1, QString(200, 'w'));
    const int shortest = m_bar->GetTabRect(0).width();
    QVERIFY(shortest >= 60);
    QCOMPARE(m_bar->GetTabRect(1).width(), 240);
    QCOMPARE(m_bar->GetTabRect(2).left(), shortest + 240);
    QCOMPARE(m_bar->GetCloseRect(0).size(), QSize(20, 20));
    m_bar->RemoveTab(1);
    QCOMPARE(m_bar->GetTabRect(1).left(), shortest);
}

void CustomTabBarTest::ShowsTheCurrentTabWhole()
{
    for (int i = 0; i < 30; ++i)
        m_bar->InsertTab(-1, QString("tab %1").arg(i));
    const QRect view = m_bar->viewport()->rect();
    for (const int index : {33, 0, 17}) {
        m_bar->SetCurrentIndex(index);
        QVERIFY(view.contains(m_bar->GetTabRect(index)));
        QCOMPARE(m_bar->GetTabAt(m_bar->GetTabRect(index).center()), index);
    }
    QVERIFY(m_bar->CanScroll(-1));
    QVERIFY(m_bar->CanScroll(1));
    m_bar->SetScrollValue(0);
    QVERIFY(!m_bar->CanScroll(-1));
}

void CustomTabBarTest::DropsTabs_data()
{
    // "target": -1: no request
    Columns<int, int, int, bool, int>("group", "index", "before", "locked", "target");
    Row("to the right", 1, 0, 3, false, 2);
    Row("to the end", 1, 0, 4, false, 3);
    Row("to the left", 1, 3, 1, false, 1);
    Row("onto itself", 1, 1, 1, false, -1);
    Row("behind itself", 1, 1, 2, false, -1);
    Row("from the other bar", 2, 0, 2, false, 2);
    Row("locked places", 1, 0, 3, true, -1);
    Row("locked, from the other bar", 2, 0, 4, true, 4);
    Row("a tab that is not there", 1, 4, 0, false, -1);
    Row("a bar that is not there", 7, 0, 0, false, -1);
}

void CustomTabBarTest::DropsTabs()
{
    QFETCH(int, group);
    QFETCH(int, index);
    QFETCH(int, before);
    QFETCH(int, target);
    QFETCH(bool, locked);
    Settings::lockTabPositions = locked;
    QSignalSpy moved(m_bar.get(), &CustomTabBar::MoveRequested);
    const bool taken = Drop(*Payload(group, index), Before(before));
    const bool alien = group == 7 || index == 4;
    QCOMPARE(taken, !alien && !(locked && group == 1));
    QCOMPARE(Calls(moved),
        target < 0 ? QList<QVariantList>() : QList<QVariantList>({{group, index, target}}));
}

void CustomTabBarTest::DropsFilesInOrder()
{
    QSignalSpy opened(m_bar.get(), &CustomTabBar::OpenFilesRequested);
    QVERIFY(Drop(*Files({"/b.py", "/a.mel"}), Before(2)));
    QCOMPARE(Calls(opened), QList<QVariantList>({{2, QStringList({"/b.py", "/a.mel"})}}));
    QMimeData text;
    text.setText("text");
    QVERIFY(!Drop(text, Before(2)));
    QCOMPARE(opened.count(), 1);
}

void CustomTabBarTest::ScrollsWhileSomethingIsHeldAtItsEnd()
{
    for (int i = 0; i < 10; ++i)
        m_bar->InsertTab(-1, QString("tab %1").arg(i));
    const auto payload = Payload(1, 0);
    const QPoint end(m_bar->viewport()->width() - 3, 5);
    QDragEnterEvent enter(end, Qt::MoveAction, payload.get(), Qt::LeftButton, {});
    QCoreApplication::sendEvent(m_bar->viewport(), &enter);
    QTRY_VERIFY(!m_bar->CanScroll(1));
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(m_bar->viewport(), &leave);
    m_bar->SetScrollValue(0);
    QCoreApplication::processEvents();
    QCOMPARE(m_bar->GetScrollValue(), 0);
}

void CustomTabBarTest::TellsTabsWithOneTextApart()
{
    m_bar->SetTabDetail(0, "left");
    m_bar->SetTabToolTip(0, "aaa");
    m_bar->SetTabToolTip(1, "/right/aaa");
    QCOMPARE(m_bar->GetTabDescription(0), "aaa");
    m_bar->SetTabText(1, "aaa");
    m_bar->SetTabDetail(1, "right");
    QCOMPARE(m_bar->GetTabDescription(0), "aaa - left");
    QCOMPARE(m_bar->GetTabDescription(1), "aaa - right");
    QCOMPARE(m_bar->GetTabToolTip(0), "aaa - left");
    QCOMPARE(m_bar->GetTabToolTip(1), "/right/aaa");
}

void CustomTabBarTest::TellsWhatTheCurrentTabIs()
{
    m_bar->SetCurrentIndex(1);
    QCOMPARE(m_bar->accessibleDescription(), "bbb, tab 2 of 4");
    m_bar->SetTabModified(1, true);
    QCOMPARE(m_bar->accessibleDescription(), "bbb, modified, tab 2 of 4");
    m_bar->MoveTab(1, 3);
    m_bar->RemoveTab(0);
    QCOMPARE(m_bar->accessibleDescription(), "bbb, modified, tab 3 of 3");
}

void CustomTabBarTest::IsReadOutTabByTab()
{
    QAccessibleInterface* const list = QAccessible::queryAccessibleInterface(m_bar.get());
    QVERIFY(list);
    QCOMPARE(list->role(), QAccessible::PageTabList);
    QCOMPARE(list->childCount(), 4);
    QVERIFY(!list->child(4));
    m_bar->SetTabModified(2, true);
    QAccessibleInterface* const tab = list->child(2);
    QCOMPARE(tab->role(), QAccessible::PageTab);
    QCOMPARE(tab->text(QAccessible::Name), "ccc, modified");
    QCOMPARE(list->indexOfChild(tab), 2);
    QCOMPARE(tab->parent(), list);
    const QPoint centre = tab->rect().center();
    QCOMPARE(list->childAt(centre.x(), centre.y()), tab);

    QVERIFY(!tab->state().selected);
    tab->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QVERIFY(tab->state().selected);
    QCOMPARE(m_bar->GetCurrentIndex(), 2);
    m_bar->RemoveTab(3);
    m_bar->RemoveTab(2);
    QVERIFY(!tab->isValid());
    QCOMPARE(tab->text(QAccessible::Name), QString());
}

/// Pixels of a mark's place that differ from the tab's ground.
int CustomTabBarTest::CountMarkPixels(int index)
{
    const QImage image = m_bar->viewport()->grab().toImage();
    const QRect box = m_bar->GetCloseRect(index);
    const QRgb ground = image.pixel(box.left() - 1, box.top() - 1);
    int count = 0;
    for (int y = box.top(); y <= box.bottom(); ++y) {
        for (int x = box.left(); x <= box.right(); ++x)
            count += image.pixel(x, y) != ground;
    }
    return count;
}

void CustomTabBarTest::PaintsAMarkOnlyWhereThereIsOne()
{
    QVERIFY(CountMarkPixels(0) > 0); // the current tab's cross
    QCOMPARE(CountMarkPixels(1), 0);
    const int cross = CountMarkPixels(0);
    Settings::showCloseButtonOnTabs = false;
    QCOMPARE(CountMarkPixels(0), 0);
    m_bar->SetTabModified(0, true);
    m_bar->SetTabModified(1, true);
    const int dot = CountMarkPixels(0);
    QVERIFY(dot > 0);
    QCOMPARE(CountMarkPixels(1), dot);
    Settings::showCloseButtonOnTabs = true;
    QCOMPARE(CountMarkPixels(0), dot);
    QVERIFY(dot != cross);
}

void CustomTabBarTest::ShowsTheFocusOfKeysOnly()
{
    const auto picture = [this] { return m_bar->viewport()->grab().toImage(); };
    const QImage rest = picture();
    m_bar->activateWindow();
    m_bar->setFocus(Qt::OtherFocusReason);
    QTRY_VERIFY(m_bar->hasFocus());
    QCOMPARE(picture(), rest);
    m_bar->clearFocus();
    m_bar->setFocus(Qt::TabFocusReason);
    QVERIFY(picture() != rest);
    m_bar->clearFocus();
    QCOMPARE(picture(), rest);
}

void CustomTabBarTest::OpensTheMenuOfTheCurrentTabByKey()
{
    QSignalSpy empty(m_bar.get(), &CustomTabBar::EmptyZoneContextMenuSelected);
    const auto ask = [this] {
        // The place that comes with the key is not where the tab is.
        const QPoint place(m_bar->width() - 5, 5);
        QContextMenuEvent event(QContextMenuEvent::Keyboard, place, m_bar->mapToGlobal(place));
        QCoreApplication::sendEvent(m_bar.get(), &event);
    };
    ask();
    QCOMPARE(empty.count(), 0);
    while (m_bar->GetCount() > 0)
        m_bar->RemoveTab(0);
    ask();
    QCOMPARE(empty.count(), 1);
}

TE2_TEST(CustomTabBarTest)
#include "CustomTabBarTest.moc"
