#include "window/TabDetails.h"

#include "support/TestMain.h"
#include "window/GroupPlan.h"

#include <QtTest>

using Type = CodeEditorType;

class TabDetailsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ReadsRecords_data();
    void ReadsRecords();
    void IgnoresRecords_data();
    void IgnoresRecords();
    void WritesRecords();
    void PlansANewGroup_data();
    void PlansANewGroup();
};

void TabDetailsTest::ReadsRecords_data()
{
    Columns<QString, int, bool, QString, bool, int, int, QString>(
        "record", "group", "isFile", "path", "isCurrent", "cursor", "scroll", "label");
    Row("file", "2;1;/a/b.py;1;120;7", 2, true, "/a/b.py", true, 120, 7, QString());
    Row("buffer", "0;0;melBuffer_a.mel;0;3;0;My MEL", 0, false, "melBuffer_a.mel", false, 3, 0,
        "My MEL");
    Row("buffer without a label", "0;0;x.mel;0;3;0", 0, false, "x.mel", false, 3, 0, QString());
    Row("positions that are no numbers", "0;1;/a.py;1;here;-4", 0, true, "/a.py", true, 0, 0,
        QString());
    Row("position too large", "0;1;/a.py;0;99999999999;1", 0, true, "/a.py", false, 0, 1,
        QString());
    Row("path with separators", "1;1;/a;b/c;d.py;0;5;6", 1, true, "/a;b/c;d.py", false, 5, 6,
        QString());
}

void TabDetailsTest::ReadsRecords()
{
    QFETCH(QString, record);
    TabDetails details;
    QVERIFY(ParseTabDetails(record, details));
    QTEST(details.group, "group");
    QTEST(details.type == Type::File, "isFile");
    QTEST(details.path, "path");
    QTEST(details.isCurrent, "isCurrent");
    QTEST(details.cursorPosition, "cursor");
    QTEST(details.scrollValue, "scroll");
    QTEST(details.label, "label");
}

void TabDetailsTest::IgnoresRecords_data()
{
    Columns<QString>("record");
    for (const char* record : {"", ";;;;;", "0;1;/a.py;1;0", "3;1;/a.py;1;0;0", "-1;1;/a.py;1;0;0",
             "x;1;/a.py;1;0;0", "0;2;/a.py;1;0;0", "0;;/a.py;1;0;0", "0;1;;1;0;0"})
        TextRow(record);
}

void TabDetailsTest::IgnoresRecords()
{
    QFETCH(QString, record);
    TabDetails details;
    QVERIFY(!ParseTabDetails(record, details));
}

void TabDetailsTest::WritesRecords()
{
    QCOMPARE(FormatTabDetails({1, Type::File, "/%1/a.py", true, 12, 3, "ignored"}),
        "1;1;/%1/a.py;1;12;3");
    QCOMPARE(FormatTabDetails({0, Type::Buffer, "b.mel", false, 0, 0, "%2 label"}),
        "0;0;b.mel;0;0;0;%2 label");
}

void TabDetailsTest::PlansANewGroup_data()
{
    // "newGroup": -1: not possible
    Columns<QVector<int>, int, int, int, QVector<int>>(
        "tabs", "target", "zone", "newGroup", "targets");
    const int before = int(TabDropZone::Before);
    const int after = int(TabDropZone::After);
    using V = QVector<int>;
    Row("free neighbour behind", V{2, 0, 0}, 0, after, 1, V{0, 1, 2});
    Row("free neighbour before", V{0, 2, 0}, 1, before, 0, V{0, 1, 2});
    Row("nothing before the first: it goes along", V{2, 0, 0}, 0, before, 0, V{1, 1, 2});
    Row("nothing behind the last", V{0, 0, 2}, 2, after, 2, V{0, 1, 1});
    Row("between two, the free one at the end", V{2, 1, 0}, 0, after, 1, V{0, 2, 2});
    Row("between two, the free one at the start", V{0, 3, 1}, 2, before, 1, V{0, 0, 2});
    Row("before both, the free one at the end", V{1, 1, 0}, 0, before, 0, V{1, 2, 2});
    Row("between two that leave a gap", V{1, 0, 1}, 0, after, 1, V{0, 1, 2});
    Row("the dragged tab was alone in the target", V{2, 0, 1}, 1, after, 1, V{0, 1, 2});
    Row("all in use", V{1, 1, 1}, 1, after, -1, V{});
    Row("no new group wanted", V{1, 0, 0}, 0, int(TabDropZone::Center), -1, V{});
}

void TabDetailsTest::PlansANewGroup()
{
    QFETCH(QVector<int>, tabs);
    QFETCH(int, target);
    QFETCH(int, zone);
    const GroupPlan plan = PlanNewGroup(tabs, target, TabDropZone(zone));
    QTEST(plan.newGroup, "newGroup");
    QTEST(plan.targets, "targets");
    QCOMPARE(plan.isPossible, plan.newGroup >= 0);
}

TE2_TEST(TabDetailsTest)
#include "TabDetailsTest.moc"
