// Items, order and filters of the outline; its memory is in OutlineViewState.cpp.

#include "views/outline/OutlineView.h"

#include "language/BaseParser.h"
#include "settings/Settings.h"
#include "views/SubViewHeader.h"
#include "views/SymbolLook.h"
#include "views/explorer/NaturalOrder.h"
#include "views/outline/OutlineTreeWidget.h"
#include "window/chrome/FlatButton.h"
#include "window/chrome/Theme.h"

#include <QMenu>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace {

constexpr int START_ROLE = Qt::UserRole;
constexpr int END_ROLE = Qt::UserRole + 1;

struct FilterRow
{
    const char* text;
    bool* option;
};

const FilterRow FILTERS[] = {
    {QT_TRANSLATE_NOOP("OutlineView", "Hide Imports"), &Settings::outlineHideImports},
    {QT_TRANSLATE_NOOP("OutlineView", "Hide __main__"), &Settings::outlineHideMain},
    {QT_TRANSLATE_NOOP("OutlineView", "Hide Global Variables (MEL)"),
        &Settings::outlineHideGlobalVariables},
    {QT_TRANSLATE_NOOP("OutlineView", "Hide Global Procs (MEL)"),
        &Settings::outlineHideGlobalProcs},
    {QT_TRANSLATE_NOOP("OutlineView", "Hide Procs (MEL)"), &Settings::outlineHideProcs},
};

/// Sorted as people sort names.
class OutlineItem : public QTreeWidgetItem
{
public:
    bool operator<(const QTreeWidgetItem& other) const override
    {
        return NaturalLess(text(0), other.text(0));
    }
};

bool SameEntry(const ParserItem& left, const ParserItem& right)
{
    return left.name == right.name && left.type == right.type && left.level == right.level;
}

} // namespace

enum class OutlineView::Kind {
    GlobalProc = 1,
    Proc,
    GlobalVariable,
    Import,
    ImportAs,
    FromImport,
    Main,
    Method,
    StaticMethod,
    ClassMethod,
    Class,
    Variable,
    ClassVariable,
    Count,
};

/// Null where nothing hides the kind.
const bool* OutlineView::HidingOption(Kind kind)
{
    switch (kind) {
    case Kind::GlobalProc: return &Settings::outlineHideGlobalProcs;
    case Kind::Proc: return &Settings::outlineHideProcs;
    case Kind::GlobalVariable: return &Settings::outlineHideGlobalVariables;
    case Kind::Import:
    case Kind::ImportAs:
    case Kind::FromImport: return &Settings::outlineHideImports;
    case Kind::Main: return &Settings::outlineHideMain;
    default: return nullptr;
    }
}

OutlineView::OutlineView(QWidget* parent)
    : SubView(tr("Outline"), &Settings::outlineExpanded, parent)
    , m_tree(new OutlineTreeWidget(this))
{
    m_tree->setObjectName(QStringLiteral("m_outlineTree"));
    m_tree->setAccessibleName(tr("Outline"));
    m_tree->setContextMenuPolicy(Qt::CustomContextMenu);
    // Otherwise the first sorting would run backwards.
    m_tree->sortByColumn(0, Qt::AscendingOrder);
    UpdateEmptyText();
    m_icons.resize(static_cast<int>(Kind::Count));
    for (int i = 1; i < m_icons.size(); ++i)
        m_icons[i] = Theme::Icon(SymbolLook::Icon(i));
    SetContent(CreatePage(m_tree));
    CreateTools();
    using O = OutlineView;
    connect(m_tree, &QTreeWidget::itemSelectionChanged, this, &O::OnSelectionChanged);
    connect(m_tree, &QTreeWidget::itemClicked, this, &O::OnSelectionChanged);
    connect(m_tree, &QTreeWidget::itemActivated, this, &O::EditorRequested);
    connect(m_tree, &QTreeWidget::itemExpanded, this, &O::SaveExpanded);
    connect(m_tree, &QTreeWidget::itemCollapsed, this, &O::SaveExpanded);
    connect(m_tree, &OutlineTreeWidget::FocusOutClearSelection, m_tree,
        &QAbstractItemView::clearSelection);
    connect(m_tree, &QWidget::customContextMenuRequested, this, [this](const QPoint& point) {
        Q_EMIT HeaderMenuRequested(m_tree->viewport()->mapToGlobal(point));
    });
}

void OutlineView::CreateTools()
{
    m_sortButton = AddTool(
        QStringLiteral("sort_by_name"), tr("Sort by Name"), QStringLiteral("m_sortButton"));
    m_sortButton->setCheckable(true);
    m_filterButton
        = AddTool(QStringLiteral("filters"), tr("Filters"), QStringLiteral("m_filterButton"));
    m_filterButton->setCheckable(true);
    const FlatButton* const collapse = AddTool(QStringLiteral("collapse_all"), tr("Collapse All"),
        QStringLiteral("m_collapseOutlineButton"));
    UpdateFilterButton();
    // A click has turned the button over already; the operation does it itself.
    connect(m_sortButton, &QAbstractButton::clicked, this, [this](bool checked) {
        m_sortButton->setChecked(!checked);
        ToggleSort();
    });
    connect(m_filterButton, &QAbstractButton::clicked, this, &OutlineView::ShowFilterMenu);
    connect(collapse, &QAbstractButton::clicked, this, &OutlineView::CollapseAll);
}

void OutlineView::Update(BaseParser* parser)
{
    m_parser = parser;
    MarkStale();
}

void OutlineView::Update()
{
    const QVector<ParserItem> items = m_parser ? m_parser->GetItems() : QVector<ParserItem>();
    const QString filePath = m_parser ? m_parser->GetFilePath() : QString();
    // Most edits move things without making or removing any.
    if (filePath == m_filePath && UpdatePositions(items)) {
        UpdateEmptyText();
        MarkCursorItem();
        return;
    }
    SaveExpanded();
    if (filePath != m_filePath)
        m_missing.clear();
    Clear();
    // While the tree is empty: sorting moves each row by itself.
    m_tree->setSortingEnabled(m_sortButton->isChecked());
    m_filePath = filePath;
    const bool updates = m_tree->updatesEnabled();
    m_tree->setUpdatesEnabled(false);
    if (m_parser && m_parser->IsPython())
        UpdatePython();
    else if (m_parser && m_parser->IsMel())
        UpdateMel();
    RestoreExpanded(m_filePath);
    m_tree->setUpdatesEnabled(updates);
    UpdateEmptyText();
    MarkCursorItem();
}

void OutlineView::UpdatePython()
{
    AddItems(m_parser->GetItems());
}

void OutlineView::UpdateMel()
{
    AddItems(m_parser->GetItems());
}

void OutlineView::AddItems(const QVector<ParserItem>& items)
{
    const bool sorted = m_tree->isSortingEnabled();
    m_tree->setSortingEnabled(false);
    // Given to the tree together, because each row that comes by itself is told to the whole view.
    m_isFilling = true;
    QVector<QTreeWidgetItem*> parents; // by level; null where a level was jumped over
    for (const ParserItem& item : items) {
        const int level = qBound(0, item.level, items.size());
        QTreeWidgetItem* const parent = parents.value(level - 1, nullptr);
        parents.resize(level + 1);
        parents[level] = AddKind(static_cast<Kind>(item.type), item.name, item.position,
            SymbolLook::EndOf(item), parent);
    }
    m_isFilling = false;
    m_tree->addTopLevelItems(std::exchange(m_newRows, {}));
    for (QTreeWidgetItem* item : std::exchange(m_newHidden, {}))
        item->setHidden(true);
    m_shown = items;
    m_tree->setSortingEnabled(sorted);
}

/// False when the items are others than those that are shown.
bool OutlineView::UpdatePositions(const QVector<ParserItem>& items)
{
    if (items.size() != m_shown.size() || items.size() != m_items.size()
        || !std::equal(items.begin(), items.end(), m_shown.begin(), SameEntry))
        return false;
    // Positions are nothing to be seen, and there may be thousands that moved.
    const QSignalBlocker blocker(m_tree->model());
    for (int i = 0; i < items.size(); ++i) {
        const bool* const hidden = HidingOption(static_cast<Kind>(items[i].type));
        const bool isHidden = hidden && *hidden;
        if (m_items[i]->isHidden() != isHidden)
            m_items[i]->setHidden(isHidden);
        if (items[i].position == m_shown[i].position)
            continue;
        m_items[i]->setData(0, START_ROLE, items[i].position);
        m_items[i]->setData(0, END_ROLE, SymbolLook::EndOf(items[i]));
    }
    m_shown = items;
    return true;
}

QTreeWidgetItem* OutlineView::AddItem(const QString& name, int start, int end, const QIcon& icon,
    QTreeWidgetItem* parent, bool hidden)
{
    auto* item = new OutlineItem;
    item->setText(0, name);
    item->setData(0, START_ROLE, start);
    item->setData(0, END_ROLE, end);
    if (!icon.isNull())
        item->setIcon(0, icon);
    if (parent)
        parent->addChild(item);
    else if (m_isFilling)
        m_newRows.append(item);
    else
        m_tree->addTopLevelItem(item);
    // Only what is in the tree can be hidden.
    if (hidden && m_isFilling)
        m_newHidden.append(item);
    else
        item->setHidden(hidden);
    m_items.append(item);
    return item;
}

QTreeWidgetItem* OutlineView::AddKind(
    Kind kind, const QString& name, int start, int end, QTreeWidgetItem* parent)
{
    const bool* const hidden = HidingOption(kind);
    const QIcon icon = m_icons.value(static_cast<int>(kind));
    return AddItem(name, start, end, icon, parent, hidden && *hidden);
}

// clang-format off
QTreeWidgetItem* OutlineView::AddGlobalProc(const QString& name, int start, int end, QTreeWidgetItem* parent)     { return AddKind(Kind::GlobalProc, name, start, end, parent); }
QTreeWidgetItem* OutlineView::AddProc(const QString& name, int start, int end, QTreeWidgetItem* parent)           { return AddKind(Kind::Proc, name, start, end, parent); }
QTreeWidgetItem* OutlineView::AddGlobalVariable(const QString& name, int start, int end, QTreeWidgetItem* parent) { return AddKind(Kind::GlobalVariable, name, start, end, parent); }
QTreeWidgetItem* OutlineView::AddImport(const QString& name, int start, int end, QTreeWidgetItem* parent)         { return AddKind(Kind::Import, name, start, end, parent); }
QTreeWidgetItem* OutlineView::AddMain(const QString& name, int start, int end, QTreeWidgetItem* parent)           { return AddKind(Kind::Main, name, start, end, parent); }
QTreeWidgetItem* OutlineView::AddMethod(const QString& name, int start, int end, QTreeWidgetItem* parent)         { return AddKind(Kind::Method, name, start, end, parent); }
QTreeWidgetItem* OutlineView::AddStaticMethod(const QString& name, int start, int end, QTreeWidgetItem* parent)   { return AddKind(Kind::StaticMethod, name, start, end, parent); }
QTreeWidgetItem* OutlineView::AddClassMethod(const QString& name, int start, int end, QTreeWidgetItem* parent)    { return AddKind(Kind::ClassMethod, name, start, end, parent); }
QTreeWidgetItem* OutlineView::AddClass(const QString& name, int start, int end, QTreeWidgetItem* parent)          { return AddKind(Kind::Class, name, start, end, parent); }
QTreeWidgetItem* OutlineView::AddVariable(const QString& name, int start, int end, QTreeWidgetItem* parent)       { return AddKind(Kind::Variable, name, start, end, parent); }
QTreeWidgetItem* OutlineView::AddClassVariable(const QString& name, int start, int end, QTreeWidgetItem* parent)  { return AddKind(Kind::ClassVariable, name, start, end, parent); }
// clang-format on

void OutlineView::Clear()
{
    // Nobody chose anything because rows go.
    const QSignalBlocker blocker(m_tree);
    m_items.clear();
    m_shown.clear();
    m_marked = nullptr;
    m_tree->ClearAll();
}

void OutlineView::CollapseAll()
{
    SetAllExpanded(false);
}

void OutlineView::ExpandAll()
{
    SetAllExpanded(true);
}

void OutlineView::SetAllExpanded(bool expanded)
{
    {
        // Saved once instead of with each row.
        const QSignalBlocker blocker(m_tree);
        if (expanded)
            m_tree->expandAll();
        else
            m_tree->collapseAll();
    }
    m_missing.clear();
    SaveExpanded();
    MarkCursorItem();
}

void OutlineView::ToggleSort()
{
    SaveExpanded();
    m_sortButton->setChecked(!m_sortButton->isChecked());
    // What is shown is made anew, in the new order.
    m_shown.clear();
    MarkStale();
}

void OutlineView::ToggleOption(bool& option)
{
    option = !option;
    UpdateFilterButton();
    MarkStale();
}

void OutlineView::ToggleImportVisibility()
{
    ToggleOption(Settings::outlineHideImports);
}

void OutlineView::ToggleMainVisibility()
{
    ToggleOption(Settings::outlineHideMain);
}

void OutlineView::ToggleGlobalProcVisibility()
{
    ToggleOption(Settings::outlineHideGlobalProcs);
}

void OutlineView::ToggleGlobalVariableVisibility()
{
    ToggleOption(Settings::outlineHideGlobalVariables);
}

void OutlineView::ToggleProcVisibility()
{
    ToggleOption(Settings::outlineHideProcs);
}

void OutlineView::ShowAllTypes()
{
    for (const FilterRow& filter : FILTERS)
        *filter.option = false;
    UpdateFilterButton();
    MarkStale();
}

/// Checked while something is hidden.
void OutlineView::UpdateFilterButton()
{
    const bool hides = std::any_of(std::begin(FILTERS), std::end(FILTERS),
        [](const FilterRow& filter) { return *filter.option; });
    m_filterButton->setChecked(hides);
}

void OutlineView::ShowFilterMenu()
{
    // The click has turned it over.
    UpdateFilterButton();
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    AddFilters(*menu);
    menu->popup(m_filterButton->mapToGlobal(QPoint(0, m_filterButton->height())));
}

void OutlineView::AddFilters(QMenu& menu)
{
    for (const FilterRow& filter : FILTERS) {
        QAction* const action = menu.addAction(tr(filter.text));
        action->setCheckable(true);
        action->setChecked(*filter.option);
        bool* const option = filter.option;
        connect(action, &QAction::triggered, this, [this, option] { ToggleOption(*option); });
    }
    menu.addSeparator();
    menu.addAction(tr("Show All"), this, &OutlineView::ShowAllTypes);
}

void OutlineView::AddMenuEntries(QMenu& menu)
{
    QAction* const sort = menu.addAction(tr("Sort by Name"), this, &OutlineView::ToggleSort);
    sort->setCheckable(true);
    sort->setChecked(m_sortButton->isChecked());
    AddFilters(*menu.addMenu(tr("Filters")));
    menu.addAction(tr("Expand All"), this, &OutlineView::ExpandAll);
    menu.addAction(tr("Collapse All"), this, &OutlineView::CollapseAll);
}

/// Why there are no rows.
void OutlineView::UpdateEmptyText()
{
    const bool isEmpty = std::none_of(m_items.cbegin(), m_items.cend(),
        [](const QTreeWidgetItem* item) { return !item->parent() && !item->isHidden(); });
    if (!isEmpty)
        m_tree->SetEmptyText({}, {});
    else if (!m_items.isEmpty())
        m_tree->SetEmptyText(tr("Everything is hidden"), tr("Filters > Show All"));
    else if (m_parser)
        m_tree->SetEmptyText(tr("No declarations in this script"), {});
    else
        m_tree->SetEmptyText(tr("No outline"), tr("Scripts in MEL or Python have one."));
}

void OutlineView::OnSelectionChanged()
{
    const QTreeWidgetItem* const item = m_tree->currentItem();
    if (item && item->isSelected())
        Q_EMIT SelectionChanged(item->data(0, START_ROLE).toInt(), item->data(0, END_ROLE).toInt());
}

void OutlineView::SetCursorPosition(int position, int lineStart, int lineEnd)
{
    m_cursorPosition = position;
    m_cursorLineStart = lineStart;
    m_cursorLineEnd = lineEnd;
    if (!IsContentSeen()) {
        MarkStale();
        return;
    }
    const QTreeWidgetItem* const before = m_marked;
    MarkCursorItem();
    // Not under the hands of somebody who looks for something else.
    if (m_marked && m_marked != before && !m_tree->hasFocus() && !m_tree->underMouse())
        m_tree->scrollToItem(m_marked);
}

/// The last declaration that begins before the cursor; when that is on another line, the first one
/// behind the cursor on its own: a name comes after the word that declares it.
QTreeWidgetItem* OutlineView::FindCursorItem() const
{
    QTreeWidgetItem* found = nullptr;
    int foundStart = -1;
    for (QTreeWidgetItem* item : qAsConst(m_items)) {
        const int start = item->data(0, START_ROLE).toInt();
        const bool isFirstOnLine = start <= m_cursorLineEnd && foundStart < m_cursorLineStart;
        if ((start > m_cursorPosition && !isFirstOnLine) || item->isHidden())
            continue;
        found = item;
        foundStart = start;
    }
    return found;
}

/// Or the closest one around it that is shown.
void OutlineView::MarkCursorItem()
{
    QTreeWidgetItem* found = FindCursorItem();
    for (QTreeWidgetItem* above = found; above; above = above->parent()) {
        if (above->isHidden() || (above->parent() && !above->parent()->isExpanded()))
            found = above->parent();
    }
    if (found == m_marked)
        return;
    if (m_marked)
        m_marked->setData(0, SideBarTree::MarkedRole, false);
    m_marked = found;
    if (m_marked)
        m_marked->setData(0, SideBarTree::MarkedRole, true);
}
