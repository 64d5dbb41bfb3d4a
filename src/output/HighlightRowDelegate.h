#pragma once

#include <QStyledItemDelegate>

/// Draws a row of the list of rules as the console would draw what it finds: check box, then the
/// name in the rule's colours. Owned by the list.
class HighlightRowDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
        const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};
