// What the outline remembers of each file: expanded nodes and scroll places.

#include "language/BaseParser.h"
#include "settings/Settings.h"
#include "views/outline/OutlineTreeWidget.h"
#include "views/outline/OutlineView.h"

#include <QScrollBar>

namespace {

QString NodePath(const QTreeWidgetItem* item)
{
    QString path;
    for (; item; item = item->parent())
        path.prepend(item->text(0));
    return path;
}

} // namespace

void OutlineView::SaveExpanded()
{
    if (m_filePath.isEmpty())
        return;
    const QScrollBar* const scrollBar = m_tree->verticalScrollBar();
    m_scrollValues.insert(m_filePath, scrollBar->value());
    m_scrollMaximums.insert(m_filePath, scrollBar->maximum());
    Settings::outlineExpandedHash.remove(m_filePath);
    for (const QTreeWidgetItem* item : qAsConst(m_items)) {
        if (item->childCount() > 0 && item->isExpanded())
            Settings::outlineExpandedHash.insert(m_filePath, NodePath(item));
    }
}

void OutlineView::RestoreExpanded(const QString& filePath)
{
    const QStringList stored = Settings::outlineExpandedHash.values(filePath);
    QSet<QString> nodes(stored.begin(), stored.end());
    nodes += m_missing;
    {
        // The state is as it was stored, so there is nothing to save.
        const QSignalBlocker blocker(m_tree);
        QSet<QString> found;
        ExpandStored(m_tree->invisibleRootItem(), nodes, found);
        m_missing = nodes - found;
    }
    if (!m_scrollValues.contains(filePath))
        return;
    QScrollBar* const scrollBar = m_tree->verticalScrollBar();
    scrollBar->setMaximum(m_scrollMaximums.value(filePath));
    scrollBar->setValue(m_scrollValues.value(filePath));
}

/// Several items may have the same names above them and be one node.
void OutlineView::ExpandStored(
    QTreeWidgetItem* parent, const QSet<QString>& stored, QSet<QString>& found)
{
    for (int i = 0; i < parent->childCount(); ++i) {
        QTreeWidgetItem* const item = parent->child(i);
        if (item->childCount() == 0)
            continue;
        const QString path = NodePath(item);
        if (stored.contains(path)) {
            item->setExpanded(true);
            found.insert(path);
        }
        ExpandStored(item, stored, found);
    }
}

void OutlineView::ClearStoredDetails(const QString& filePath, bool clearTree)
{
    Settings::outlineExpandedHash.remove(filePath);
    m_scrollValues.remove(filePath);
    m_scrollMaximums.remove(filePath);
    if (filePath != m_filePath)
        return;
    m_missing.clear();
    if (clearTree) {
        Clear();
        // Whatever the parser has is of the same file.
        m_parser = nullptr;
        m_filePath.clear();
    }
}

void OutlineView::ClearInvalidDetails(const QStringList& openFilePaths)
{
    const QStringList stored = Settings::outlineExpandedHash.uniqueKeys();
    const QList<QString> scrolled = m_scrollValues.keys();
    for (const QString& path : stored + scrolled) {
        if (!openFilePaths.contains(path))
            ClearStoredDetails(path, false);
    }
}

void OutlineView::MoveStoredDetails(const QString& oldPath, const QString& newPath)
{
    if (oldPath == newPath)
        return;
    if (oldPath == m_filePath) {
        SaveExpanded();
        m_filePath = newPath;
    }
    const QStringList nodes = Settings::outlineExpandedHash.values(oldPath);
    Settings::outlineExpandedHash.remove(oldPath);
    for (const QString& node : nodes)
        Settings::outlineExpandedHash.insert(newPath, node);
    for (QHash<QString, int>* places : {&m_scrollValues, &m_scrollMaximums}) {
        if (places->contains(oldPath))
            places->insert(newPath, places->take(oldPath));
    }
}
