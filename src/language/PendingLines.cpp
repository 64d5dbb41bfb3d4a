#include "language/PendingLines.h"

#include <algorithm>

void PendingLines::Add(const LineSpan& span)
{
    const auto place = std::lower_bound(m_spans.begin(), m_spans.end(), span.first,
        [](const LineSpan& other, int line) { return other.first < line; });
    m_spans.insert(place, span);
    QVector<LineSpan> joined;
    for (const LineSpan& next : qAsConst(m_spans)) {
        if (!joined.isEmpty() && next.first <= joined.last().end)
            joined.last().end = std::max(joined.last().end, next.end);
        else
            joined.append(next);
    }
    m_spans = joined;
}

void PendingLines::Shift(int line, int delta)
{
    const auto shifted
        = [line, delta](int old) { return old <= line ? old : std::max(line + 1, old + delta); };
    const QVector<LineSpan> spans = m_spans;
    m_spans.clear();
    for (const LineSpan& span : spans)
        Add({shifted(span.first), shifted(span.end)});
}
