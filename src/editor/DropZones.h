#pragma once

#include "editor/TabDropZone.h"

#include <QPoint>
#include <QRect>

/// What a drag at some place of a code editor group would do, and the area that shows it.
struct DropTarget
{
    TabDropZone zone = TabDropZone::NoZone;
    QRect overlay; ///< empty without a zone
};

/// `point` and the result are in an area of that size, in pixels. `axis` is the direction in which
/// the groups follow each other. Without `edges` everything is the middle.
DropTarget FindDropTarget(const QPoint& point, const QSize& area, Qt::Orientation axis, bool edges);
