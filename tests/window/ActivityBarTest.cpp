#include "window/chrome/ActivityBar.h"

#include "settings/Settings.h"
#include "support/TestMain.h"
#include "window/chrome/ActivityButton.h"
#include "window/chrome/Theme.h"

#include <QSignalSpy>
#include <QtTest>

using Item = ActivityBar::Item;

Q_DECLARE_METATYPE(ActivityBar::Item)

class ActivityBarTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qRegisterMetaType<ActivityBar::Item>(); }
    void init();
    void cleanup() { m_bar.reset(); }
    void ShowsOnlyWhatThereIs();
    void StandsWhereTheDesignHasIt_data();
    void StandsWhereTheDesignHasIt();
    void MarksTheCurrentEntryAtTheOuterEdge();
    void IsOneStopForTheKeyboard();
    void NeverChecksItself();
    void ShowsNoMoreThanTwoDigits();

private:
    ActivityButton* Button(const char* name) const
    {
        return m_bar->findChild<ActivityButton*>(name);
    }

    std::unique_ptr<ActivityBar> m_bar;
};

void ActivityBarTest::init()
{
    m_bar = std::make_unique<ActivityBar>(nullptr);
    for (const Item item : {Item::Explorer, Item::Search, Item::QuickHelp, Item::Preferences})
        m_bar->SetItemShown(item, true);
    m_bar->resize(m_bar->width(), 600);
    m_bar->show();
    QVERIFY(QTest::qWaitForWindowActive(m_bar.get()));
}

void ActivityBarTest::ShowsOnlyWhatThereIs()
{
    const ActivityBar empty(nullptr);
    for (const Item item : {Item::Explorer, Item::Search, Item::QuickHelp, Item::Preferences})
        QVERIFY(!empty.IsItemShown(item));
    m_bar->SetItemShown(Item::Search, false);
    QVERIFY(!m_bar->IsItemShown(Item::Search));
    QTRY_COMPARE(Button("quickHelpButton")->y(), 4 + 42);
}

void ActivityBarTest::StandsWhereTheDesignHasIt_data()
{
    Columns<double>("scale");
    for (const double scale : {1.0, 1.25, 1.5, 2.0})
        QTest::addRow("%g", scale) << scale;
}

void ActivityBarTest::StandsWhereTheDesignHasIt()
{
    QFETCH(double, scale);
    Settings::customScaleValue = scale;
    init();
    const QRect search = Button("searchButton")->geometry();
    const QRect preferences = Button("preferencesButton")->geometry();
    const QRect expected(0, Theme::Dp(4) + Theme::Dp(42), Theme::Dp(44), Theme::Dp(42));
    const int bottom = 600 - Theme::Dp(4);
    Settings::customScaleValue = 1.0;
    QCOMPARE(search, expected);
    QCOMPARE(preferences.bottom() + 1, bottom);
}

void ActivityBarTest::MarksTheCurrentEntryAtTheOuterEdge()
{
    m_bar->SetCurrent(Item::Search);
    const QColor lake = Theme::Color(Theme::Role::Lake);
    const QColor groove = Theme::Color(Theme::Role::Groove);
    for (const bool left : {true, false}) {
        m_bar->SetLeft(left);
        const QImage picture = m_bar->grab().toImage();
        const int outer = left ? 0 : 43;
        const int inner = left ? 43 : 0;
        const auto color = [&picture](int x, int y) { return picture.pixelColor(x, y); };
        // 10 px inside the ends of the second entry.
        QCOMPARE(color(outer, 46 + 21), lake);
        QVERIFY(color(outer, 46 + 9) != lake);
        QVERIFY(color(outer, 46 + 42 - 9) != lake);
        QVERIFY(color(outer, 4 + 21) != lake);
        QCOMPARE(color(inner, 300), groove);
    }
    m_bar->ClearCurrent();
    QVERIFY(!m_bar->IsCurrent(Item::Search));
    QVERIFY(m_bar->grab().toImage().pixelColor(43, 46 + 21) != lake);
}

void ActivityBarTest::IsOneStopForTheKeyboard()
{
    m_bar->SetItemShown(Item::QuickHelp, false);
    m_bar->SetCurrent(Item::Search);
    int stops = 0;
    for (const ActivityButton* button : m_bar->findChildren<ActivityButton*>())
        stops += button->focusPolicy() != Qt::NoFocus;
    QCOMPARE(stops, 1);
    QSignalSpy pressed(m_bar.get(), &ActivityBar::ItemPressed);
    Button("searchButton")->setFocus(Qt::TabFocusReason);
    const auto key = [this](int code) {
        QTest::keyClick(m_bar->windowHandle(), Qt::Key(code));
        return QApplication::focusWidget()->objectName();
    };
    QCOMPARE(key(Qt::Key_Up), "explorerButton");
    QCOMPARE(key(Qt::Key_Up), "explorerButton");
    key(Qt::Key_Space);
    QCOMPARE(key(Qt::Key_Down), "searchButton");
    QCOMPARE(key(Qt::Key_Down), "preferencesButton");
    key(Qt::Key_Return);
    QCOMPARE(pressed.count(), 2);
    QCOMPARE(pressed[0][0].value<Item>(), Item::Explorer);
    QCOMPARE(pressed[1][0].value<Item>(), Item::Preferences);
}

void ActivityBarTest::NeverChecksItself()
{
    QSignalSpy pressed(m_bar.get(), &ActivityBar::ItemPressed);
    Button("preferencesButton")->setFocus();
    QTest::mouseClick(Button("explorerButton"), Qt::LeftButton);
    QCOMPARE(pressed.count(), 1);
    QVERIFY(!m_bar->IsCurrent(Item::Explorer));
    // A press with the mouse leaves the focus where it was.
    QVERIFY(Button("preferencesButton")->hasFocus());
    m_bar->SetCurrent(Item::Explorer);
    QTest::mouseClick(Button("explorerButton"), Qt::LeftButton);
    QVERIFY(m_bar->IsCurrent(Item::Explorer));
    m_bar->SetCurrent(Item::Search);
    QVERIFY(!m_bar->IsCurrent(Item::Explorer));
}

void ActivityBarTest::ShowsNoMoreThanTwoDigits()
{
    const auto picture = [this](int count) {
        m_bar->SetCount(Item::Search, count);
        return Button("searchButton")->grab().toImage();
    };
    const QImage none = picture(0);
    QVERIFY(picture(7) != none);
    QVERIFY(picture(99) != picture(100));
    const QImage hundred = picture(100);
    QCOMPARE(picture(54321), hundred);
    QCOMPARE(Button("searchButton")->accessibleDescription(), "54321 results");
    QCOMPARE(picture(0), none);
}

TE2_TEST(ActivityBarTest)
#include "ActivityBarTest.moc"
