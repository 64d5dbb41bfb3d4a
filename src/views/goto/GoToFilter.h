#pragma once

#include "views/goto/FuzzyMatch.h"
#include "views/goto/GoToEntry.h"

#include <QVector>

/// Which entries of a list fit what was typed, and the best of them. Keeps the matches, so that a
/// text that only grew is sought among them alone, and a list that only grew is looked through from
/// its old end on. Does not keep the list. A value.
class GoToFilter
{
public:
    static constexpr int MAXIMUM_MATCHES = 200; ///< that are told

    /// Forgets everything; to be called when the list is another one.
    void Reset();
    void SetText(const QString& typed, const QVector<GoToEntry>& entries);
    /// More entries stand at the end of the list.
    void Extend(const QVector<GoToEntry>& entries);

    const FuzzyMatch::Pattern& GetPattern() const { return m_pattern; }
    /// Places in the list, the best first and equal ones in the list's order.
    QVector<int> GetBest() const;

private:
    struct Match
    {
        int entry = 0;
        int score = 0;
    };

    bool OnlyGrows(const QString& typed) const;
    void Add(int entry, const QVector<GoToEntry>& entries, QVector<Match>& matches) const;

    QString m_typed;
    FuzzyMatch::Pattern m_pattern{QString()};
    QVector<Match> m_matches; ///< in the list's order
    int m_seen = 0; ///< of the list
};
