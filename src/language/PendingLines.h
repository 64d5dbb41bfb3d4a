#pragma once

#include <QVector>

/// Lines from `first` on whose states are not known to be right. All of [first, end) have to be
/// computed; behind that the first line whose state does not change ends the work.
struct LineSpan
{
    int first = 0;
    int end = 0;
};

/// The lines whose states wait to be carried on, kept valid while lines come and go.
class PendingLines
{
public:
    bool IsEmpty() const { return m_spans.isEmpty(); }
    /// The first of all; there must be one.
    LineSpan& First() { return m_spans.first(); }
    void Clear() { m_spans.clear(); }
    void Add(const LineSpan& span);
    void RemoveFirst() { m_spans.removeFirst(); }
    /// `delta` lines were added behind line `line`, or removed when it is negative.
    void Shift(int line, int delta);

private:
    QVector<LineSpan> m_spans; ///< by their first line, none touching another
};
