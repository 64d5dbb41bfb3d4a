#include "ui/commands/layouts/FlowBox.h"

#include <QWidget>

namespace host::ui {

FlowBox::FlowBox(QWidget* parent)
    : QLayout(parent)
{
    setContentsMargins(0, 0, 0, 0);
    setSpacing(0);
}

FlowBox::~FlowBox()
{
    qDeleteAll(m_items);
}

void FlowBox::SetHorizontal(bool horizontal)
{
    m_horizontal = horizontal;
    invalidate();
}

void FlowBox::SetWrapping(bool wraps)
{
    m_wraps = wraps;
    invalidate();
}

QLayoutItem* FlowBox::takeAt(int index)
{
    return index >= 0 && index < m_items.size() ? m_items.takeAt(index) : nullptr;
}

QSize FlowBox::Arrange(const QRect& room, bool moves) const
{
    const int limit = m_horizontal ? room.width() : room.height();
    QSize needed;
    int along = 0;
    int across = 0;
    int thickness = 0;
    for (QLayoutItem* item : m_items) {
        if (item->isEmpty())
            continue;
        const QSize size = item->sizeHint().expandedTo(item->minimumSize());
        const int length = m_horizontal ? size.width() : size.height();
        if (m_wraps && along > 0 && along + length > limit) {
            across += thickness + spacing();
            along = 0;
            thickness = 0;
        }
        const QPoint place = m_horizontal ? QPoint(along, across) : QPoint(across, along);
        if (moves)
            item->setGeometry({room.topLeft() + place, size});
        needed = needed.expandedTo(QSize(place.x(), place.y()) + size);
        thickness = qMax(thickness, m_horizontal ? size.height() : size.width());
        along += length + spacing();
    }
    return needed;
}

int FlowBox::heightForWidth(int width) const
{
    return Arrange({0, 0, width, 0}, false).height();
}

QSize FlowBox::sizeHint() const
{
    return Arrange({0, 0, QWIDGETSIZE_MAX, QWIDGETSIZE_MAX}, false);
}

QSize FlowBox::minimumSize() const
{
    if (!m_wraps)
        return sizeHint();
    QSize largest;
    for (const QLayoutItem* item : m_items)
        largest = largest.expandedTo(item->minimumSize());
    return largest;
}

void FlowBox::setGeometry(const QRect& rectangle)
{
    QLayout::setGeometry(rectangle);
    Arrange(contentsRect(), true);
}

} // namespace host::ui
