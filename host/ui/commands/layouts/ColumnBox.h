#pragma once

#include <QHash>
#include <QLayout>
#include <QVector>

namespace host::ui {

/// How one column treats what stands in it. Lengths in pixels.
struct ColumnStyle
{
    int width = 0; ///< 0: as its widest child needs
    int leftOffset = 0;
    int rightOffset = 0;
    int spacing = 0; ///< before the column
    /// Children keep their own width and stand at `alignment`; else they fill the column.
    bool keepsWidth = false;
    Qt::Alignment alignment = Qt::AlignLeft;
};

/// Puts its children into columns and rows one after the other, as they were added. One column may
/// take all the width that is left. Belongs to its widget.
class ColumnBox : public QLayout
{
    Q_OBJECT
public:
    explicit ColumnBox(QWidget* parent);
    ~ColumnBox() override;

    /// Children fill each row before the next. 0: there is only one row.
    void SetColumnCount(int count);
    /// Children fill each column before the next, which has that many rows. 0: rows are filled.
    void SetRowCount(int count);
    int GetColumnCount() const { return m_columnCount; }
    int GetRowCount() const { return m_rowCount; }

    /// Columns are counted from 0; those that were not described are as `fallback`.
    ColumnStyle StyleAt(int column) const { return m_styles.value(column, m_fallback); }
    void SetStyleAt(int column, const ColumnStyle& style);
    ColumnStyle GetFallback() const { return m_fallback; }
    void SetFallback(const ColumnStyle& style);
    /// The column that takes what is left; -1: none.
    void SetAdjustableColumn(int column);
    int GetAdjustableColumn() const { return m_adjustableColumn; }

    /// 0: as the highest child needs. Children fill rows that have a height of their own.
    void SetRowHeight(int row, int height);
    void SetAllRowHeights(int height);
    int RowHeightAt(int row) const { return m_rowHeights.value(row, m_allRowHeights); }
    /// Before a row.
    void SetRowSpacing(int row, int spacing);
    void SetAllRowSpacings(int spacing);
    int RowSpacingAt(int row) const { return m_rowSpacings.value(row, m_allRowSpacings); }
    /// All columns share the width evenly.
    void SetEven(bool even);
    bool IsEven() const { return m_even; }

    /// True when the child at `index` gets its width from its column.
    bool Stretches(int index) const;
    Qt::Alignment AlignmentAt(int index) const { return StyleAt(ColumnAt(index)).alignment; }

    /// Moves the child that stands at `from` to the cell `to`, both counted from 0.
    void Move(int from, int to);

    void addItem(QLayoutItem* item) override;
    int count() const override { return m_items.size(); }
    QLayoutItem* itemAt(int index) const override { return m_items.value(index); }
    QLayoutItem* takeAt(int index) override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    Qt::Orientations expandingDirections() const override { return {}; }
    void setGeometry(const QRect& rectangle) override;

private:
    struct Cell
    {
        QLayoutItem* item;
        int row;
        int column;
    };
    int ColumnAt(int index) const;
    QVector<Cell> Cells() const;
    QVector<int> Widths(const QVector<Cell>& cells, bool least) const;
    QVector<int> Heights(const QVector<Cell>& cells) const;
    QSize Total(bool least) const;
    void Share(int width, QVector<int>& widths) const;
    QRect PlaceIn(const QRect& cell, const Cell& child) const;

    QVector<QLayoutItem*> m_items;
    QHash<int, ColumnStyle> m_styles;
    QHash<int, int> m_rowHeights;
    QHash<int, int> m_rowSpacings;
    ColumnStyle m_fallback;
    int m_columnCount = 0;
    int m_rowCount = 0;
    int m_adjustableColumn = -1;
    int m_allRowHeights = 0;
    int m_allRowSpacings = 0;
    bool m_even = false;
};

} // namespace host::ui
