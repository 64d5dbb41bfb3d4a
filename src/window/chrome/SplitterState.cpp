#include "window/chrome/SplitterState.h"

#include <QDataStream>

#include <algorithm>

namespace {

constexpr qint32 MAGIC = 0xff;
constexpr qint32 NEWEST_VERSION = 1;
constexpr int COUNT_OFFSET = 8; // bytes before the number of panes
constexpr int SIZES_OFFSET = 12;
constexpr int PANE_BYTES = 4;
constexpr int ORIENTATION_OFFSET = 6; // bytes between the last size and the direction
constexpr int LONGEST_EXTENT = 1 << 20; // pixels

qint32 IntegerAt(const QByteArray& state, int offset)
{
    qint32 value = 0;
    QDataStream(state.mid(offset, PANE_BYTES)) >> value;
    return value;
}

/// -1 when the bytes are not a state; the count has been held against their number.
int PaneCount(const QByteArray& state)
{
    if (IntegerAt(state, 0) != MAGIC || IntegerAt(state, PANE_BYTES) > NEWEST_VERSION)
        return -1;
    const qint32 count = IntegerAt(state, COUNT_OFFSET);
    const int room = (state.size() - SIZES_OFFSET) / PANE_BYTES;
    return count < 0 || count > room ? -1 : count;
}

} // namespace

QList<int> SplitterState::Sizes(const QByteArray& state, Qt::Orientation orientation, int count)
{
    const int end = SIZES_OFFSET + count * PANE_BYTES;
    if (PaneCount(state) != count || IntegerAt(state, end + ORIENTATION_OFFSET) != orientation)
        return {};
    QList<int> sizes;
    for (int offset = SIZES_OFFSET; offset < end; offset += PANE_BYTES)
        sizes.append(IntegerAt(state, offset));
    const auto isExtent = [](int size) { return size > 0 && size < LONGEST_EXTENT; };
    return std::all_of(sizes.cbegin(), sizes.cend(), isExtent) ? sizes : QList<int>();
}

QByteArray SplitterState::Reversed(const QByteArray& state)
{
    const int count = PaneCount(state);
    if (count < 0)
        return {};
    QByteArray reversed = state;
    for (int i = 0; i < count; ++i) {
        const QByteArray size = state.mid(SIZES_OFFSET + i * PANE_BYTES, PANE_BYTES);
        reversed.replace(SIZES_OFFSET + (count - 1 - i) * PANE_BYTES, PANE_BYTES, size);
    }
    return reversed;
}
