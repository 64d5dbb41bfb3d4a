#pragma once

#include <QStyledItemDelegate>

/// Paints a row of the completion list: what kind of name it is, the name with the typed prefix
/// set off, and what else is known of it at the right end. Owned by the list.
class CompletionRowDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    enum Role {
        IconRole = Qt::UserRole, ///< name of an icon
        DetailRole, ///< short name and type of a flag; may be empty
    };

    using QStyledItemDelegate::QStyledItemDelegate;

    void SetPrefixLength(int length) { m_prefixLength = length; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
        const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    int m_prefixLength = 0;
};
