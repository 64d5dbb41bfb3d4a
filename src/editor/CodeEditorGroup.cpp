// Editors and tabs of a code editor group; its tool bar is in CodeEditorGroupToolbar.cpp.

#include "editor/CodeEditorGroup.h"

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroupTabBar.h"
#include "editor/EmptyGroupHint.h"
#include "language/MelParser.h"
#include "language/PylintWorker.h"
#include "language/PythonParser.h"
#include "plugin/Logger.h"
#include "settings/Settings.h"
#include "window/chrome/FlatButton.h"

#include <QDir>
#include <QFileInfo>
#include <QStackedWidget>

#include <utility>

namespace {

constexpr char INSERT_FAILURE[]
    = "Failed to insert code editor. Tab and code editor count mismatch.";
constexpr char REMOVE_FAILURE[]
    = "Failed to remove code editor. Tab and code editor count mismatch.";
constexpr char DELETE_FAILURE[]
    = "Failed to delete code editor. Tab and code editor count mismatch.";

} // namespace

CodeEditorGroup::CodeEditorGroup(
    int id, KeyBindings* keyBindings, QAction* newBufferAction, QWidget* parent)
    : QWidget(parent)
    , m_id(id)
    , m_keyBindings(keyBindings)
    , m_melParser(std::make_unique<MelParser>())
    , m_pythonParser(std::make_unique<PythonParser>())
{
    setObjectName(QStringLiteral("codeEditorGroup%1").arg(id));
    setAccessibleName(tr("Editor group %1").arg(id + 1));
    CreateWidgets();
    CreateLayout();
    CreateFindReplace();
    CreateConnections();
    CreateWorkerThread();
    if (newBufferAction)
        m_emptyHint->addAction(newBufferAction);
    UpdatePreferences();
}

CodeEditorGroup::~CodeEditorGroup()
{
    DestroyWorkerThread();
}

int CodeEditorGroup::GetCount() const
{
    return m_stack->count();
}

int CodeEditorGroup::GetCurrentIndex() const
{
    return m_tabBar->GetCurrentIndex();
}

void CodeEditorGroup::SetCurrentIndex(int index)
{
    m_tabBar->SetCurrentIndex(index);
}

CodeEditor* CodeEditorGroup::GetCodeEditor(int index) const
{
    return qobject_cast<CodeEditor*>(m_stack->widget(index));
}

CodeEditor* CodeEditorGroup::GetCurrent() const
{
    return GetCodeEditor(GetCurrentIndex());
}

int CodeEditorGroup::GetCodeEditorIndex(const QString& path) const
{
    for (int i = 0; i < GetCount(); ++i) {
        if (GetCodeEditor(i)->GetFilePath() == path)
            return i;
    }
    return -1;
}

QList<CodeEditorProperties> CodeEditorGroup::GetAllProperties() const
{
    QList<CodeEditorProperties> all;
    for (int i = 0; i < GetCount(); ++i)
        all.append(GetProperties(i));
    return all;
}

QList<CodeEditorProperties> CodeEditorGroup::GetLastUsedEditors() const
{
    QList<CodeEditorProperties> ordered;
    for (const QString& path : m_lastUsedPaths) {
        const int index = GetCodeEditorIndex(path);
        if (index >= 0)
            ordered.append(GetProperties(index));
    }
    for (const CodeEditorProperties& properties : GetAllProperties()) {
        if (!m_lastUsedPaths.contains(properties.filePath))
            ordered.append(properties);
    }
    return ordered;
}

CodeEditorProperties CodeEditorGroup::GetProperties(int index) const
{
    CodeEditorProperties properties;
    if (const CodeEditor* editor = GetCodeEditor(index))
        editor->GetProperties(properties);
    return properties;
}

CodeEditorType CodeEditorGroup::GetType(int index) const
{
    return GetProperties(index).type;
}

CodeEditorLanguage CodeEditorGroup::GetLanguage(int index) const
{
    return GetProperties(index).language;
}

QString CodeEditorGroup::GetFilePath(int index) const
{
    return GetProperties(index).filePath;
}

QString CodeEditorGroup::GetLabel(int index) const
{
    return GetProperties(index).label;
}

QString CodeEditorGroup::GetText(int index) const
{
    const CodeEditor* editor = GetCodeEditor(index);
    return editor ? editor->GetText() : QString();
}

void CodeEditorGroup::SetText(int index, const QString& text)
{
    if (CodeEditor* editor = GetCodeEditor(index))
        editor->SetText(text);
}

QString CodeEditorGroup::GetSelectedTextForExecute(int index) const
{
    const CodeEditor* editor = GetCodeEditor(index);
    return editor ? editor->GetSelectedTextForExecute() : QString();
}

QString CodeEditorGroup::GetCurrentLineForExecute(int index) const
{
    const CodeEditor* editor = GetCodeEditor(index);
    return editor ? editor->GetCurrentLineForExecute() : QString();
}

bool CodeEditorGroup::IsModified(int index) const
{
    const CodeEditor* editor = GetCodeEditor(index);
    return editor && editor->IsModified();
}

void CodeEditorGroup::SetModified(int index, bool modified)
{
    if (CodeEditor* editor = GetCodeEditor(index))
        editor->SetModified(modified);
}

int CodeEditorGroup::GetCursorPosition(int index) const
{
    const CodeEditor* editor = GetCodeEditor(index);
    return editor ? editor->GetCursorPosition() : 0;
}

void CodeEditorGroup::SetCursorPosition(int index, int position)
{
    if (CodeEditor* editor = GetCodeEditor(index))
        editor->SetCursorPosition(position, false, false);
}

void CodeEditorGroup::SetCursorSelection(int index, int start, int end)
{
    if (CodeEditor* editor = GetCodeEditor(index))
        editor->SetCursorSelection(start, end);
}

int CodeEditorGroup::GetVerticalScrollBarValue(int index) const
{
    const CodeEditor* editor = GetCodeEditor(index);
    return editor ? editor->GetVerticalScrollBarValue() : 0;
}

void CodeEditorGroup::SetVerticalScrollBarValue(int index, int value)
{
    if (CodeEditor* editor = GetCodeEditor(index))
        editor->SetVerticalScrollBarValue(value);
}

int CodeEditorGroup::InsertCodeEditor(
    int index, const CodeEditorProperties& properties, const QString& text)
{
    auto* editor = new CodeEditor(properties, m_keyBindings, this);
    editor->SetText(text);
    editor->SetModified(false);
    const int place = InsertCodeEditor(index, editor);
    if (place < 0)
        delete editor;
    return place;
}

int CodeEditorGroup::InsertCodeEditor(int index, CodeEditor* editor)
{
    if (!CheckCounts(INSERT_FAILURE))
        return -1;
    const int place = index < 0 || index > GetCount() ? GetCount() : index;
    CodeEditorProperties properties;
    editor->GetProperties(properties);
    // The bar makes its first tab current at once, so the editor is there before it.
    m_stack->insertWidget(place, editor);
    // The Tab key comes here from the tool bar, not from all that is older than the editor.
    setTabOrder(m_openEditorsButton, editor);
    m_tabBar->InsertTab(place, properties.label);
    m_tabBar->SetTabType(place, properties.type);
    m_tabBar->SetTabLanguage(place, properties.language);
    SetTabLabel(place, properties.label, editor->IsModified(), properties.type);
    SetTabToolTip(place, properties);
    ConnectEditor(editor);
    m_emptyHint->hide();
    UpdateMiniToolbar();
    return place;
}

void CodeEditorGroup::ConnectEditor(CodeEditor* editor)
{
    using E = CodeEditor;
    using G = CodeEditorGroup;
    static constexpr std::pair<void (E::*)(), void (G::*)()> RELAYS[] = {
        {&E::ReceivedFocus, &G::OnCodeEditorReceivedFocus},
        {&E::OverwriteModeChanged, &G::OverwriteModeChanged},
        {&E::ErrorAndWarningTextChanged, &G::ErrorAndWarningTextChanged},
        {&E::EscapeKeyPressed, &G::CloseFindReplace},
        {&E::IncreaseFontSizeRequested, &G::IncreaseFontSizeRequested},
        {&E::DecreaseFontSizeRequested, &G::DecreaseFontSizeRequested},
        {&E::ExecuteRequested, &G::OnExecute},
        {&E::ExecuteAllRequested, &G::OnExecuteAll},
        {&E::ExecuteLineRequested, &G::OnExecuteLine},
        {&E::SaveScriptToShelfRequested, &G::SaveScriptToShelfPressed},
        {&E::InsertPathRequested, &G::InsertPathRequested},
        {&E::PythonDirRequested, &G::PythonDirRequested},
        {&E::PythonHelpRequested, &G::PythonHelpRequested},
        {&E::PythonUpdateModuleStateRequested, &G::PythonUpdateModuleStateRequested},
        {&E::PythonRevertModuleStateRequested, &G::PythonRevertModuleStateRequested},
        {&E::TogglePythonRevertModuleStateOnExecuteRequested,
            &G::TogglePythonRevertModuleStateOnExecuteRequested},
    };
    for (const auto& relay : RELAYS)
        connect(editor, relay.first, this, relay.second);
    connect(editor, &E::TextChanged, this, &G::OnTextChanged);
    connect(editor, &E::ModificationChanged, this, &G::OnModificationChanged);
    connect(editor, &E::FileChanged, this, &G::OnFileChanged);
    connect(editor, &E::QuickHelpChanged, this, &G::QuickHelpChanged);
    ConnectEditorSearch(editor);
    connect(editor, &QPlainTextEdit::cursorPositionChanged, this, &G::OnCursorPositionChanged);
    // The selection's length is part of what the status bar says about the cursor.
    connect(editor, &QPlainTextEdit::selectionChanged, this, &G::OnCursorPositionChanged);
}

CodeEditor* CodeEditorGroup::RemoveCodeEditor(int index)
{
    if (!CheckCounts(REMOVE_FAILURE))
        return nullptr;
    CodeEditor* editor = GetCodeEditor(index);
    if (!editor)
        return nullptr;
    if (editor == GetCurrent())
        LeaveSearch();
    disconnect(editor, nullptr, this, nullptr);
    m_stack->removeWidget(editor);
    m_tabBar->RemoveTab(index);
    m_lastUsedPaths.removeAll(editor->GetFilePath());
    editor->setParent(nullptr);
    m_emptyHint->setVisible(GetCount() == 0);
    UpdateMiniToolbar();
    Q_EMIT TabsChanged();
    return editor;
}

void CodeEditorGroup::DeleteCodeEditor(int index)
{
    if (CheckCounts(DELETE_FAILURE))
        delete RemoveCodeEditor(index);
}

void CodeEditorGroup::MoveCodeEditor(int from, int to)
{
    CodeEditor* const editor = GetCodeEditor(from);
    if (!editor || !GetCodeEditor(to) || from == to)
        return;
    // The stack would show a neighbour while the editor is out of it.
    setUpdatesEnabled(false);
    CodeEditor* const focused = GetCurrent() && GetCurrent()->hasFocus() ? GetCurrent() : nullptr;
    m_stack->removeWidget(editor);
    m_stack->insertWidget(to, editor);
    m_tabBar->MoveTab(from, to);
    m_stack->setCurrentIndex(m_tabBar->GetCurrentIndex());
    if (focused)
        focused->setFocus(Qt::OtherFocusReason);
    setUpdatesEnabled(true);
    Q_EMIT TabsChanged();
}

void CodeEditorGroup::MoveCodeEditor(CodeEditorGroup* source, int from, int to)
{
    if (!source || !CheckCounts(INSERT_FAILURE))
        return;
    CodeEditor* const editor = source->RemoveCodeEditor(from);
    if (editor)
        InsertCodeEditor(to, editor);
}

bool CodeEditorGroup::CheckCounts(const char* failure) const
{
    if (m_tabBar->GetCount() == m_stack->count())
        return true;
    Logger::Error(QString::fromLatin1(failure));
    return false;
}

void CodeEditorGroup::SetProperties(int index, const CodeEditorProperties& properties)
{
    CodeEditor* editor = GetCodeEditor(index);
    if (!editor)
        return;
    RenameLastUsedEditor(editor->GetFilePath(), properties.filePath);
    editor->SetProperties(properties, false);
    m_tabBar->SetTabType(index, properties.type);
    m_tabBar->SetTabLanguage(index, properties.language);
    SetTabLabel(index, properties.label, editor->IsModified(), properties.type);
    SetTabToolTip(index, properties);
}

void CodeEditorGroup::UpdateFilePath(
    const QString& oldPath, const QString& newPath, CodeEditorLanguage language)
{
    const int index = GetCodeEditorIndex(oldPath);
    if (index < 0)
        return;
    CodeEditorProperties properties = GetProperties(index);
    properties.filePath = newPath;
    properties.language = language;
    if (properties.type == CodeEditorType::File)
        properties.label = QFileInfo(newPath).fileName();
    SetProperties(index, properties);
}

void CodeEditorGroup::SetTabLabel(
    int index, const QString& label, bool modified, CodeEditorType type)
{
    m_tabBar->SetTabText(index, label);
    m_tabBar->SetTabType(index, type);
    m_tabBar->SetTabModified(index, modified && type == CodeEditorType::File);
    Q_EMIT TabsChanged();
}

void CodeEditorGroup::SetTabToolTip(int index, const CodeEditorProperties& properties)
{
    m_tabBar->SetTabToolTip(
        index, properties.type == CodeEditorType::File ? properties.filePath : properties.label);
    m_tabBar->SetTabDetail(index, QFileInfo(properties.filePath).dir().dirName());
}

int CodeEditorGroup::GetTabBarScrollValue() const
{
    return m_tabBar->GetScrollValue();
}

void CodeEditorGroup::SetTabBarScrollValue(int value)
{
    m_tabBar->SetScrollValue(value);
}

void CodeEditorGroup::FocusCurrentCodeEditor()
{
    if (CodeEditor* editor = GetCurrent())
        editor->setFocus(Qt::OtherFocusReason);
}

void CodeEditorGroup::OnCurrentTabChanged(int index)
{
    LeaveSearch();
    m_stack->setCurrentIndex(index);
    EnterSearch();
    UpdateLastUsedEditorOrder();
    Q_EMIT CurrentTabChanged();
}

void CodeEditorGroup::UpdateLastUsedEditorOrder()
{
    const CodeEditor* editor = GetCurrent();
    if (!editor)
        return;
    m_lastUsedPaths.removeAll(editor->GetFilePath());
    m_lastUsedPaths.prepend(editor->GetFilePath());
}

/// The editor keeps its place; what had the new path before gives its own up.
void CodeEditorGroup::RenameLastUsedEditor(const QString& oldPath, const QString& newPath)
{
    if (oldPath == newPath)
        return;
    m_lastUsedPaths.removeAll(newPath);
    const int used = m_lastUsedPaths.indexOf(oldPath);
    if (used >= 0)
        m_lastUsedPaths[used] = newPath;
}

void CodeEditorGroup::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    UpdateMiniToolbar();
    UpdateFindReplacePosition();
}

void CodeEditorGroup::OnModificationChanged(bool modified, CodeEditor* editor)
{
    const int index = m_stack->indexOf(editor);
    if (index >= 0)
        SetTabLabel(index, editor->GetLabel(), modified, editor->GetType());
}

void CodeEditorGroup::UpdateTextOptions()
{
    for (int i = 0; i < GetCount(); ++i)
        GetCodeEditor(i)->UpdateTextOptions();
}

void CodeEditorGroup::UpdateFontsAndColors()
{
    for (int i = 0; i < GetCount(); ++i)
        GetCodeEditor(i)->UpdateFontsAndColors();
    update();
}

void CodeEditorGroup::UpdateFont()
{
    for (int i = 0; i < GetCount(); ++i)
        GetCodeEditor(i)->UpdateFont();
}

void CodeEditorGroup::UpdateOverwriteMode()
{
    for (int i = 0; i < GetCount(); ++i)
        GetCodeEditor(i)->setOverwriteMode(Settings::overwriteEnabled);
}

void CodeEditorGroup::UpdatePreferences()
{
    UpdateFontsAndColors();
    UpdateTextOptions();
    UpdateKeyBindings();
    m_tabBar->parentWidget()->setVisible(Settings::showTabBar);
    m_tabBar->viewport()->update();
    SetMiniToolbarVisible(Settings::showTabBarMiniToolbar);
    UpdateFindReplacePosition();
    if (m_pylintWorker)
        m_pylintWorker->ResetErrors();
}
