#pragma once

#include <QByteArray>
#include <QList>

/// Reads what QSplitter::saveState stored without letting it do more than give sizes: a stored
/// state may come from another interface scale or direction, or be no state at all.
class SplitterState
{
public:
    /// The sizes of `count` panes in pixels; empty unless `state` is that of a splitter of the
    /// given direction with as many panes, each with some extent.
    static QList<int> Sizes(const QByteArray& state, Qt::Orientation orientation, int count);
    /// The same state with its panes in the opposite order; empty when it is not a state.
    static QByteArray Reversed(const QByteArray& state);
};
