// The side bar's views: what they are told, and what they ask for.

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "plugin/MayaUtil.h"
#include "views/OpenEditorsView.h"
#include "views/SideBar.h"
#include "window/TarnwickEditor.h"

#include <QApplication>
#include <QClipboard>

void TarnwickEditor::ConnectSideBar()
{
    using O = OpenEditorsView;
    using T = TarnwickEditor;
    connect(m_sideBar, &SideBar::HideRequested, this, [this] { SetSideBarVisible(false, true); });
    connect(m_sideBar, &SideBar::FocusEditorRequested, this, &T::FocusActiveCodeEditor);
    const O* const openEditors = m_sideBar->GetOpenEditors();
    connect(openEditors, &O::ActivateRequested, this,
        [this](const QString& path) { SetActiveCodeEditor(path); });
    connect(openEditors, &O::CopyPathRequested, this,
        [](const QString& path) { QApplication::clipboard()->setText(path); });
    connect(openEditors, &O::RevealRequested, this, &MayaUtil::RevealInFolder);
}

void TarnwickEditor::UpdateOpenEditors()
{
    QVector<OpenEditorsView::Editor> editors;
    for (int i = 0; i < m_groups.size(); ++i) {
        for (int tab = 0; tab < m_groups[i]->GetCount(); ++tab)
            editors.append({i, m_groups[i]->GetProperties(tab), m_groups[i]->IsModified(tab)});
    }
    m_sideBar->GetOpenEditors()->SetEditors(editors);
}

void TarnwickEditor::UpdateOpenEditorsSelection()
{
    const CodeEditor* const editor = GetActiveCodeEditor();
    m_sideBar->GetOpenEditors()->SelectEditor(editor ? editor->GetFilePath() : QString());
}
