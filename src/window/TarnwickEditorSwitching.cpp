// Going from one code editor or group to another with keys.

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "window/TarnwickEditor.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>

namespace {

/// The step that an action of a pair stands for: forward for the first, back for the second.
int Step(const QObject* sender, const QAction* forward)
{
    return sender == forward ? 1 : -1;
}

} // namespace

void TarnwickEditor::GoToEditor()
{
    if (sender() == m_actions.nextEditor || sender() == m_actions.previousEditor)
        GoToNeighbour(Step(sender(), m_actions.nextEditor));
    else
        GoToUsedEditor(Step(sender(), m_actions.nextUsedEditor));
}

/// The tab beside the current one, on to the next group at the end of a row and round at the last.
void TarnwickEditor::GoToNeighbour(int step)
{
    QVector<QPair<int, int>> tabs; // group and tab
    int current = -1;
    for (int i = 0; i < m_groups.size(); ++i) {
        for (int tab = 0; tab < m_groups[i]->GetCount(); ++tab) {
            if (i == GetActiveCodeEditorGroupIndex() && tab == m_groups[i]->GetCurrentIndex())
                current = tabs.size();
            tabs.append({i, tab});
        }
    }
    if (current < 0)
        return;
    const QPair<int, int> target = tabs[(current + step + tabs.size()) % tabs.size()];
    SetActiveCodeEditor(target.first, target.second, true);
}

/// Through the group's editors in the order in which they were last used. That order stays as it
/// was when the first key was pressed until Ctrl is released, so that every editor can be reached.
void TarnwickEditor::GoToUsedEditor(int step)
{
    CodeEditorGroup* const group = GetActiveCodeEditorGroup();
    if (!group || group->GetCount() < 2)
        return;
    const QString current = group->GetFilePath(group->GetCurrentIndex());
    if (m_usedPaths.size() != group->GetCount() || !m_usedPaths.contains(current)) {
        m_usedPaths.clear();
        for (const CodeEditorProperties& properties : group->GetLastUsedEditors())
            m_usedPaths.append(properties.filePath);
        qApp->installEventFilter(this);
    }
    const int count = m_usedPaths.size();
    const int next = (m_usedPaths.indexOf(current) + step + count) % count;
    SetActiveCodeEditor(m_usedPaths[next]);
    // From a menu, or with keys that the user chose: one step at a time.
    if (!(QApplication::keyboardModifiers() & Qt::ControlModifier))
        EndUsedEditorWalk();
}

/// A walk ends when Ctrl goes up, wherever the focus is.
void TarnwickEditor::FollowUsedEditorWalk(const QEvent& event)
{
    if (event.type() == QEvent::ApplicationDeactivate
        || (event.type() == QEvent::KeyRelease
            && static_cast<const QKeyEvent&>(event).key() == Qt::Key_Control))
        EndUsedEditorWalk();
}

void TarnwickEditor::EndUsedEditorWalk()
{
    m_usedPaths.clear();
    qApp->removeEventFilter(this);
}

void TarnwickEditor::GoToEditorGroup()
{
    const int step = Step(sender(), m_actions.nextEditorGroup);
    const int count = m_groups.size();
    int index = GetActiveCodeEditorGroupIndex();
    do
        index = (index + step + count) % count;
    while (m_groups[index]->GetCount() == 0 && index != GetActiveCodeEditorGroupIndex());
    SetActiveCodeEditor(index, m_groups[index]->GetCurrentIndex(), true);
}
