#include "language/LineRegions.h"

namespace {

bool IsEscaped(QStringView text, int position)
{
    int backslash = position;
    while (backslash > 0 && text.at(backslash - 1) == QLatin1Char('\\'))
        --backslash;
    return (position - backslash) % 2 != 0;
}

} // namespace

RegionScanner::RegionScanner(const QVector<MultiLineHighlightingRule>& rules)
    : m_rules(rules)
{
    for (const MultiLineHighlightingRule& rule : rules)
        m_startsRegion.at(uchar(rule.start.at(0).toLatin1())) = true;
}

int RegionScanner::Scan(QStringView text, int state, QVector<LineRegion>* regions) const
{
    int position = 0;
    int rule = state;
    bool opensHere = false;
    if (rule < 0 || rule >= m_rules.size()) {
        rule = FindRule(text, position);
        opensHere = true;
    }
    while (rule >= 0) {
        const MultiLineHighlightingRule& open = m_rules.at(rule);
        const int end = FindEnd(text, open, opensHere ? position + open.start.size() : position);
        const int regionEnd = end < 0 ? int(text.size()) : end;
        if (regions) {
            const bool isClosed = end >= 0 && !open.end.isEmpty();
            regions->append({position, regionEnd, rule, opensHere, isClosed});
        }
        if (end < 0) {
            const bool goesOn = !open.continuesWithBackslashOnly
                || (!text.isEmpty() && text.back() == QLatin1Char('\\'));
            return goesOn ? rule : NO_STATE;
        }
        position = end;
        rule = FindRule(text, position);
        opensHere = true;
    }
    return NO_STATE;
}

/// The rule whose region starts first at or after `position`, which is moved there.
int RegionScanner::FindRule(QStringView text, int& position) const
{
    for (; position < text.size(); ++position) {
        const ushort code = text.at(position).unicode();
        if (code >= m_startsRegion.size() || !m_startsRegion[code])
            continue;
        for (int rule = 0; rule < m_rules.size(); ++rule) {
            if (text.mid(position).startsWith(m_rules.at(rule).start))
                return rule;
        }
    }
    return NO_STATE;
}

/// Behind the end delimiter, -1 without one.
int RegionScanner::FindEnd(QStringView text, const MultiLineHighlightingRule& rule, int from) const
{
    if (rule.end.isEmpty())
        return int(text.size());
    const QChar first = rule.end.at(0);
    for (int at = from; at + rule.end.size() <= text.size(); ++at) {
        if (text.at(at) != first || !text.mid(at).startsWith(rule.end))
            continue;
        if (!rule.isEscapable || !IsEscaped(text, at))
            return at + rule.end.size();
    }
    return -1;
}
