#pragma once

#include "editor/TabDropZone.h"

#include <QVector>

/// How the tabs of the groups are to be moved along so that a new group finds its place.
struct GroupPlan
{
    bool isPossible = false;
    int newGroup = -1; ///< the group, empty then, that stands where the new one was asked for
    /// For each group the one that gets its tabs; itself where nothing moves.
    QVector<int> targets;
};

/// `tabCounts` are those of the groups in their order, the tab that is being dragged left out. The
/// new group goes directly before or after group `target`; groups with tabs keep their order, and
/// as few tabs as possible change their group. Not possible when every group has tabs, and for the
/// zones that ask for no new group.
GroupPlan PlanNewGroup(const QVector<int>& tabCounts, int target, TabDropZone zone);
