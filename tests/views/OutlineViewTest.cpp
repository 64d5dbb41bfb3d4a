#include "views/outline/OutlineView.h"

#include "language/BaseParser.h"
#include "settings/Settings.h"
#include "support/TestMain.h"
#include "views/SubViewHeader.h"
#include "views/explorer/ExplorerView.h"
#include "views/outline/OutlineTreeWidget.h"

#include <QAbstractButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QtTest>

namespace {

using Type = ParserItemType;

struct Item
{
    QString name;
    Type type;
    int level;
    int position;
};

/// Says that it has found what a test wants.
class ScriptedParser : public BaseParser
{
public:
    explicit ScriptedParser(bool python)
        : m_python(python)
    { }

    void Give(const QVector<Item>& items, const QString& path)
    {
        Parse(QString(), path);
        for (const Item& item : items)
            AppendItem(item.name, item.type, item.position, item.level);
    }
    bool IsPython() const override { return m_python; }
    bool IsMel() const override { return !m_python; }

private:
    bool m_python;
};

const QVector<Item> PYTHON = {
    {"os", Type::PythonImport, 0, 7},
    {"np = numpy", Type::PythonImportAs, 0, 27},
    {"Zebra", Type::PythonClass, 0, 40},
    {"run", Type::PythonMethod, 1, 60},
    {"Inner", Type::PythonClass, 1, 80},
    {"deep", Type::PythonStaticMethod, 2, 100},
    {"apple", Type::PythonMethod, 0, 120},
    {"__main__", Type::PythonMain, 0, 140},
};

const QVector<Item> MEL = {
    {"$gStep", Type::MelGlobalVariable, 0, 0},
    {"grow", Type::MelGlobalProc, 0, 20},
    {"helper", Type::MelProc, 0, 40},
};

} // namespace

class OutlineViewTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void Filters_data();
    void Filters();
    void ShowAllShowsAll();
    void SortsAndUnsorts();
    void ParentsAreTheLastOfTheLevelAbove();
    void SelectsTheNameInTheScript_data();
    void SelectsTheNameInTheScript();
    void SelectionGoesWithTheFocus();
    void ExpandedNodesComeBack();
    void ExpandedNodesAreKeptByFile();
    void AnUnfinishedEditLosesNoExpansion();
    void StoredDetailsGoAndMove();
    void ScrollPlaceComesBack();
    void EditsKeepTheRows();
    void FollowsTheCursor();
    void WorksOnlyWhileSeen();
    void SaysWhyItIsEmpty();

private:
    /// The visible rows, two blanks a level; "+" behind an expanded one.
    QStringList Rows() const;
    void AppendRows(const QTreeWidgetItem* parent, const QString& indent, QStringList& rows) const;
    QTreeWidgetItem* Row(const QString& name) const;
    void Show(const QVector<Item>& items, const QString& path = "/a.py");
    QString Marked() const;
    QStringList Stored(const QString& path) const;

    std::unique_ptr<ExplorerView> m_explorer;
    std::unique_ptr<ScriptedParser> m_parser;
    OutlineView* m_view = nullptr;
    OutlineTreeWidget* m_tree = nullptr;
};

void OutlineViewTest::init()
{
    Settings::ResetToDefaults();
    Settings::outlineExpandedHash.clear();
    Settings::outlineHideImports = false;
    Settings::workspaceExpanded = false;
    m_parser = std::make_unique<ScriptedParser>(true);
    m_explorer = std::make_unique<ExplorerView>(nullptr);
    m_explorer->resize(300, 600);
    m_explorer->show();
    m_view = m_explorer->GetOutline();
    m_tree = m_view->findChild<OutlineTreeWidget*>();
}

void OutlineViewTest::cleanup()
{
    m_explorer.reset();
}

void OutlineViewTest::Show(const QVector<Item>& items, const QString& path)
{
    m_parser->Give(items, path);
    m_view->Update(m_parser.get());
}

QStringList OutlineViewTest::Rows() const
{
    QStringList rows;
    AppendRows(m_tree->invisibleRootItem(), QString(), rows);
    return rows;
}

void OutlineViewTest::AppendRows(
    const QTreeWidgetItem* parent, const QString& indent, QStringList& rows) const
{
    for (int i = 0; i < parent->childCount(); ++i) {
        const QTreeWidgetItem* const item = parent->child(i);
        if (item->isHidden())
            continue;
        rows += indent + item->text(0) + (item->isExpanded() && item->childCount() > 0 ? "+" : "");
        if (item->isExpanded())
            AppendRows(item, indent + "  ", rows);
    }
}

QTreeWidgetItem* OutlineViewTest::Row(const QString& name) const
{
    return m_tree->findItems(name, Qt::MatchExactly | Qt::MatchRecursive).value(0);
}

QString OutlineViewTest::Marked() const
{
    for (QTreeWidgetItemIterator it(m_tree); *it; ++it) {
        if ((*it)->data(0, SideBarTree::MarkedRole).toBool())
            return (*it)->text(0);
    }
    return QString();
}

QStringList OutlineViewTest::Stored(const QString& path) const
{
    QStringList stored = Settings::outlineExpandedHash.values(path);
    stored.sort();
    return stored;
}

void OutlineViewTest::Filters_data()
{
    Columns<bool, int, QStringList>("python", "toggle", "left");
    ::Row("imports", true, 0, QStringList{"Zebra", "apple", "__main__"});
    ::Row("main", true, 1, QStringList{"os", "np = numpy", "Zebra", "apple"});
    ::Row("global variables", false, 2, QStringList{"grow", "helper"});
    ::Row("global procs", false, 3, QStringList{"$gStep", "helper"});
    ::Row("procs", false, 4, QStringList{"$gStep", "grow"});
}

void OutlineViewTest::Filters()
{
    using Toggle = void (OutlineView::*)();
    static const Toggle TOGGLES[] = {&OutlineView::ToggleImportVisibility,
        &OutlineView::ToggleMainVisibility, &OutlineView::ToggleGlobalVariableVisibility,
        &OutlineView::ToggleGlobalProcVisibility, &OutlineView::ToggleProcVisibility};
    QFETCH(bool, python);
    QFETCH(int, toggle);
    m_parser = std::make_unique<ScriptedParser>(python);
    Show(python ? PYTHON : MEL);
    const QStringList all = Rows();
    (m_view->*TOGGLES[toggle])();
    QTEST(Rows(), "left");
    // Another script is filtered as well, and the first one comes back without being parsed again.
    (m_view->*TOGGLES[toggle])();
    QCOMPARE(Rows(), all);
    (m_view->*TOGGLES[toggle])();
    Show({}, "/b.py");
    Show(python ? PYTHON : MEL);
    QTEST(Rows(), "left");
    // The funnel tells, also while nobody is near.
    auto* const funnel = m_view->findChild<QAbstractButton*>("m_filterButton");
    QVERIFY(funnel->isChecked() && funnel->isVisible());
}

void OutlineViewTest::ShowAllShowsAll()
{
    for (bool* option : {&Settings::outlineHideImports, &Settings::outlineHideMain,
             &Settings::outlineHideGlobalProcs, &Settings::outlineHideGlobalVariables,
             &Settings::outlineHideProcs})
        *option = true;
    Show(PYTHON);
    QCOMPARE(Rows(), (QStringList{"Zebra", "apple"}));
    m_view->ShowAllTypes();
    QCOMPARE(Rows().size(), 5);
    QVERIFY(!m_view->findChild<QAbstractButton*>("m_filterButton")->isChecked());
    m_parser = std::make_unique<ScriptedParser>(false);
    Show(MEL);
    QCOMPARE(Rows(), (QStringList{"$gStep", "grow", "helper"}));
}

void OutlineViewTest::SortsAndUnsorts()
{
    Show(PYTHON);
    Row("Zebra")->setExpanded(true);
    const QStringList script = Rows();
    m_view->ToggleSort();
    const QStringList sorted
        = {"__main__", "apple", "np = numpy", "os", "Zebra+", "  Inner", "  run"};
    QCOMPARE(Rows(), sorted);
    // An edit that adds something keeps the order.
    Show(QVector<Item>(PYTHON) << Item{"bee", Type::PythonMethod, 0, 200});
    QStringList more = sorted;
    more.insert(2, "bee");
    QCOMPARE(Rows(), more);
    m_view->findChild<QAbstractButton*>("m_sortButton")->click();
    Show(PYTHON);
    QCOMPARE(Rows(), script);
}

void OutlineViewTest::ParentsAreTheLastOfTheLevelAbove()
{
    // Level 2 behind a level 0 has nobody above it.
    Show({{"A", Type::PythonClass, 0, 0}, {"a", Type::PythonMethod, 1, 1},
        {"B", Type::PythonClass, 0, 2}, {"jump", Type::PythonMethod, 2, 3},
        {"b", Type::PythonMethod, 1, 4}, {"negative", Type::PythonMethod, -1, 5}});
    m_tree->expandAll();
    QCOMPARE(Rows(), (QStringList{"A+", "  a", "B+", "  b", "jump", "negative"}));
}

void OutlineViewTest::SelectsTheNameInTheScript_data()
{
    Columns<QString, int, int>("name", "start", "end");
    ::Row("method", "apple", 120, 125);
    ::Row("only the alias", "np = numpy", 27, 29);
    ::Row("not the module", "sqrt (math)", 150, 154);
    ::Row("alias of a name of a module", "m = mel (maya)", 160, 161);
}

void OutlineViewTest::SelectsTheNameInTheScript()
{
    QFETCH(QString, name);
    Show(QVector<Item>(PYTHON) << Item{"sqrt (math)", Type::PythonFromImport, 0, 150}
                               << Item{"m = mel (maya)", Type::PythonFromImport, 0, 160});
    QSignalSpy selected(m_view, &OutlineView::SelectionChanged);
    QTRY_VERIFY(m_tree->viewport()->rect().contains(m_tree->visualItemRect(Row(name)).center()));
    QTest::mouseClick(m_tree->viewport(), Qt::LeftButton, Qt::NoModifier,
        m_tree->visualItemRect(Row(name)).center());
    QVERIFY(!selected.isEmpty());
    QTEST(selected.last()[0].toInt(), "start");
    QTEST(selected.last()[1].toInt(), "end");
}

void OutlineViewTest::SelectionGoesWithTheFocus()
{
    Show(PYTHON);
    m_explorer->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_explorer.get()));
    m_tree->setFocus();
    m_tree->setCurrentItem(Row("apple"));
    QSignalSpy selected(m_view, &OutlineView::SelectionChanged);
    m_view->GetHeader()->setFocus();
    QVERIFY(m_tree->selectedItems().isEmpty());
    QVERIFY(selected.isEmpty());
}

void OutlineViewTest::ExpandedNodesComeBack()
{
    Show(PYTHON);
    Row("Zebra")->setExpanded(true);
    Row("Inner")->setExpanded(true);
    QCOMPARE(Stored("/a.py"), (QStringList{"Zebra", "ZebraInner"}));
    Show(QVector<Item>(PYTHON) << Item{"more", Type::PythonMethod, 0, 200});
    QVERIFY(Row("Zebra")->isExpanded() && Row("Inner")->isExpanded());
    // Of nodes with the same names each one does.
    Show(QVector<Item>(PYTHON) + PYTHON);
    QVERIFY(m_tree->topLevelItem(2)->isExpanded() && m_tree->topLevelItem(7)->isExpanded());
    Show(PYTHON);
    // Collapsed again, it stays so, also below a node that is expanded later.
    Row("Inner")->setExpanded(false);
    Show(PYTHON);
    QVERIFY(Row("Zebra")->isExpanded() && !Row("Inner")->isExpanded());
    m_view->CollapseAll();
    QVERIFY(Stored("/a.py").isEmpty());
    Show({}, "/b.py");
    Show(PYTHON);
    QVERIFY(!Row("Zebra")->isExpanded());
}

void OutlineViewTest::ExpandedNodesAreKeptByFile()
{
    const QByteArray restart = [this] {
        Show(PYTHON);
        Row("Zebra")->setExpanded(true);
        Show(PYTHON, "/b.py");
        return Settings::GetOutlineExpandedState();
    }();
    QVERIFY(!Row("Zebra")->isExpanded());
    Show(PYTHON);
    QVERIFY(Row("Zebra")->isExpanded());
    cleanup();
    init();
    Settings::RestoreOutlineExpandedState(restart);
    Show(PYTHON);
    QVERIFY(Row("Zebra")->isExpanded());
}

void OutlineViewTest::AnUnfinishedEditLosesNoExpansion()
{
    Show(PYTHON);
    Row("Zebra")->setExpanded(true);
    for (const int left : {2, 0}) {
        Show(PYTHON.mid(0, left));
        QVERIFY(!Row("Zebra"));
        Show(PYTHON);
        QVERIFY(Row("Zebra")->isExpanded());
    }
}

void OutlineViewTest::StoredDetailsGoAndMove()
{
    Show(PYTHON, "/b.py");
    Row("Zebra")->setExpanded(true);
    Show(PYTHON);
    Row("Zebra")->setExpanded(true);
    m_view->MoveStoredDetails("/a.py", "/c.py");
    QVERIFY(Stored("/a.py").isEmpty());
    QCOMPARE(Stored("/c.py"), QStringList("Zebra"));
    // The tree is that of the moved file now.
    Row("Inner")->setExpanded(true);
    QCOMPARE(Stored("/c.py"), (QStringList{"Zebra", "ZebraInner"}));
    m_view->ClearInvalidDetails({"/c.py", "/d.py"});
    QVERIFY(Stored("/b.py").isEmpty());
    QCOMPARE(Stored("/c.py").size(), 2);
    m_view->ClearStoredDetails("/c.py", true);
    QVERIFY(Settings::outlineExpandedHash.isEmpty());
    QVERIFY(Rows().isEmpty());
}

void OutlineViewTest::ScrollPlaceComesBack()
{
    QVector<Item> many;
    for (int i = 0; i < 200; ++i)
        many.append({QString("f%1").arg(i), Type::PythonMethod, 0, i * 10});
    Show(many);
    QTRY_VERIFY(m_tree->verticalScrollBar()->maximum() > 1000);
    m_tree->verticalScrollBar()->setValue(1000);
    Show(PYTHON, "/b.py");
    QTRY_COMPARE(m_tree->verticalScrollBar()->maximum(), 0);
    Show(many);
    QCOMPARE(m_tree->verticalScrollBar()->value(), 1000);
    // ... and is not lost when the view is laid out.
    QCoreApplication::processEvents();
    QCOMPARE(m_tree->verticalScrollBar()->value(), 1000);
}

void OutlineViewTest::EditsKeepTheRows()
{
    Show(PYTHON);
    QTreeWidgetItem* const apple = Row("apple");
    m_tree->setCurrentItem(apple);
    QVector<Item> moved = PYTHON;
    for (Item& item : moved)
        item.position += 5;
    Show(moved);
    QCOMPARE(Row("apple"), apple);
    QVERIFY(apple->isSelected());
    QCOMPARE(apple->data(0, Qt::UserRole).toInt(), 125);
    QCOMPARE(apple->data(0, Qt::UserRole + 1).toInt(), 130);
    // The same names of another kind are other rows.
    moved[6].type = Type::PythonClass;
    Show(moved);
    QVERIFY(!Row("apple")->isSelected());
}

void OutlineViewTest::FollowsTheCursor()
{
    Show(PYTHON);
    const auto markedOnLine = [this](int position, int lineStart, int lineEnd) {
        m_view->SetCursorPosition(position, lineStart, lineEnd);
        return Marked();
    };
    const auto markedAt = [&](int position) { return markedOnLine(position, position, position); };
    QCOMPARE(markedAt(3), QString());
    QCOMPARE(markedAt(7), "os");
    QCOMPARE(markedAt(105), "Zebra");
    Row("Zebra")->setExpanded(true);
    QCOMPARE(markedAt(106), "Inner");
    Row("Inner")->setExpanded(true);
    QCOMPARE(markedAt(107), "deep");
    // Before the name, on its line; but not before the second name of a line.
    QCOMPARE(markedOnLine(116, 114, 125), "apple");
    QCOMPARE(markedOnLine(99, 76, 125), "Inner");
    QCOMPARE(markedOnLine(113, 109, 113), "deep");
    QCOMPARE(markedAt(500), "__main__");
    m_view->ToggleMainVisibility();
    QCOMPARE(markedAt(501), "apple");
    // Nothing is chosen by it.
    QVERIFY(m_tree->selectedItems().isEmpty());
}

void OutlineViewTest::WorksOnlyWhileSeen()
{
    m_explorer->hide();
    Show(PYTHON);
    m_view->SetCursorPosition(130, 130, 130);
    QVERIFY(Rows().isEmpty());
    m_explorer->show();
    QCOMPARE(Rows().size(), 5);
    QCOMPARE(Marked(), "apple");
    m_view->SetExpanded(false);
    m_view->Update(nullptr);
    QCOMPARE(m_tree->topLevelItemCount(), 5);
    m_view->SetExpanded(true);
    QCOMPARE(m_tree->topLevelItemCount(), 0);
}

void OutlineViewTest::SaysWhyItIsEmpty()
{
    QCOMPARE(m_tree->accessibleDescription(), "No outline Scripts in MEL or Python have one.");
    Show({});
    QCOMPARE(m_tree->accessibleDescription(), "No declarations in this script");
    Show(PYTHON.mid(0, 2));
    QCOMPARE(m_tree->accessibleDescription(), QString());
    m_view->ToggleImportVisibility();
    QCOMPARE(m_tree->accessibleDescription(), "Everything is hidden Filters > Show All");
    m_view->ShowAllTypes();
    QCOMPARE(m_tree->accessibleDescription(), QString());
}

TE2_TEST(OutlineViewTest)
#include "OutlineViewTest.moc"
