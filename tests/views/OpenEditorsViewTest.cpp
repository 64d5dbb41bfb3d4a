#include "views/explorer/OpenEditorsView.h"

#include "settings/Settings.h"
#include "support/TestMain.h"
#include "views/SideBarTree.h"
#include "views/SubViewHeader.h"
#include "views/explorer/ExplorerView.h"

#include <QAbstractButton>
#include <QContextMenuEvent>
#include <QSignalSpy>
#include <QtTest>

namespace {

using Editors = QVector<OpenEditorsView::Editor>;

OpenEditorsView::Editor File(const QString& path, int group = 0, bool modified = false)
{
    const QString label = path.section('/', -1);
    return {group, {CodeEditorType::File, CodeEditorLanguage::Python, path, label}, modified};
}

OpenEditorsView::Editor Buffer(const QString& label, bool modified)
{
    return {
        0, {CodeEditorType::Buffer, CodeEditorLanguage::Mel, "/buffers/" + label, label}, modified};
}

/// "label", with "(folder)" and "*" behind it as the row shows them; headings in brackets.
QStringList Rows(const SideBarTree& tree)
{
    QStringList rows;
    for (int i = 0; i < tree.topLevelItemCount(); ++i) {
        const QTreeWidgetItem& item = *tree.topLevelItem(i);
        const QString detail = item.data(0, SideBarTree::DetailRole).toString();
        QString row = item.text(0);
        if (item.data(0, SideBarTree::HeadingRole).toBool())
            row = "[" + row + "]";
        if (!detail.isEmpty())
            row += " (" + detail + ")";
        rows += row + (item.data(0, SideBarTree::ModifiedRole).toBool() ? "*" : "");
    }
    return rows;
}

} // namespace

Q_DECLARE_METATYPE(OpenEditorsView::Editor)

class OpenEditorsViewTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void ShowsRows_data();
    void ShowsRows();
    void KeepsRowsThatStay();
    void FollowsTheActiveEditor();
    void AnswersToMouseAndKeys();
    void ClosesByMouseAndKeys();
    void AsksForTheWindowsActions();
    void WorksOnlyWhileSeen();
    void TakesTheHeightOfItsRows();
    void HeaderExpandsAndCollapses();

private:
    OpenEditorsView* View() const { return m_explorer->GetOpenEditors(); }
    SideBarTree* Tree() const { return View()->findChild<SideBarTree*>(); }

    std::unique_ptr<ExplorerView> m_explorer;
};

void OpenEditorsViewTest::init()
{
    Settings::ResetToDefaults();
    m_explorer = std::make_unique<ExplorerView>(nullptr);
    m_explorer->resize(300, 600);
    m_explorer->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_explorer.get()));
}

void OpenEditorsViewTest::cleanup()
{
    m_explorer.reset();
}

void OpenEditorsViewTest::ShowsRows_data()
{
    QTest::addColumn<Editors>("editors");
    QTest::addColumn<QStringList>("rows");
    QTest::newRow("one group has no heading")
        << Editors{File("/a/x.py"), File("/a/y.py")} << QStringList{"x.py", "y.py"};
    QTest::newRow("groups in order") << Editors{File("/a/x.py"), File("/a/y.py", 2)}
                                     << QStringList{"[Group 1]", "x.py", "[Group 3]", "y.py"};
    QTest::newRow("only equal labels tell their folder") << Editors{File("/a/x.py"),
        File("/b/x.py"), File("/b/y.py")} << QStringList{"x.py (a)", "x.py (b)", "y.py"};
    QTest::newRow("a dot on files, not on buffers")
        << Editors{File("/a/x.py", 0, true), Buffer("MEL", true)} << QStringList{"x.py*", "MEL"};
    QTest::newRow("nothing open") << Editors{} << QStringList{"[No editor is open]"};
}

void OpenEditorsViewTest::ShowsRows()
{
    QFETCH(Editors, editors);
    // Coming from another list must give what coming from nothing gives.
    View()->SetEditors({File("/b/y.py", 1), File("/a/x.py")});
    View()->SetEditors(editors);
    QTEST(Rows(*Tree()), "rows");
}

void OpenEditorsViewTest::KeepsRowsThatStay()
{
    View()->SetEditors({File("/1.py"), File("/2.py"), File("/3.py"), File("/4.py")});
    const QTreeWidgetItem* const first = Tree()->topLevelItem(0);
    const QTreeWidgetItem* const third = Tree()->topLevelItem(2);
    const auto picture = [this](int row) { return Tree()->topLevelItem(row)->icon(0).cacheKey(); };
    const qint64 ofPython = picture(0);
    View()->SetEditors({File("/1.py"), File("/4.py"), File("/3.py", 0, true), File("/5.py")});
    QCOMPARE(Rows(*Tree()), (QStringList{"1.py", "4.py", "3.py*", "5.py"}));
    QCOMPARE(Tree()->topLevelItem(0), first);
    QCOMPARE(Tree()->topLevelItem(2), third);
    // Each icon of its own would leave what it painted in the toolkit's cache.
    QCOMPARE(picture(0), ofPython);
    QCOMPARE(picture(3), ofPython);
}

void OpenEditorsViewTest::FollowsTheActiveEditor()
{
    View()->SetEditors({File("/1.py"), File("/2.py")});
    View()->SelectEditor("/2.py");
    QCOMPARE(Tree()->currentItem(), Tree()->topLevelItem(1));
    // The window may tell of the editor before the list has it.
    View()->SelectEditor("/3.py");
    QVERIFY(!Tree()->currentItem());
    View()->SetEditors({File("/1.py"), File("/3.py"), File("/2.py")});
    QCOMPARE(Tree()->currentItem(), Tree()->topLevelItem(1));
}

void OpenEditorsViewTest::AnswersToMouseAndKeys()
{
    QSignalSpy activated(View(), &OpenEditorsView::ActivateRequested);
    View()->SetEditors({File("/1.py"), File("/2.py", 1)});
    QTRY_COMPARE(Tree()->viewport()->height(), Tree()->GetRowsHeight());
    const auto click = [this](int row) {
        QTest::mouseClick(Tree()->viewport(), Qt::LeftButton, Qt::NoModifier,
            Tree()->visualItemRect(Tree()->topLevelItem(row)).center());
    };
    click(1);
    QCOMPARE(activated.size(), 1);
    QCOMPARE(activated.takeFirst().first().toString(), QString("/1.py"));
    // A heading is no editor.
    click(2);
    QVERIFY(activated.isEmpty());
    // From the first row over the heading to the second editor.
    QTest::keyClick(Tree(), Qt::Key_Down);
    QTest::keyClick(Tree(), Qt::Key_Return);
    QCOMPARE(activated.size(), 1);
    QCOMPARE(activated.takeFirst().first().toString(), QString("/2.py"));
}

void OpenEditorsViewTest::ClosesByMouseAndKeys()
{
    QSignalSpy closed(View(), &OpenEditorsView::CloseRequested);
    QSignalSpy activated(View(), &OpenEditorsView::ActivateRequested);
    View()->SetEditors({File("/1.py"), File("/2.py", 1)});
    QTRY_COMPARE(Tree()->viewport()->height(), Tree()->GetRowsHeight());
    const auto click = [this](int row, Qt::MouseButton button, bool atTheCross) {
        QPoint place = Tree()->visualItemRect(Tree()->topLevelItem(row)).center();
        if (atTheCross)
            place.setX(Tree()->viewport()->width() - 17);
        QTest::mouseClick(Tree()->viewport(), button, Qt::NoModifier, place);
    };
    click(1, Qt::LeftButton, true);
    click(3, Qt::MiddleButton, false);
    // Headings have no cross.
    click(0, Qt::LeftButton, true);
    click(2, Qt::MiddleButton, false);
    Tree()->setCurrentItem(Tree()->topLevelItem(1));
    QTest::keyClick(Tree(), Qt::Key_Delete);
    QStringList paths;
    for (const QList<QVariant>& arguments : qAsConst(closed))
        paths += arguments.first().toString();
    QCOMPARE(paths, (QStringList{"/1.py", "/2.py", "/1.py"}));
    QVERIFY(activated.isEmpty());
}

void OpenEditorsViewTest::AsksForTheWindowsActions()
{
    View()->SetEditors({File("/1.py"), File("/2.py")});
    // The menu that a key opens belongs to the current row, not to what is in the middle.
    QSignalSpy menus(View(), &OpenEditorsView::MenuRequested);
    Tree()->setCurrentItem(Tree()->topLevelItem(1));
    QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(1, 1));
    QCoreApplication::sendEvent(Tree(), &key);
    QCOMPARE(menus.size(), 1);
    QCOMPARE(menus.first().first().toString(), QString("/2.py"));
    const QPair<const char*, void (OpenEditorsView::*)()> tools[]
        = {{"m_newButton", &OpenEditorsView::NewRequested},
            {"m_saveAllButton", &OpenEditorsView::SaveAllRequested},
            {"m_closeAllButton", &OpenEditorsView::CloseAllRequested}};
    for (const auto& tool : tools) {
        QSignalSpy asked(View(), tool.second);
        View()->findChild<QAbstractButton*>(tool.first)->click();
        QCOMPARE(asked.size(), 1);
    }
}

void OpenEditorsViewTest::WorksOnlyWhileSeen()
{
    m_explorer->hide();
    View()->SetEditors({File("/1.py")});
    View()->SelectEditor("/1.py");
    QCOMPARE(Rows(*Tree()), QStringList());
    m_explorer->show();
    QCOMPARE(Rows(*Tree()), QStringList("1.py"));
    QVERIFY(Tree()->topLevelItem(0)->isSelected());
    View()->SetExpanded(false);
    View()->SetEditors({});
    QCOMPARE(Tree()->topLevelItemCount(), 1);
    View()->SetExpanded(true);
    QCOMPARE(Rows(*Tree()), QStringList("[No editor is open]"));
}

void OpenEditorsViewTest::TakesTheHeightOfItsRows()
{
    Editors editors;
    for (int i = 0; i < 5; ++i)
        editors.append(File(QString("/%1.py").arg(i)));
    View()->SetEditors(editors);
    const int header = SubViewHeader::Height();
    QTRY_COMPARE(Tree()->viewport()->height(), 5 * SideBarTree::RowHeight());
    QVERIFY(View()->height() > header + Tree()->viewport()->height());
    for (int i = 5; i < 30; ++i)
        editors.append(File(QString("/%1.py").arg(i)));
    View()->SetEditors(editors);
    QTRY_COMPARE(Tree()->viewport()->height(), 9 * SideBarTree::RowHeight());
    View()->SetExpanded(false);
    QTRY_COMPARE(View()->height(), header);
}

void OpenEditorsViewTest::HeaderExpandsAndCollapses()
{
    SubViewHeader* const header = View()->GetHeader();
    QTest::mouseClick(header, Qt::LeftButton);
    QVERIFY(!Settings::openEditorsExpanded);
    QCOMPARE(header->accessibleDescription(), QString("collapsed"));
    const QPair<Qt::Key, bool> keys[] = {{Qt::Key_Left, false}, {Qt::Key_Right, true},
        {Qt::Key_Right, true}, {Qt::Key_Space, false}, {Qt::Key_Return, true}};
    for (const auto& key : keys) {
        QTest::keyClick(header, key.first);
        QCOMPARE(Settings::openEditorsExpanded, key.second);
    }
    QCOMPARE(header->accessibleDescription(), QString("expanded"));
    QVERIFY(Tree()->isVisible());
}

TE2_TEST(OpenEditorsViewTest)
#include "OpenEditorsViewTest.moc"
