// Groups, editors and buffers of the editor window.

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "plugin/Logger.h"
#include "settings/Settings.h"
#include "views/SideBar.h"
#include "window/BufferFile.h"
#include "window/TarnwickEditor.h"

#include <QApplication>
#include <QFileInfo>

namespace {

struct BufferRow
{
    CodeEditorLanguage language;
    const char* fileName; ///< in the internal buffer folder
};

constexpr BufferRow BUFFERS[] = {
    {CodeEditorLanguage::Text, "textBuffer.txt"},
    {CodeEditorLanguage::Mel, "melBuffer.mel"},
    {CodeEditorLanguage::Python, "pythonBuffer.py"},
};

QString DefaultLabel(CodeEditorLanguage language)
{
    switch (language) {
    case CodeEditorLanguage::Mel: return Settings::defaultMelBufferLabel;
    case CodeEditorLanguage::Python: return Settings::defaultPythonBufferLabel;
    case CodeEditorLanguage::Text: break;
    }
    return Settings::defaultTextBufferLabel;
}

} // namespace

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
        = {type, language, path, label.isEmpty() ? DefaultLabel(language) : label};
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

QString TarnwickEditor::BufferPath(CodeEditorLanguage language) const
{
    return QStringLiteral("%1/%2").arg(Settings::GetInternalBufferDirectoryPath(),
        QLatin1String(BUFFERS[static_cast<int>(language)].fileName));
}

/// Opens the language's buffer with the text it had when the window was last shut down.
void TarnwickEditor::NewBuffer(CodeEditorLanguage language)
{
    CodeEditorGroup* const group = GetActiveCodeEditorGroup();
    const QString path = BufferPath(language);
    const int index = CreateCodeEditor(
        CodeEditorType::Buffer, language, path, QString(), BufferFile::Read(path), group, -1);
    if (index >= 0)
        group->SetCurrentIndex(index);
}

void TarnwickEditor::NewMelBuffer()
{
    NewBuffer(CodeEditorLanguage::Mel);
}

void TarnwickEditor::NewPythonBuffer()
{
    NewBuffer(CodeEditorLanguage::Python);
}

void TarnwickEditor::SaveAll(bool saveBuffers, bool saveFiles)
{
    for (int i = 0; i < m_groups.size(); ++i) {
        for (int tab = 0; tab < m_groups[i]->GetCount(); ++tab) {
            const bool buffer = m_groups[i]->GetType(tab) == CodeEditorType::Buffer;
            if (m_groups[i]->IsModified(tab) && (buffer ? saveBuffers : saveFiles))
                SaveCodeEditor(i, tab);
        }
    }
}

bool TarnwickEditor::SaveCodeEditor(int groupIndex, int tabIndex)
{
    CodeEditorGroup* const group = GetCodeEditorGroupByIndex(groupIndex);
    if (!group || !group->GetCodeEditor(tabIndex))
        return false;
    const QString path = group->GetFilePath(tabIndex);
    const QString text = group->GetText(tabIndex);
    const bool isBuffer = group->GetType(tabIndex) == CodeEditorType::Buffer;
    if (isBuffer ? !BufferFile::Write(path, text) : !SaveCodeEditor(path, text))
        return false;
    group->SetModified(tabIndex, false);
    return true;
}

void TarnwickEditor::OnCurrentTabChanged()
{
    OnActiveCodeEditorChanged();
}

void TarnwickEditor::OnCodeEditorGroupReceivedFocus(CodeEditorGroup* group)
{
    SetActiveCodeEditorGroup(group, false);
}

void TarnwickEditor::OnActiveCodeEditorChanged()
{
    UpdateOpenEditorsSelection();
    m_sideBar->SaveOutline();
    UpdateParser();
    UpdateInterpreter();
    UpdateCursorPosition();
    UpdateTitleBar();
    UpdateStatusBarInfo();
}
