#include "ui/commands/layouts/ColumnBox.h"

#include <QWidget>

#include <algorithm>

namespace host::ui {

namespace {

int NaturalHeight(const QLayoutItem* item)
{
    return item->sizeHint().expandedTo(item->minimumSize()).height();
}

int NaturalWidth(const QLayoutItem* item)
{
    return item->sizeHint().expandedTo(item->minimumSize()).width();
}

} // namespace

ColumnBox::ColumnBox(QWidget* parent)
    : QLayout(parent)
{
    setContentsMargins(0, 0, 0, 0);
}

ColumnBox::~ColumnBox()
{
    qDeleteAll(m_items);
}

void ColumnBox::SetColumnCount(int count)
{
    m_columnCount = qMax(0, count);
    invalidate();
}

void ColumnBox::SetRowCount(int count)
{
    m_rowCount = qMax(0, count);
    invalidate();
}

void ColumnBox::SetStyleAt(int column, const ColumnStyle& style)
{
    m_styles.insert(column, style);
    invalidate();
}

void ColumnBox::SetFallback(const ColumnStyle& style)
{
    m_fallback = style;
    invalidate();
}

void ColumnBox::SetAdjustableColumn(int column)
{
    m_adjustableColumn = column;
    invalidate();
}

void ColumnBox::SetRowHeight(int row, int height)
{
    m_rowHeights.insert(row, height);
    invalidate();
}

void ColumnBox::SetAllRowHeights(int height)
{
    m_allRowHeights = height;
    invalidate();
}

void ColumnBox::SetRowSpacing(int row, int spacing)
{
    m_rowSpacings.insert(row, spacing);
    invalidate();
}

void ColumnBox::SetAllRowSpacings(int spacing)
{
    m_allRowSpacings = spacing;
    invalidate();
}

void ColumnBox::SetEven(bool even)
{
    m_even = even;
    invalidate();
}

int ColumnBox::ColumnAt(int index) const
{
    if (m_rowCount > 0)
        return index / m_rowCount;
    return m_columnCount > 0 ? index % m_columnCount : index;
}

bool ColumnBox::Stretches(int index) const
{
    const int column = ColumnAt(index);
    const ColumnStyle style = StyleAt(column);
    return m_even || column == m_adjustableColumn || (style.width > 0 && !style.keepsWidth);
}

void ColumnBox::Move(int from, int to)
{
    if (from < 0 || from >= m_items.size())
        return;
    m_items.move(from, qBound(0, to, m_items.size() - 1));
    invalidate();
}

void ColumnBox::addItem(QLayoutItem* item)
{
    m_items += item;
}

QLayoutItem* ColumnBox::takeAt(int index)
{
    return index >= 0 && index < m_items.size() ? m_items.takeAt(index) : nullptr;
}

/// Hidden children leave no gap.
QVector<ColumnBox::Cell> ColumnBox::Cells() const
{
    QVector<Cell> cells;
    for (QLayoutItem* item : m_items) {
        if (item->isEmpty())
            continue;
        const int index = cells.size();
        if (m_rowCount > 0)
            cells += {item, index % m_rowCount, index / m_rowCount};
        else if (m_columnCount > 0)
            cells += {item, index / m_columnCount, index % m_columnCount};
        else
            cells += {item, 0, index};
    }
    return cells;
}

QVector<int> ColumnBox::Widths(const QVector<Cell>& cells, bool least) const
{
    QVector<int> widths;
    for (const Cell& cell : cells) {
        widths.resize(qMax(widths.size(), cell.column + 1));
        const ColumnStyle style = StyleAt(cell.column);
        const bool shrinks = least && (m_even || cell.column == m_adjustableColumn);
        const int natural = shrinks ? cell.item->minimumSize().width() : NaturalWidth(cell.item);
        const int needed = style.width > 0 && !shrinks
            ? style.width
            : natural + style.leftOffset + style.rightOffset;
        widths[cell.column] = qMax(widths[cell.column], needed);
    }
    return widths;
}

QVector<int> ColumnBox::Heights(const QVector<Cell>& cells) const
{
    QVector<int> heights;
    for (const Cell& cell : cells) {
        heights.resize(qMax(heights.size(), cell.row + 1));
        const int fixed = RowHeightAt(cell.row);
        heights[cell.row] = qMax(heights[cell.row], fixed > 0 ? fixed : NaturalHeight(cell.item));
    }
    return heights;
}

QSize ColumnBox::Total(bool least) const
{
    const QVector<Cell> cells = Cells();
    const QVector<int> widths = Widths(cells, least);
    const QVector<int> heights = Heights(cells);
    QSize size(0, 0);
    for (int column = 0; column < widths.size(); ++column)
        size.rwidth() += widths.at(column) + StyleAt(column).spacing;
    for (int row = 0; row < heights.size(); ++row)
        size.rheight() += heights.at(row) + RowSpacingAt(row);
    const QMargins margins = contentsMargins();
    return size + QSize(margins.left() + margins.right(), margins.top() + margins.bottom());
}

QSize ColumnBox::sizeHint() const
{
    return Total(false);
}

QSize ColumnBox::minimumSize() const
{
    return Total(true);
}

QRect ColumnBox::PlaceIn(const QRect& cell, const Cell& child) const
{
    const ColumnStyle style = StyleAt(child.column);
    const QRect room = cell.adjusted(style.leftOffset, 0, -style.rightOffset, 0);
    const QSize most = child.item->maximumSize();
    const int natural = NaturalWidth(child.item);
    int width = style.keepsWidth ? qMin(natural, room.width()) : room.width();
    width = qMax(0, qMin(width, most.width()));
    const bool fills
        = RowHeightAt(child.row) > 0 || (child.item->expandingDirections() & Qt::Vertical);
    int height = fills ? room.height() : qMin(room.height(), NaturalHeight(child.item));
    height = qMax(0, qMin(height, most.height()));
    QRect place(room.left(), room.top() + (room.height() - height) / 2, width, height);
    if (style.alignment & Qt::AlignRight)
        place.moveRight(room.right());
    else if (style.alignment & Qt::AlignHCenter)
        place.moveLeft(room.left() + (room.width() - width) / 2);
    return place;
}

void ColumnBox::Share(int width, QVector<int>& widths) const
{
    int spacings = 0;
    int natural = 0;
    for (int column = 0; column < widths.size(); ++column) {
        spacings += StyleAt(column).spacing;
        natural += widths.at(column);
    }
    if (m_even && !widths.isEmpty())
        widths.fill(qMax(0, width - spacings) / widths.size());
    else if (m_adjustableColumn >= 0 && m_adjustableColumn < widths.size())
        widths[m_adjustableColumn]
            = qMax(0, width - spacings - natural + widths.at(m_adjustableColumn));
}

void ColumnBox::setGeometry(const QRect& rectangle)
{
    QLayout::setGeometry(rectangle);
    const QRect room = contentsRect();
    const QVector<Cell> cells = Cells();
    QVector<int> widths = Widths(cells, false);
    QVector<int> heights = Heights(cells);
    Share(room.width(), widths);
    if (heights.size() == 1 && RowHeightAt(0) == 0)
        heights[0] = room.height();
    QVector<int> lefts;
    QVector<int> tops;
    int x = room.left();
    for (int column = 0; column < widths.size(); ++column) {
        x += StyleAt(column).spacing;
        lefts += x;
        x += widths.at(column);
    }
    int y = room.top();
    for (int row = 0; row < heights.size(); ++row) {
        y += RowSpacingAt(row);
        tops += y;
        y += heights.at(row);
    }
    for (const Cell& cell : cells) {
        const QRect place(
            lefts.at(cell.column), tops.at(cell.row), widths.at(cell.column), heights.at(cell.row));
        cell.item->setGeometry(PlaceIn(place, cell));
    }
}

} // namespace host::ui
