#include "settings/Settings.h"
#include "support/TestMain.h"
#include "window/WindowFixture.h"
#include "window/chrome/CustomTabBar.h"
#include "window/chrome/Theme.h"

#include <QAction>
#include <QSettings>
#include <QSignalSpy>
#include <QtTest>

class WindowPartsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_host = std::make_unique<WindowFixture>(); }
    void cleanupTestCase() { m_host.reset(); }
    void StyleSheetHasNoTokenLeft();
    void LengthsFollowTheScale_data();
    void LengthsFollowTheScale();
    void TabBarKeepsTheCurrentTab_data();
    void TabBarKeepsTheCurrentTab();

private:
    std::unique_ptr<WindowFixture> m_host;
};

void WindowPartsTest::StyleSheetHasNoTokenLeft()
{
    m_host->TakeMessages(host::MessageType::Error);
    const QString sheet = Theme::StyleSheet();
    QVERIFY(sheet.contains("QScrollBar"));
    QVERIFY(!sheet.contains('@'));
    QCOMPARE(m_host->TakeMessages(host::MessageType::Error), QStringList());
}

void WindowPartsTest::LengthsFollowTheScale_data()
{
    Columns<double, int, int>("scale", "length", "hairline");
    Row("1", 1.0, 5, 1);
    Row("1.25", 1.25, 6, 1);
    Row("2", 2.0, 10, 2);
    Row("tiny", 0.01, 1, 1);
    Row("not a scale", 0.0, 5, 1);
}

void WindowPartsTest::LengthsFollowTheScale()
{
    QFETCH(double, scale);
    Settings::customScaleValue = scale;
    const int length = Theme::Dp(5);
    const int hairline = Theme::Hairline();
    Settings::customScaleValue = 1.0;
    QTEST(length, "length");
    QTEST(hairline, "hairline");
}

void WindowPartsTest::TabBarKeepsTheCurrentTab_data()
{
    // "to": -1: removed
    Columns<int, int, QString>("from", "to", "current");
    // Tabs a b C d, the capital one current.
    Row("move over it to the right", 0, 3, "C");
    Row("move over it to the left", 3, 0, "C");
    Row("move itself", 2, 0, "C");
    Row("move beside it", 0, 1, "C");
    Row("remove one before it", 0, -1, "C");
    Row("remove one after it", 3, -1, "C");
    Row("remove itself", 2, -1, "d");
}

void WindowPartsTest::TabBarKeepsTheCurrentTab()
{
    QFETCH(int, from);
    QFETCH(int, to);
    CustomTabBar bar(nullptr);
    for (const char* label : {"a", "b", "C", "d"})
        bar.InsertTab(-1, label);
    bar.SetCurrentIndex(2);
    QSignalSpy changed(&bar, &CustomTabBar::CurrentChanged);
    if (to < 0)
        bar.RemoveTab(from);
    else
        bar.MoveTab(from, to);
    QTEST(bar.GetTabText(bar.GetCurrentIndex()), "current");
    QCOMPARE(changed.count(), bar.GetTabText(bar.GetCurrentIndex()) == "C" ? 0 : 1);
}

TE2_TEST(WindowPartsTest)
#include "WindowPartsTest.moc"
