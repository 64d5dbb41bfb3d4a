#include "window/GroupPlan.h"

#include <climits>
#include <utility>

namespace {

/// The groups that have tabs, in order, with -1 where the new group goes.
QVector<int> WantedOrder(const QVector<int>& tabCounts, int target, TabDropZone zone)
{
    QVector<int> order;
    for (int group = 0; group < tabCounts.size(); ++group) {
        if (group == target && zone == TabDropZone::Before)
            order.append(-1);
        if (tabCounts[group] > 0)
            order.append(group);
        if (group == target && zone == TabDropZone::After)
            order.append(-1);
    }
    return order;
}

/// Walks every way to put the wanted order into the groups and keeps the one that moves least, and
/// that the shortest way.
class Search
{
public:
    Search(const QVector<int>& tabCounts, QVector<int> order)
        : m_tabCounts(tabCounts)
        , m_order(std::move(order))
    { }

    QVector<int> Run()
    {
        Place(0, 0, 0);
        return m_best;
    }

private:
    void Place(int next, int firstGroup, int moved)
    {
        if (moved >= m_leastMoved)
            return;
        if (next == m_order.size()) {
            m_leastMoved = moved;
            m_best = m_places;
            return;
        }
        const int groupsNeeded = m_order.size() - next;
        for (int group = firstGroup; group + groupsNeeded <= m_tabCounts.size(); ++group) {
            m_places.append(group);
            Place(next + 1, group + 1, moved + Cost(m_order[next], group));
            m_places.removeLast();
        }
    }

    int Cost(int mover, int group) const
    {
        return mover < 0 ? 0 : m_tabCounts[mover] * qAbs(group - mover);
    }

    const QVector<int>& m_tabCounts;
    QVector<int> m_order;
    QVector<int> m_places; ///< for each entry of the order its group
    QVector<int> m_best;
    int m_leastMoved = INT_MAX;
};

} // namespace

GroupPlan PlanNewGroup(const QVector<int>& tabCounts, int target, TabDropZone zone)
{
    GroupPlan plan;
    const QVector<int> order = WantedOrder(tabCounts, target, zone);
    if (!order.contains(-1))
        return plan;
    const QVector<int> places = Search(tabCounts, order).Run();
    if (places.isEmpty())
        return plan;
    plan.isPossible = true;
    for (int group = 0; group < tabCounts.size(); ++group)
        plan.targets.append(group);
    for (int i = 0; i < order.size(); ++i) {
        if (order[i] < 0)
            plan.newGroup = places[i];
        else
            plan.targets[order[i]] = places[i];
    }
    return plan;
}
