#include "editor/DropZones.h"

#include "support/TestMain.h"
#include "window/chrome/TabDragData.h"

#include <QUrl>
#include <QtTest>

class DropZonesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void FindsTheZone_data();
    void FindsTheZone();
    void ReadsThePayload_data();
    void ReadsThePayload();
    void KeepsLargeNumbersInTheProcess();
    void TakesLocalFilesOnly();
};

void DropZonesTest::FindsTheZone_data()
{
    Columns<QPoint, bool, bool, TabDropZone, QRect>(
        "point", "vertical", "edges", "zone", "overlay");
    const QRect whole(0, 0, 203, 101);
    const QRect left(0, 0, 101, 101);
    const QRect right(101, 0, 102, 101);
    const QRect top(0, 0, 203, 50);
    const QRect bottom(0, 50, 203, 51);
    // 15 % of 203 are 30.45, 85 % 172.55; of 101 they are 15.15 and 85.85.
    Row("left end", QPoint(0, 50), false, true, TabDropZone::Before, left);
    Row("last of the left", QPoint(30, 50), false, true, TabDropZone::Before, left);
    Row("first of the middle", QPoint(31, 50), false, true, TabDropZone::Center, whole);
    Row("last of the middle", QPoint(171, 50), false, true, TabDropZone::Center, whole);
    Row("first of the right", QPoint(172, 50), false, true, TabDropZone::After, right);
    Row("top of groups side by side", QPoint(100, 0), false, true, TabDropZone::Center, whole);
    Row("last of the top", QPoint(100, 15), true, true, TabDropZone::Before, top);
    Row("below the top", QPoint(100, 16), true, true, TabDropZone::Center, whole);
    Row("first of the bottom", QPoint(100, 85), true, true, TabDropZone::After, bottom);
    Row("left end of stacked groups", QPoint(0, 50), true, true, TabDropZone::Center, whole);
    Row("edge without splitting", QPoint(0, 50), false, false, TabDropZone::Center, whole);
    Row("above", QPoint(0, -1), false, true, TabDropZone::NoZone, QRect());
    Row("right of it", QPoint(203, 50), false, true, TabDropZone::NoZone, QRect());
}

void DropZonesTest::FindsTheZone()
{
    QFETCH(QPoint, point);
    QFETCH(bool, vertical);
    QFETCH(bool, edges);
    const DropTarget target
        = FindDropTarget(point, QSize(203, 101), vertical ? Qt::Vertical : Qt::Horizontal, edges);
    QTEST(target.zone, "zone");
    QTEST(target.overlay, "overlay");
}

void DropZonesTest::ReadsThePayload_data()
{
    Columns<QString, QByteArray, bool>("type", "bytes", "isTab");
    const QString type = "quenholt-te2/move-code-editor";
    Row("group and place", type, QByteArray("\x02\xf0", 2), true);
    Row("nothing", type, QByteArray(""), false);
    Row("one byte", type, QByteArray("\x02", 1), false);
    Row("three bytes", type, QByteArray("\x02\xf0\x00", 3), false);
    Row("another type", "text/plain", QByteArray("\x02\xf0", 2), false);
}

void DropZonesTest::ReadsThePayload()
{
    QFETCH(QString, type);
    QFETCH(QByteArray, bytes);
    QMimeData payload;
    payload.setData(type, bytes);
    const auto tab = TabDragData::Read(&payload);
    QTEST(tab.has_value(), "isTab");
    if (tab) {
        QCOMPARE(tab->groupId, 2);
        QCOMPARE(tab->index, 240);
    }
}

void DropZonesTest::KeepsLargeNumbersInTheProcess()
{
    const TabDragData last({1, 255});
    QCOMPARE(last.data(TabDragData::MimeType()), QByteArray("\x01\xff", 2));
    const TabDragData large({1, 256});
    QCOMPARE(TabDragData::Read(&large)->index, 256);
    QMimeData abroad;
    abroad.setData(TabDragData::MimeType(), large.data(TabDragData::MimeType()));
    QVERIFY(!TabDragData::Read(&abroad));
}

void DropZonesTest::TakesLocalFilesOnly()
{
    QMimeData payload;
    payload.setUrls({QUrl("file:///b%20c.py"), QUrl("https://host/x.py"), QUrl("file:"),
        QUrl("file:///a.mel")});
    QCOMPARE(TabDragData::LocalFiles(&payload), QStringList({"/b c.py", "/a.mel"}));
    QVERIFY(TabDragData::LocalFiles(nullptr).isEmpty());
}

TE2_TEST(DropZonesTest)
#include "DropZonesTest.moc"
