#include "views/goto/GoToFilter.h"

#include <algorithm>

void GoToFilter::Reset()
{
    *this = GoToFilter();
}

bool GoToFilter::OnlyGrows(const QString& typed) const
{
    return !m_pattern.IsEmpty() && typed.startsWith(m_typed);
}

void GoToFilter::SetText(const QString& typed, const QVector<GoToEntry>& entries)
{
    const bool narrows = OnlyGrows(typed);
    m_typed = typed;
    m_pattern = FuzzyMatch::Pattern(typed);
    if (!narrows) {
        m_matches.clear();
        m_seen = 0;
        Extend(entries);
        return;
    }
    QVector<Match> matches;
    for (const Match& match : qAsConst(m_matches))
        Add(match.entry, entries, matches);
    m_matches = matches;
    Extend(entries);
}

void GoToFilter::Extend(const QVector<GoToEntry>& entries)
{
    for (; m_seen < entries.size(); ++m_seen)
        Add(m_seen, entries, m_matches);
}

void GoToFilter::Add(int entry, const QVector<GoToEntry>& entries, QVector<Match>& matches) const
{
    const GoToEntry& candidate = entries[entry];
    if (m_pattern.IsEmpty() && candidate.onlyWhenTyped)
        return;
    const int score = FuzzyMatch::Score(m_pattern, candidate.text, candidate.nameStart);
    if (score != FuzzyMatch::NO_MATCH)
        matches.append({entry, score});
}

QVector<int> GoToFilter::GetBest() const
{
    QVector<Match> best = m_matches;
    const auto isBetter = [](const Match& left, const Match& right) {
        return left.score != right.score ? left.score > right.score : left.entry < right.entry;
    };
    const int count = std::min(best.size(), MAXIMUM_MATCHES);
    std::partial_sort(best.begin(), best.begin() + count, best.end(), isBetter);
    QVector<int> places(count);
    std::transform(best.begin(), best.begin() + count, places.begin(),
        [](const Match& match) { return match.entry; });
    return places;
}
