// Tabs and files that were dragged somewhere else.

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "window/GroupPlan.h"
#include "window/TarnwickEditor.h"

#include <QFileInfo>

#include <algorithm>

void TarnwickEditor::OnMoveTabRequested(
    int sourceId, int sourceIndex, int targetId, int targetIndex)
{
    CodeEditorGroup* const source = GetCodeEditorGroupByIndex(sourceId);
    CodeEditorGroup* const target = GetCodeEditorGroupByIndex(targetId);
    if (!source || !target || !source->GetCodeEditor(sourceIndex))
        return;
    const QString path = source->GetFilePath(sourceIndex);
    if (source == target)
        target->MoveCodeEditor(sourceIndex, targetIndex);
    else
        target->MoveCodeEditor(source, sourceIndex, targetIndex);
    FinishMove(path);
}

void TarnwickEditor::OnMoveTabToZoneRequested(
    int sourceId, int sourceIndex, int targetId, TabDropZone zone)
{
    CodeEditorGroup* const source = GetCodeEditorGroupByIndex(sourceId);
    CodeEditorGroup* const target = GetCodeEditorGroupByIndex(targetId);
    if (!source || !target || !source->GetCodeEditor(sourceIndex))
        return;
    const QString path = source->GetFilePath(sourceIndex);
    if (zone == TabDropZone::Center) {
        if (source != target)
            target->MoveCodeEditor(source, sourceIndex, -1);
        FinishMove(path);
        return;
    }
    QVector<int> counts = CountTabs();
    --counts[sourceId];
    const GroupPlan plan = PlanNewGroup(counts, targetId, zone);
    if (!plan.isPossible)
        return;
    CodeEditor* const editor = source->RemoveCodeEditor(sourceIndex);
    if (!editor)
        return;
    MoveGroupsAlong(plan);
    m_groups[plan.newGroup]->InsertCodeEditor(-1, editor);
    FinishMove(path);
}

/// The moved tab is the one that its user wants to see.
void TarnwickEditor::FinishMove(const QString& path)
{
    RefreshCodeEditorGroups(false);
    SetActiveCodeEditor(path);
    SaveState();
}

QVector<int> TarnwickEditor::CountTabs() const
{
    QVector<int> counts;
    for (const CodeEditorGroup* group : m_groups)
        counts.append(group->GetCount());
    return counts;
}

void TarnwickEditor::MoveGroupsAlong(const GroupPlan& plan)
{
    // Those that go up from the last one, those that go down from the first: each then finds its
    // new group empty.
    for (int group = m_groups.size() - 1; group >= 0; --group) {
        if (plan.targets[group] > group)
            MoveAllTabs(m_groups[group], m_groups[plan.targets[group]]);
    }
    for (int group = 0; group < m_groups.size(); ++group) {
        if (plan.targets[group] < group)
            MoveAllTabs(m_groups[group], m_groups[plan.targets[group]]);
    }
}

void TarnwickEditor::MoveAllTabs(CodeEditorGroup* source, CodeEditorGroup* target)
{
    const int current = source->GetCurrentIndex();
    const int scrollValue = source->GetTabBarScrollValue();
    const QList<CodeEditorProperties> used = source->GetLastUsedEditors();
    while (source->GetCount() > 0)
        target->MoveCodeEditor(source, 0, -1);
    {
        // Used once more in the same order, which is nobody else's business.
        const QSignalBlocker quiet(target);
        for (int i = used.size() - 1; i >= 0; --i)
            target->SetCurrentIndex(target->GetCodeEditorIndex(used[i].filePath));
    }
    target->SetCurrentIndex(current);
    target->SetTabBarScrollValue(scrollValue);
}

void TarnwickEditor::OnOpenFileRequested(int groupId, int index, const QString& path)
{
    CodeEditorGroup* const group = GetCodeEditorGroupByIndex(groupId);
    if (!group)
        return;
    const int tab = CreateCodeEditor(CodeEditorType::File, path, QString(), group, index);
    if (tab < 0)
        return;
    SetActiveCodeEditor(groupId, tab, true);
    SaveState();
}

void TarnwickEditor::OnOpenFilesRequested(int groupId, TabDropZone zone, const QStringList& paths)
{
    // No room is made for files that get no tab.
    const auto getsTab = [this](const QString& path) {
        return !CodeEditorExists(path) && QFileInfo(path).isReadable();
    };
    const bool needsRoom = std::any_of(paths.begin(), paths.end(), getsTab);
    const GroupPlan plan = needsRoom ? PlanNewGroup(CountTabs(), groupId, zone) : GroupPlan();
    if (plan.isPossible)
        MoveGroupsAlong(plan);
    const int target = plan.isPossible ? plan.newGroup : groupId;
    for (const QString& path : paths)
        OnOpenFileRequested(target, -1, path);
    RefreshCodeEditorGroups(false);
}
