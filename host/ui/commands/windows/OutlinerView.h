#pragma once

#include "scene/Node.h"
#include "ui/commands/SceneViewer.h"

#include <QHash>
#include <QTreeWidget>

namespace host::ui {

/// The nodes of the scene as a tree. It follows the scene and what is selected in it, selects what
/// a person selects, and renames. Children are listed when they are first shown, so that a large
/// scene costs what is seen of it.
class OutlinerView : public QTreeWidget
{
    Q_OBJECT
public:
    explicit OutlinerView(QWidget* parent = nullptr);

    bool ShowsShapes() const { return m_showsShapes; }
    void SetShowsShapes(bool shown);
    /// Without it the nodes outside of the hierarchy stand at the end.
    bool ShowsDagOnly() const { return m_showsDagOnly; }
    void SetShowsDagOnly(bool only);
    /// Sorted by name; else in the order of the scene.
    bool SortsByName() const { return m_sortsByName; }
    void SetSortsByName(bool sorted);
    /// Opens or closes everything.
    void ExpandAll(bool open);
    /// Opens what is above the selected nodes and scrolls to the last one.
    void RevealSelected();

Q_SIGNALS:
    /// A person selected something else.
    void Selected();

protected:
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

private:
    class NodeItem;

    void Follow();
    void Rebuild();
    void ShowSelection();
    void AddNodes(QTreeWidgetItem* parent, const QVector<scene::Node*>& nodes);
    void Fill(QTreeWidgetItem* item);
    QVector<scene::Node*> ChildrenOf(const scene::Node& node) const;
    void OnSelectionChanged();
    void OnRenamed(QTreeWidgetItem* item);

    SceneViewer m_viewer;
    QHash<const scene::Node*, QTreeWidgetItem*> m_items;
    quint64 m_revision = 0;
    bool m_following = false; ///< what changes is no doing of a person
    bool m_showsShapes = false;
    bool m_showsDagOnly = true;
    bool m_sortsByName = false;
};

} // namespace host::ui
