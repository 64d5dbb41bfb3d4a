// Groups, editors and buffers of the editor window.

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "plugin/Logger.h"
#include "settings/Settings.h"
#include "views/SideBar.h"
#include "window/TarnwickEditor.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>

int TarnwickEditor::GetCodeEditorGroupIndex(const CodeEditorGroup* group) const
{
    return m_groups.indexOf(const_cast<CodeEditorGroup*>(group));
}

CodeEditorGroup* TarnwickEditor::GetCodeEditorGroupByIndex(int index) const
{
    return m_groups.value(index, nullptr);
}

int TarnwickEditor::GetActiveCodeEditorGroupIndex() const
{
    return Settings::activeTabViewIndex;
}

CodeEditorGroup* TarnwickEditor::GetActiveCodeEditorGroup() const
{
    return GetCodeEditorGroupByIndex(GetActiveCodeEditorGroupIndex());
}

CodeEditor* TarnwickEditor::GetActiveCodeEditor() const
{
    const CodeEditorGroup* group = GetActiveCodeEditorGroup();
    return group ? group->GetCurrent() : nullptr;
}

CodeEditor* TarnwickEditor::GetCodeEditorWithFocus() const
{
    return qobject_cast<CodeEditor*>(QApplication::focusWidget());
}

CodeEditor* TarnwickEditor::GetCodeEditor(const QString& path) const
{
    const CodeEditorGroup* group = GetCodeEditorGroupByPath(path);
    return group ? group->GetCodeEditor(group->GetCodeEditorIndex(path)) : nullptr;
}

CodeEditor* TarnwickEditor::GetCodeEditor(const QString& path, bool openIfMissing)
{
    if (!openIfMissing || CodeEditorExists(path))
        return GetCodeEditor(path);
    // Open files are known by their clean paths.
    const QString clean = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    if (!CodeEditorExists(clean))
        OpenFile(clean, false);
    return GetCodeEditor(clean);
}

CodeEditorGroup* TarnwickEditor::GetCodeEditorGroupByPath(const QString& path) const
{
    for (CodeEditorGroup* group : m_groups) {
        if (group->CodeEditorExists(path))
            return group;
    }
    return nullptr;
}

int TarnwickEditor::GetCodeEditorIndex(const CodeEditorGroup* group, const QString& path) const
{
    return group ? group->GetCodeEditorIndex(path) : -1;
}

bool TarnwickEditor::CodeEditorExists(const QString& path) const
{
    return GetCodeEditorGroupByPath(path) != nullptr;
}

int TarnwickEditor::GetCodeEditorCount() const
{
    return GetCodeEditorPaths().size();
}

QStringList TarnwickEditor::GetCodeEditorPaths() const
{
    QStringList paths;
    for (const CodeEditorGroup* group : m_groups) {
        for (const CodeEditorProperties& properties : group->GetAllProperties())
            paths.append(properties.filePath);
    }
    return paths;
}

void TarnwickEditor::SetActiveCodeEditorGroup(CodeEditorGroup* group, bool force)
{
    const int index = GetCodeEditorGroupIndex(group);
    if (index == Settings::activeTabViewIndex && !force)
        return;
    Settings::activeTabViewIndex = index;
    RefreshCodeEditorGroups(false);
    OnActiveCodeEditorChanged();
}

void TarnwickEditor::SetActiveCodeEditor(int groupIndex, int tabIndex, bool focus)
{
    CodeEditorGroup* group = GetCodeEditorGroupByIndex(groupIndex);
    if (!group)
        return;
    group->SetCurrentIndex(tabIndex);
    SetActiveCodeEditorGroup(group, false);
    if (focus)
        group->FocusCurrentCodeEditor();
}

void TarnwickEditor::SetActiveCodeEditor(const QString& path)
{
    CodeEditorGroup* group = GetCodeEditorGroupByPath(path);
    SetActiveCodeEditor(GetCodeEditorGroupIndex(group), GetCodeEditorIndex(group, path), true);
}

void TarnwickEditor::FocusActiveCodeEditor()
{
    RefreshCodeEditorGroups(true);
}

int TarnwickEditor::CreateCodeEditor(CodeEditorType type, CodeEditorLanguage language,
    const QString& path, const QString& label, const QString& text, CodeEditorGroup* group,
    int index)
{
    if (CodeEditorExists(path)) {
        SetActiveCodeEditor(path);
        return -1;
    }
    if (!group) {
        Logger::Error(QStringLiteral("Failed to create code editor. Could not get active widget."));
        return -1;
    }
    const CodeEditorProperties properties
        = {type, language, path, label.isEmpty() ? DefaultBufferLabel(language) : label};
    const int place = group->InsertCodeEditor(index, properties, text);
    RefreshCodeEditorGroups(false);
    return place;
}

CodeEditorLanguage TarnwickEditor::GetLanguageFromFilename(const QFileInfo& info)
{
    const QString suffix = info.suffix().toLower();
    if (suffix == QLatin1String("py") || suffix == QLatin1String("pyw"))
        return CodeEditorLanguage::Python;
    // "pyi" stays plain text although the file dialogs list it with the Python files.
    return suffix == QLatin1String("mel") ? CodeEditorLanguage::Mel : CodeEditorLanguage::Text;
}

void TarnwickEditor::OnCurrentTabChanged()
{
    OnActiveCodeEditorChanged();
}

void TarnwickEditor::OnCodeEditorGroupReceivedFocus(CodeEditorGroup* group)
{
    SetActiveCodeEditorGroup(group, false);
    // Not now: a question would stand in the middle of the click that gave the focus.
    QMetaObject::invokeMethod(this, &TarnwickEditor::CheckForFileChanges, Qt::QueuedConnection);
}

/// In the group that was clicked.
void TarnwickEditor::OnNewTabRequested()
{
    SetActiveCodeEditorGroup(qobject_cast<CodeEditorGroup*>(sender()), false);
    NewBuffer();
}

/// Which buttons there are is one setting for all groups.
void TarnwickEditor::OnMiniToolbarDisplayModified()
{
    for (CodeEditorGroup* group : qAsConst(m_groups))
        group->SetMiniToolbarVisible(Settings::showTabBarMiniToolbar);
}

void TarnwickEditor::OnActiveCodeEditorChanged()
{
    NoteUsedEditor();
    UpdateOpenEditorsSelection();
    m_sideBar->SaveOutline();
    UpdateParser();
    UpdateInterpreter();
    UpdateTextFormat();
    UpdateCursorPosition();
    UpdateTitleBar();
    UpdateStatusBarInfo();
}
