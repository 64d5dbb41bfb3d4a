#include "editor/DropZones.h"

namespace {

// Parts of the area along the axis.
constexpr double BEFORE_END = 0.15;
constexpr double AFTER_START = 0.85;

} // namespace

DropTarget FindDropTarget(const QPoint& point, const QSize& area, Qt::Orientation axis, bool edges)
{
    const QRect whole(QPoint(0, 0), area);
    if (!whole.contains(point))
        return {};
    const bool vertical = axis == Qt::Vertical;
    const int extent = vertical ? area.height() : area.width();
    const int place = vertical ? point.y() : point.x();
    const int half = extent / 2;
    if (edges && place <= static_cast<int>(BEFORE_END * extent))
        return {TabDropZone::Before,
            vertical ? QRect(0, 0, area.width(), half) : QRect(0, 0, half, area.height())};
    if (edges && place >= static_cast<int>(AFTER_START * extent))
        return {TabDropZone::After,
            vertical ? whole.adjusted(0, half, 0, 0) : whole.adjusted(half, 0, 0, 0)};
    return {TabDropZone::Center, whole};
}
