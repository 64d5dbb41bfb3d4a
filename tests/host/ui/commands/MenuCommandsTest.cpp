#include "host/ui/UiFixture.h"
#include "support/TestMain.h"

#include <QMenu>
#include <QtTest>

class MenuCommandsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_host.reset(); }

    void CommandsAnswer_data();
    void CommandsAnswer();
    void ItemsStandInTheMenuAsInTheModel();
    void ItemsGetTheirState();
    void RadioItemsTakeTurns();
    void MenusFillThemselvesWhenTheyOpen();
    void AnItemMayDeleteItself();
    void WindowsMenuHasItsSubmenuOnce();

private:
    QStringList ShownLabels(const QString& menu);

    std::unique_ptr<UiFixture> m_host;
};

void MenuCommandsTest::init()
{
    m_host = std::make_unique<UiFixture>();
    m_host->Run("window w; menu -label \"Tools\" m");
}

QStringList MenuCommandsTest::ShownLabels(const QString& menu)
{
    QStringList labels;
    for (const QAction* action : m_host->Find(menu)->GetMenu()->actions())
        labels += action->isSeparator() ? QString("-") : action->text();
    return labels;
}

void MenuCommandsTest::CommandsAnswer_data()
{
    Columns<QString, QString>("script", "result");
    Row("items have paths", "menuItem i", "w|m|i");
    Row("default name", "menuItem", "w|m|menuItem1");
    Row("submenu is the next parent", "menuItem -subMenu 1 s; menuItem i", "w|m|s|i");
    Row("back to the menu", "menuItem -subMenu 1 s; setParent -menu ..; menuItem i", "w|m|i");
    Row("above the menu there is none", "setParent -menu ..; setParent -q -menu", "");
    Row("no menu", "setParent -menu ..; menuItem",
        "error: No current menu: make one first, or use -parent.");
    Row("a layout takes no items", "columnLayout c; menuItem -parent c",
        "error: Object 'c' not found.");
    Row("items in order", "menuItem a; menuItem b; menu -q -itemArray m", "a b");
    Row("items of a submenu", "menuItem -sm 1 s; menuItem a; menu -q -ia s", "a");
    Row("first", "menuItem a; menuItem -ia \"\" b; menu -q -ia m", "b a");
    Row("behind another", "menuItem a; menuItem b; menuItem -ia a c; menu -q -ia m", "a c b");
    Row("behind nobody", "menuItem -ia x c", "error: Object 'x' not found.");
    Row("a failed item is not left behind", "catchQuiet(`menuItem -ia x c`); menu -q -ni m", "0");
    Row("label with an ampersand", "menuItem -l \"A & B\" a; menuItem -q -l a", "A & B");
    Row("divider has no label", "menuItem -d 1 a; menuItem -q -l a", "");
    Row("what an item is", "menuItem -cb 1 a; `menuItem -q -icb a` + `menuItem -q -d a` * 10", "1");
    Row("labels of menus", "menu -q -label m", "Tools");
    Row("menus of a window", "menu n; window -q -ma w", "m n");
    Row("delete an item", "menuItem a; deleteUI -mi a; menuItem -exists a", "0");
    Row("a menu is no item", "deleteUI -mi m", "error: Object 'm' not found.");
    Row("all items", "menuItem a; menuItem -sm 1 s; menuItem x; menu -e -dai m; menu -q -ni m",
        "0");
    Row("option box", "menuItem -l \"Cut\" a; menuItem -ob 1 o; menuItem -q -iob o", "1");
    Row("command of an item", "menuItem -c \"x y\" a; menuItem -q -c a", "x y");
    Row("popup of the last control", "columnLayout c; button b; popupMenu p", "w|c|b|p");
    Row("popup's items", "columnLayout c; button b; popupMenu p; menuItem x; popupMenu -q -ia p",
        "x");
}

void MenuCommandsTest::CommandsAnswer()
{
    QFETCH(QString, script);
    QTEST(m_host->Run(script), "result");
}

void MenuCommandsTest::ItemsStandInTheMenuAsInTheModel()
{
    m_host->Run("menuItem -l \"A\" a; menuItem -d 1; menuItem -l \"S\" -sm 1 s; setParent -m ..;"
                "menuItem -l \"B\" -ia a b; menuItem -l \"0\" -ia \"\"");
    QCOMPARE(ShownLabels("m"), (QStringList{"0", "A", "B", "-", "S"}));
    m_host->Run("deleteUI -mi s; deleteUI -mi a");
    QCOMPARE(ShownLabels("m"), (QStringList{"0", "B", "-"}));
}

void MenuCommandsTest::ItemsGetTheirState()
{
    m_host->Run("menuItem -cb 0 -c \"print \\\"#1;\\\"\" a");
    m_host->Find("a")->GetAction()->trigger();
    m_host->Find("a")->GetAction()->trigger();
    QCOMPARE(m_host->TakePrinted(), "1;0;");
}

void MenuCommandsTest::RadioItemsTakeTurns()
{
    m_host->Run("radioMenuItemCollection; menuItem -rb 1 a; menuItem -rb 0 b;"
                "radioMenuItemCollection; menuItem -rb 1 c");
    m_host->Find("b")->GetAction()->trigger();
    QCOMPARE(
        m_host->Run("`menuItem -q -rb a` + 10 * `menuItem -q -rb b` + 100 * `menuItem -q -rb c`"),
        "110");
}

void MenuCommandsTest::MenusFillThemselvesWhenTheyOpen()
{
    m_host->Run("menu -e -pmc \"menuItem -p m\" m; menu -pmc \"menuItem -p n\" -pmo 1 n");
    for (const char* name : {"m", "n"}) {
        Q_EMIT m_host->Find(name)->GetMenu()->aboutToShow();
        Q_EMIT m_host->Find(name)->GetMenu()->aboutToShow();
    }
    QCOMPARE(m_host->Run("`menu -q -ni m` * 10 + `menu -q -ni n`"), "21");
}

void MenuCommandsTest::AnItemMayDeleteItself()
{
    m_host->Run("menuItem -c \"deleteUI -mi a\" a");
    const QPointer<QAction> action = m_host->Find("a")->GetAction();
    action->trigger();
    QVERIFY(!m_host->Find("a"));
    QTRY_VERIFY(!action);
}

/// How plug-ins find the place for their entry.
void MenuCommandsTest::WindowsMenuHasItsSubmenuOnce()
{
    m_host->Run(
        "global proc string findSubmenu() {"
        "  string $wanted = uiRes(\"m_WindowMenu.kGeneralEditorsLabel\"); string $found = \"\";"
        "  for ($item in `menu -q -ia m`) { string $label = \"\";"
        "    catchQuiet($label = `menuItem -q -label $item`);"
        "    if ($label == $wanted && `menuItem -q -subMenu $item`) $found += $item; }"
        "  return $found; }");
    m_host->Run("buildViewMenu m; buildViewMenu m");
    const QString submenu = m_host->Run("findSubmenu()");
    QCOMPARE(submenu, "generalEditorsItem");
    QVERIFY(m_host->Run("buildObjectEdMenu " + submenu) != "error");
    const QString items = m_host->Run("menu -q -ia " + submenu);
    m_host->Run("setParent -menu " + submenu + "; menuItem -d 1; menuItem -l \"Mine\" mine");
    m_host->Run("buildObjectEdMenu " + submenu);
    Q_EMIT m_host->Find(submenu)->GetMenu()->aboutToShow();
    QVERIFY(items.startsWith("scriptEditorItem"));
    QCOMPARE(m_host->Run("menu -q -ia " + submenu), items + " menuItem1 mine");
    QCOMPARE(m_host->Run("setParent -q -menu"), "w|m|" + submenu);
}

TE2_TEST(MenuCommandsTest)
#include "MenuCommandsTest.moc"
