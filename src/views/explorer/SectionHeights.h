#pragma once

#include <QVector>

/// How the sections of a column share its height. Free of widgets.
namespace SectionHeights {

struct Section
{
    bool expanded = true;
    int natural = 0; ///< height of all its rows; 0: takes a share of what is left
    double weight = 1.0; ///< of that share
};

/// One height per section, in pixels. A collapsed one has its header's height. A natural one has
/// its rows' as long as each sharing section keeps `minimum` below its header, and at least
/// `minimum` (or its rows) itself. Together they fill `extent` when a section takes a share and the
/// minimums allow it.
QVector<int> Distribute(int extent, int header, int minimum, const QVector<Section>& sections);

} // namespace SectionHeights
