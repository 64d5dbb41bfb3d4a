#pragma once

#include <QMimeData>

#include <optional>

/// A tab on its way, by its group's id and its place there.
struct DraggedTab
{
    int groupId = -1;
    int index = -1;
};

/// What a drag of a tab carries. Other processes read two bytes, the group and the place; a tab
/// whose numbers do not fit in them offers nothing there. Within the process the numbers themselves
/// arrive. Owned by the drag.
class TabDragData : public QMimeData
{
    Q_OBJECT

public:
    static QString MimeType();

    explicit TabDragData(const DraggedTab& tab);

    /// Nothing when no tab is dragged, or its payload is damaged.
    static std::optional<DraggedTab> Read(const QMimeData* data);
    /// The local files among the dragged places, in their order; no folders.
    static QStringList LocalFiles(const QMimeData* data);

private:
    DraggedTab m_tab;
};
