#pragma once

#include <QStyledItemDelegate>
#include <QVector>

/// Draws a cell of the table of key bindings: the command, its keys one behind the other, or the
/// mark beside them. Owned by the table.
class KeyBindingDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit KeyBindingDelegate(QObject* parent);

    /// Which of the keys of the current row is the current one, shown while the table has the
    /// focus.
    void SetPlace(int place) { m_place = place; }
    /// From where on a field covers the keys of a row, and the first one that is not drawn; row -1
    /// for none.
    void SetEdited(int row, int place, int left);
    /// Searched text, which is shown on a ground of its own; empty for none.
    void SetMatch(const QString& text) { m_match = text; }

    /// Where each of the row's keys is drawn in its cell; behind the last of them, where another
    /// one would be.
    QVector<QRect> PlaceKeys(const QRect& cell, const QFont& font, const QModelIndex& index) const;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
        const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    void PaintKeys(
        QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;

    QString m_match;
    int m_place = 0;
    int m_editedRow = -1;
    int m_editedPlace = -1;
    int m_editedLeft = 0;
};
