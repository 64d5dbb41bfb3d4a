#pragma once

#include <QStyledItemDelegate>

struct GoToEntry;

/// Paints the rows of the go-to widget: icon, name with the letters that were typed, and quietly
/// what tells it from others of that name. Names are elided at the right, folders in the middle.
/// Owned by the list.
class GoToRowDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    static int RowHeight();
    /// Rows are indented by the level of their entries.
    void SetIndented(bool indented) { m_isIndented = indented; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
        const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    /// The whole text of a row that is shown in part, as it stands.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
        const QModelIndex& index) override;

private:
    QRect ContentArea(const QRect& row, const GoToEntry& entry) const;

    bool m_isIndented = false;
};
