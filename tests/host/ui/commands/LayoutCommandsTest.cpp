#include "host/ui/UiFixture.h"
#include "support/TestMain.h"

#include <QMainWindow>
#include <QTabWidget>
#include <QToolButton>
#include <QtTest>

class LayoutCommandsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_host.reset(); }

    void FormChildrenHangOnTheirAttachments_data();
    void FormChildrenHangOnTheirAttachments();
    void AFormIsAsLargeAsItsChildrenNeed();
    void FormsRefuseStrangers();
    void AdjustableColumnsStretchTheirChildren();
    void TabsFollowTheirChildren();
    void FoldingAFrameRunsItsCommands();

private:
    QRect Place(const QString& name) { return m_host->Find(name)->GetWidget()->geometry(); }

    std::unique_ptr<UiFixture> m_host;
};

void LayoutCommandsTest::init()
{
    m_host = std::make_unique<UiFixture>();
    m_host->Run("window -widthHeight 400 300 w");
}

void LayoutCommandsTest::FormChildrenHangOnTheirAttachments_data()
{
    Columns<QString, QRect, QRect>("attachments", "first", "second");
    Row("edges of the form",
        "-af a \"left\" 5 -af a \"right\" 10 -af a \"top\" 0 -af a \"bottom\" 100",
        QRect(5, 0, 385, 200), QRect(0, 0, 60, 20));
    Row("one edge keeps the size", "-af a \"right\" 0 -af a \"bottom\" 0", QRect(360, 270, 40, 30),
        QRect(0, 0, 60, 20));
    Row("next to another", "-af a \"left\" 0 -ac b \"left\" 3 a -af b \"right\" 2",
        QRect(0, 0, 40, 30), QRect(43, 0, 355, 20));
    Row("before another", "-af b \"right\" 0 -ac a \"right\" 4 b", QRect(296, 0, 40, 30),
        QRect(340, 0, 60, 20));
    Row("aligned with another", "-af a \"left\" 50 -aoc b \"left\" 0 a", QRect(50, 0, 40, 30),
        QRect(50, 0, 60, 20));
    Row("divisions", "-ap a \"left\" 0 25 -ap a \"right\" 0 75", QRect(100, 0, 200, 30),
        QRect(0, 0, 60, 20));
    Row("behind the far edge", "-aof a \"left\" -100", QRect(300, 0, 40, 30), QRect(0, 0, 60, 20));
    Row("a circle is no end", "-ac a \"left\" 0 b -ac b \"left\" 0 a", QRect(60, 0, 40, 30),
        QRect(0, 0, 60, 20));
}

void LayoutCommandsTest::FormChildrenHangOnTheirAttachments()
{
    QFETCH(QString, attachments);
    m_host->Run("formLayout f; scrollField -width 40 -height 30 a; scrollField -w 60 -h 20 b");
    for (const char* name : {"a", "b"}) {
        const bool first = name[0] == 'a';
        QWidget* child = m_host->Find(name)->GetWidget();
        child->setMinimumSize(first ? QSize(40, 30) : QSize(60, 20));
        child->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    }
    QCOMPARE(m_host->Run("formLayout -e " + attachments + " f"), "w|f");
    m_host->Find("f")->GetWidget()->resize(400, 300);
    m_host->Run("showWindow w");
    QTEST(Place("a"), "first");
    QTEST(Place("b"), "second");
}

void LayoutCommandsTest::AFormIsAsLargeAsItsChildrenNeed()
{
    m_host->Run("formLayout f; button a; button b; formLayout -e -af a \"left\" 7 -af b \"right\" 5"
                " -ac a \"right\" 3 b f");
    const QSize hint = m_host->Find("f")->GetWidget()->sizeHint();
    const int buttons = m_host->Find("a")->GetWidget()->sizeHint().width()
        + m_host->Find("b")->GetWidget()->sizeHint().width();
    QCOMPARE(hint.width(), buttons + 7 + 3 + 5);
}

void LayoutCommandsTest::FormsRefuseStrangers()
{
    m_host->Run("formLayout f; button a");
    QCOMPARE(
        m_host->Run("formLayout -e -af nobody \"left\" 0 f"), "error: Object 'nobody' not found.");
    QCOMPARE(m_host->Run("formLayout -e -af a \"middle\" 0 f"),
        "error: Edges are called left, top, right and bottom, not 'middle'.");
}

void LayoutCommandsTest::AdjustableColumnsStretchTheirChildren()
{
    m_host->Run("columnLayout -adj 1 c; button -w 80 a; showWindow w");
    QCOMPARE(Place("a").width(), 400);
    m_host->Run("window -widthHeight 400 300 v; columnLayout d; button -w 80 b; button -h 44 x; "
                "showWindow v");
    QCOMPARE(Place("b").width(), 80);
    QCOMPARE(Place("x").height(), 44);
    QCOMPARE(Place("x").top(), Place("b").bottom() + 1);
}

void LayoutCommandsTest::TabsFollowTheirChildren()
{
    m_host->Run("tabLayout t; columnLayout a; setParent ..; columnLayout b; setParent ..;"
                "tabLayout -e -tl a \"First\" -tl b \"Second\" t");
    auto* tabs = m_host->Widget<QTabWidget>("t");
    QCOMPARE(tabs->tabText(1), "Second");
    QCOMPARE(m_host->Run("tabLayout -e -st b t; tabLayout -q -sti t"), "2");
    QCOMPARE(m_host->Run("tabLayout -e -sti 3 t"), "error: Tab index 3 is not between 1 and 2.");
    m_host->Run("deleteUI a");
    QCOMPARE(tabs->count(), 1);
    QCOMPARE(m_host->Run("tabLayout -q -st t"), "b");
    QCOMPARE(m_host->Run("tabLayout -q -tl t"), "Second");
}

void LayoutCommandsTest::FoldingAFrameRunsItsCommands()
{
    m_host->Run("frameLayout -cll 1 -pcc \"print \\\"pre;\\\"\" -cc \"print \\\"in;\\\"\""
                " -ec \"print \\\"out;\\\"\" f; columnLayout; button b; showWindow w");
    auto* header = m_host->Find("f")->GetWidget()->findChild<QToolButton*>();
    header->click();
    QVERIFY(!m_host->Find("b")->GetWidget()->isVisible());
    header->click();
    QVERIFY(m_host->Find("b")->GetWidget()->isVisible());
    QCOMPARE(m_host->TakePrinted(), "pre;in;out;");
    m_host->Run("frameLayout -e -cl 1 f");
    QCOMPARE(m_host->TakePrinted(), QString());
    QCOMPARE(m_host->Run("frameLayout -q -cl f"), "1");
}

TE2_TEST(LayoutCommandsTest)
#include "LayoutCommandsTest.moc"
