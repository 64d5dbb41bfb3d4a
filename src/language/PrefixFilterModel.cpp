#include "language/PrefixFilterModel.h"

void PrefixFilterModel::SetPrefix(const QString& prefix, Qt::CaseSensitivity caseSensitivity)
{
    m_prefix = prefix;
    setFilterCaseSensitivity(caseSensitivity);
    // Telling of every run of rows that comes or goes takes far longer than mapping all anew.
    invalidate();
    sort(caseSensitivity == Qt::CaseSensitive ? -1 : 0);
}

bool PrefixFilterModel::filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const
{
    const QModelIndex index = sourceModel()->index(sourceRow, 0, sourceParent);
    return index.data().toString().startsWith(m_prefix, filterCaseSensitivity());
}

bool PrefixFilterModel::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
    const bool leftMatches = left.data().toString().startsWith(m_prefix);
    const bool rightMatches = right.data().toString().startsWith(m_prefix);
    return leftMatches != rightMatches ? leftMatches : left.row() < right.row();
}
