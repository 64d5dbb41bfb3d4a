#include "settings/KeyBindings.h"
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
    void FirstBindingKeepsAContestedKey();
    void BindingsComeAndGoTogether();
    void RemembersRemovedAndChangedKeys();
    void StyleSheetHasNoTokenLeft();
    void LengthsFollowTheScale_data();
    void LengthsFollowTheScale();
    void TabBarKeepsTheCurrentTab_data();
    void TabBarKeepsTheCurrentTab();
    void TabBarScrollsTheCurrentTabIntoView();

private:
    std::unique_ptr<WindowFixture> m_host;
};

void WindowPartsTest::FirstBindingKeepsAContestedKey()
{
    KeyBindings bindings;
    QAction find;
    QAction comment;
    bindings.SetAction(KeyBindings::Find, &find);
    bindings.SetAction(KeyBindings::ToggleComment, &comment);
    bindings.SetAction(KeyBindings::None, &comment);
    bindings.SetAction(89, &comment);
    QList<KeyBinding> edited = bindings.GetKeySequences();
    edited[KeyBindings::ToggleComment - 1].userSequences
        = {QKeySequence("Ctrl+F"), QKeySequence("F12")};
    m_host->TakeMessages(host::MessageType::Warning);
    bindings.UpdateUserSequences(edited);
    QCOMPARE(find.shortcuts(), QList<QKeySequence>{QKeySequence("Ctrl+F")});
    QCOMPARE(comment.shortcuts(), QList<QKeySequence>{QKeySequence("F12")});
    QCOMPARE(m_host->TakeMessages(host::MessageType::Warning),
        QStringList("[TarnwickEditor2] Duplicate hotkey detected: Toggle Comment (Ctrl+F)"));
}

void WindowPartsTest::BindingsComeAndGoTogether()
{
    KeyBindings bindings;
    QAction execute;
    bindings.SetAction(KeyBindings::Execute, &execute);
    bindings.Update();
    const QList<QKeySequence> keys
        = {QKeySequence("Ctrl+Return"), QKeySequence("Ctrl+Enter"), QKeySequence("Enter")};
    QCOMPARE(execute.shortcuts(), keys);
    bindings.SetBindingsEnabled(false);
    QVERIFY(execute.shortcuts().isEmpty());
    bindings.SetBindingsEnabled(true);
    QCOMPARE(execute.shortcuts(), keys);
    // The user's sequences of a fixed command do not count.
    QList<KeyBinding> edited = bindings.GetKeySequences();
    edited[KeyBindings::Execute - 1].userSequences = {QKeySequence("F5")};
    bindings.UpdateUserSequences(edited);
    QCOMPARE(execute.shortcuts(), keys);
    QVERIFY(bindings.GetShortcut(KeyBindings::SaveAs).isEmpty());
    QVERIFY(bindings.GetShortcut(0).isEmpty());
}

void WindowPartsTest::RemembersRemovedAndChangedKeys()
{
    const QString path = KeyBindings::GetUserKeyBindingsPath();
    QFile::remove(path);
    KeyBindings bindings;
    QList<KeyBinding> edited = bindings.GetKeySequences();
    edited[KeyBindings::Find - 1].userSequences.clear();
    edited[KeyBindings::ExecuteAlt - 1].userSequences = {QKeySequence("F5"), QKeySequence("F6")};
    bindings.UpdateUserSequences(edited);
    bindings.WriteUserKeyBindings();

    KeyBindings read;
    read.ReadUserKeyBindings();
    QVERIFY(read.GetShortcut(KeyBindings::Find).isEmpty());
    QCOMPARE(read.GetKeySequences()[KeyBindings::ExecuteAlt - 1].userSequences,
        (QList<QKeySequence>{QKeySequence("F5"), QKeySequence("F6")}));
    QCOMPARE(read.GetShortcut(KeyBindings::Replace), QKeySequence("Ctrl+H"));

    // Without its key in the file a command has its default again.
    QSettings(path, QSettings::IniFormat).remove("user_bindings/find");
    read.ReadUserKeyBindings();
    QCOMPARE(read.GetShortcut(KeyBindings::Find), QKeySequence("Ctrl+F"));
}

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
    QTest::addColumn<double>("scale");
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("hairline");
    QTest::newRow("1") << 1.0 << 5 << 1;
    QTest::newRow("1.25") << 1.25 << 6 << 1;
    QTest::newRow("2") << 2.0 << 10 << 2;
    QTest::newRow("tiny") << 0.01 << 1 << 1;
    QTest::newRow("not a scale") << 0.0 << 5 << 1;
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
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to"); // -1: removed
    QTest::addColumn<QString>("current");
    // Tabs a b C d, the capital one current.
    QTest::newRow("move over it to the right") << 0 << 3 << "C";
    QTest::newRow("move over it to the left") << 3 << 0 << "C";
    QTest::newRow("move itself") << 2 << 0 << "C";
    QTest::newRow("move beside it") << 0 << 1 << "C";
    QTest::newRow("remove one before it") << 0 << -1 << "C";
    QTest::newRow("remove one after it") << 3 << -1 << "C";
    QTest::newRow("remove itself") << 2 << -1 << "d";
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

void WindowPartsTest::TabBarScrollsTheCurrentTabIntoView()
{
    CustomTabBar bar(nullptr);
    for (int i = 0; i < 20; ++i)
        bar.InsertTab(-1, QString("script %1").arg(i));
    bar.resize(300, 34);
    bar.show();
    QVERIFY(!bar.CanScroll(-1) && bar.CanScroll(1));
    bar.SetCurrentIndex(19);
    QVERIFY(bar.CanScroll(-1) && !bar.CanScroll(1));
    bar.SetCurrentIndex(0);
    QVERIFY(!bar.CanScroll(-1) && bar.CanScroll(1));
}

TE2_TEST(WindowPartsTest)
#include "WindowPartsTest.moc"
