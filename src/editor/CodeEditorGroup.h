#pragma once

#include "editor/CodeEditorProperties.h"

#include <QStringList>
#include <QWidget>

class CodeEditor;
class CodeEditorGroupTabBar;
class FlatButton;
class KeyBindings;
class QStackedWidget;
class QTimer;

/// One tabbed pane of code editors with its mini tool bar. Owned by the window; lives on the
/// interface thread; speaks to the window by signals. Invariant: tab i of the bar always shows
/// editor i of the stack; operations that would break it log an error and change nothing.
/// Operations on an index without an editor do nothing or give a neutral value.
class CodeEditorGroup : public QWidget
{
    Q_OBJECT

public:
    /// `id` is the group's index in the window and never changes; `keyBindings` is not owned.
    CodeEditorGroup(int id, KeyBindings* keyBindings, QWidget* parent);

    int GetId() const { return m_id; }
    int GetCount() const;
    int GetCurrentIndex() const;
    void SetCurrentIndex(int index);
    CodeEditor* GetCodeEditor(int index) const;
    CodeEditor* GetCurrent() const;
    bool CodeEditorExists(const QString& path) const { return GetCodeEditorIndex(path) >= 0; }
    /// -1 when no editor shows that path.
    int GetCodeEditorIndex(const QString& path) const;
    QList<CodeEditorProperties> GetAllProperties() const;
    /// Most recently used first; what was never current follows in tab order.
    QList<CodeEditorProperties> GetLastUsedEditors() const;

    // The editor's operations by tab index
    CodeEditorProperties GetProperties(int index) const;
    CodeEditorType GetType(int index) const;
    CodeEditorLanguage GetLanguage(int index) const;
    QString GetFilePath(int index) const;
    QString GetLabel(int index) const;
    QString GetText(int index) const;
    void SetText(int index, const QString& text);
    QString GetSelectedTextForExecute(int index) const;
    QString GetCurrentLineForExecute(int index) const;
    bool IsModified(int index) const;
    void SetModified(int index, bool modified);
    int GetCursorPosition(int index) const;
    void SetCursorPosition(int index, int position);
    void SetCursorSelection(int index, int start, int end);
    int GetVerticalScrollBarValue(int index) const;
    void SetVerticalScrollBarValue(int index, int value);

    // Editors. Inserting past the end appends; the place is returned, -1 on failure.
    int InsertCodeEditor(int index, const CodeEditorProperties& properties, const QString& text);
    int InsertCodeEditor(int index, CodeEditor* editor);
    /// Hands the editor back without deleting it; the caller owns it then. Null on failure.
    CodeEditor* RemoveCodeEditor(int index);
    void DeleteCodeEditor(int index);
    void SetProperties(int index, const CodeEditorProperties& properties);
    void SetTabLabel(int index, const QString& label, bool modified, CodeEditorType type);
    void SetTabToolTip(int index, const CodeEditorProperties& properties);
    int GetTabBarScrollValue() const;
    void SetTabBarScrollValue(int value);
    void FocusCurrentCodeEditor();

    // Re-reading the settings
    void UpdateTextOptions();
    void UpdateFontsAndColors();
    void UpdateFont();
    void UpdateOverwriteMode();
    void UpdateKeyBindings();
    void UpdatePreferences();

    /// Shows the tool bar when the settings want it.
    void SetMiniToolbarVisible(bool visible);
    /// Only the group that the user works in has the accent.
    void SetActive(bool active);

Q_SIGNALS:
    void CurrentTabChanged();
    void CursorPositionChanged();
    void OverwriteModeChanged();
    void ErrorAndWarningTextChanged();
    void ExecutePressed();
    void ExecuteAllPressed();
    void ExecuteLinePressed();
    void SaveScriptToShelfPressed();
    void PythonUpdateModuleStateRequested();
    void PythonRevertModuleStateRequested();
    void TogglePythonRevertModuleStateOnExecuteRequested();
    void MiniToolbarDisplayModified();
    void IncreaseFontSizeRequested();
    void DecreaseFontSizeRequested();
    void ReceivedFocus(CodeEditorGroup* group);
    void TextChanged(const QString& path, const QString& text);
    void FileChanged(const QString& path);
    /// An editor came, went, or is called or marked differently.
    void TabsChanged();

private Q_SLOTS:
    void OnCurrentTabChanged(int index);
    void OnCodeEditorReceivedFocus() { Q_EMIT ReceivedFocus(this); }
    void OnModificationChanged(bool modified, CodeEditor* editor);
    void ShowOpenCodeEditorContextMenu();
    void ShowMiniToolbarContextMenu(const QPoint& point);
    void UpdateMiniToolbar();

private:
    struct MiniButton;

    void CreateWidgets();
    void CreateLayout();
    void CreateConnections();
    void ConnectEditor(CodeEditor* editor);
    bool CheckCounts(const char* failure) const;
    void UpdateLastUsedEditorOrder();
    void ScrollTabs();
    void BeginScroll(int direction);
    static const MiniButton* MiniButtons();

    int m_id;
    KeyBindings* m_keyBindings; ///< not owned
    CodeEditorGroupTabBar* m_tabBar = nullptr;
    QStackedWidget* m_stack = nullptr;
    QWidget* m_miniToolbar = nullptr;
    FlatButton* m_scrollLeftButton = nullptr;
    FlatButton* m_scrollRightButton = nullptr;
    FlatButton* m_executeButton = nullptr;
    FlatButton* m_executeAllButton = nullptr;
    FlatButton* m_executeLineButton = nullptr;
    FlatButton* m_openEditorsButton = nullptr;
    QTimer* m_scrollTimer = nullptr;
    int m_scrollDirection = 0;
    QStringList m_lastUsedPaths; ///< most recent first
};
