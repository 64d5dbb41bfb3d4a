#pragma once

#include <QStyledItemDelegate>

/// A row of the list of pages: the page's icon (its name under ICON_NAME), its title, and the
/// waterline beside the page that is shown. Owned by the list.
class PreferencesPageDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    enum { ICON_NAME = Qt::UserRole };

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
        const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};
