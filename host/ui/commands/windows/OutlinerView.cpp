#include "ui/commands/windows/OutlinerView.h"

#include "commands/Quoting.h"
#include "engine/Script.h"
#include "scene/Scene.h"

#include <QScopedValueRollback>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace host::ui {

class OutlinerView::NodeItem : public QTreeWidgetItem
{
public:
    explicit NodeItem(scene::Node& node)
        : m_node(node.shared_from_this())
    {
        setText(0, node.GetName());
        setToolTip(0, node.Path());
        setFlags(flags() | (node.IsDefault() ? Qt::NoItemFlags : Qt::ItemIsEditable));
    }

    static scene::Node* NodeOf(const QTreeWidgetItem* item)
    {
        return item ? static_cast<const NodeItem*>(item)->m_node.get() : nullptr;
    }
    bool isFilled = false;

private:
    scene::NodePointer m_node;
};

namespace {

void RunMel(const QString& text)
{
    const Script script{Language::Mel, text, nullptr};
    script.Run();
}

} // namespace

OutlinerView::OutlinerView(QWidget* parent)
    : QTreeWidget(parent)
    , m_viewer([this] { Follow(); })
{
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(DoubleClicked | EditKeyPressed);
    setExpandsOnDoubleClick(false);
    connect(this, &QTreeWidget::itemExpanded, this, &OutlinerView::Fill);
    connect(this, &QTreeWidget::itemSelectionChanged, this, &OutlinerView::OnSelectionChanged);
    connect(this, &QTreeWidget::itemChanged, this, &OutlinerView::OnRenamed);
    Rebuild();
}

void OutlinerView::SetShowsShapes(bool shown)
{
    m_showsShapes = shown;
    Rebuild();
}

void OutlinerView::SetShowsDagOnly(bool only)
{
    m_showsDagOnly = only;
    Rebuild();
}

void OutlinerView::SetSortsByName(bool sorted)
{
    m_sortsByName = sorted;
    Rebuild();
}

void OutlinerView::ExpandAll(bool open)
{
    if (open)
        expandAll();
    else
        collapseAll();
}

void OutlinerView::RevealSelected()
{
    const QVector<scene::Item> selection = scene::Scene::Current().Selection();
    for (const scene::Item& item : selection) {
        QVector<const scene::Node*> above;
        for (const scene::Node* node = item.node->GetParent(); node && node->GetParent();
             node = node->GetParent())
            above.prepend(node);
        for (const scene::Node* node : qAsConst(above)) {
            if (QTreeWidgetItem* row = m_items.value(node))
                row->setExpanded(true);
        }
    }
    ShowSelection();
    if (!selection.isEmpty() && m_items.contains(selection.last().node.get()))
        scrollToItem(m_items.value(selection.last().node.get()));
}

/// A name that is being typed is not taken away.
void OutlinerView::Follow()
{
    if (state() == EditingState)
        return;
    if (m_revision != scene::Scene::Current().TreeRevision())
        Rebuild();
    else
        ShowSelection();
}

void OutlinerView::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint)
{
    QTreeWidget::closeEditor(editor, hint);
    QTimer::singleShot(0, this, &OutlinerView::Follow);
}

void OutlinerView::Rebuild()
{
    QSet<const scene::Node*> open;
    for (auto it = m_items.cbegin(); it != m_items.cend(); ++it) {
        if (it.value()->isExpanded())
            open.insert(it.key());
    }
    {
        const QScopedValueRollback<bool> following(m_following, true);
        const scene::Scene& scene = scene::Scene::Current();
        m_revision = scene.TreeRevision();
        m_items.clear();
        clear();
        AddNodes(invisibleRootItem(), ChildrenOf(scene.Root()));
        if (!m_showsDagOnly) {
            QVector<scene::Node*> others = scene.Nodes();
            others.erase(std::remove_if(others.begin(), others.end(),
                             [](const scene::Node* node) { return node->IsDag(); }),
                others.end());
            AddNodes(invisibleRootItem(), others);
        }
        QVector<QTreeWidgetItem*> shown = m_items.values().toVector();
        while (!shown.isEmpty()) {
            QTreeWidgetItem* item = shown.takeLast();
            if (!open.contains(NodeItem::NodeOf(item)))
                continue;
            item->setExpanded(true);
            for (int i = 0; i < item->childCount(); ++i)
                shown += item->child(i);
        }
    }
    ShowSelection();
}

QVector<scene::Node*> OutlinerView::ChildrenOf(const scene::Node& node) const
{
    QVector<scene::Node*> nodes = node.Children();
    if (!m_showsShapes) {
        nodes.erase(std::remove_if(nodes.begin(), nodes.end(),
                        [](const scene::Node* child) { return child->IsShape(); }),
            nodes.end());
    }
    if (m_sortsByName) {
        std::stable_sort(nodes.begin(), nodes.end(), [](const auto* left, const auto* right) {
            return left->GetName().compare(right->GetName(), Qt::CaseInsensitive) < 0;
        });
    }
    return nodes;
}

void OutlinerView::AddNodes(QTreeWidgetItem* parent, const QVector<scene::Node*>& nodes)
{
    QList<QTreeWidgetItem*> items;
    for (scene::Node* node : nodes) {
        auto* item = new NodeItem(*node);
        if (!ChildrenOf(*node).isEmpty())
            item->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
        m_items.insert(node, item);
        items += item;
    }
    parent->addChildren(items);
}

void OutlinerView::Fill(QTreeWidgetItem* item)
{
    auto* row = static_cast<NodeItem*>(item);
    if (std::exchange(row->isFilled, true))
        return;
    const QScopedValueRollback<bool> following(m_following, true);
    AddNodes(row, ChildrenOf(*NodeItem::NodeOf(row)));
    ShowSelection();
}

void OutlinerView::ShowSelection()
{
    const QScopedValueRollback<bool> following(m_following, true);
    QItemSelection shown;
    for (const scene::Item& item : scene::Scene::Current().Selection()) {
        if (QTreeWidgetItem* row = m_items.value(item.node.get()))
            shown.select(indexFromItem(row), indexFromItem(row));
    }
    selectionModel()->select(shown, QItemSelectionModel::ClearAndSelect);
}

void OutlinerView::OnSelectionChanged()
{
    if (m_following)
        return;
    QStringList names;
    for (const QTreeWidgetItem* item : selectedItems()) {
        const scene::Node* node = NodeItem::NodeOf(item);
        if (node->IsInScene())
            names += commands::Quoted(scene::Scene::Current().DisplayName(*node));
    }
    RunMel(names.isEmpty() ? QStringLiteral("select -cl")
                           : QStringLiteral("select -r -ne ") + names.join(QLatin1Char(' ')));
    Q_EMIT Selected();
}

void OutlinerView::OnRenamed(QTreeWidgetItem* item)
{
    const scene::Node* node = NodeItem::NodeOf(item);
    if (m_following || !node->IsInScene() || item->text(0) == node->GetName())
        return;
    RunMel(QStringLiteral("rename %1 %2")
               .arg(commands::Quoted(scene::Scene::Current().DisplayName(*node)),
                   commands::Quoted(item->text(0))));
    // The scene may have made another name of it, or have refused it.
    const QScopedValueRollback<bool> following(m_following, true);
    item->setText(0, node->GetName());
}

} // namespace host::ui
