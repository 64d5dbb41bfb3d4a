// Construction, life and events of the editor window.

#include "window/TarnwickEditor.h"

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "files/GuestTabs.h"
#include "files/RecoveryLeftovers.h"
#include "files/SessionLock.h"
#include "language/BaseParser.h"
#include "output/OutputTextEdit.h"
#include "plugin/MayaUtil.h"
#include "settings/Settings.h"
#include "views/SideBar.h"
#include "views/explorer/OpenEditorsView.h"
#include "views/goto/GoToWidget.h"
#include "views/search/SearchView.h"
#include "window/PanelGroup.h"
#include "window/RecoveryKeeper.h"
#include "window/chrome/StatusBar.h"
#include "window/chrome/TarnwickStyle.h"
#include "window/chrome/Theme.h"

#include <QApplication>
#include <QKeyEvent>
#include <QSplitterHandle>
#include <QStatusTipEvent>
#include <QVariantAnimation>

TarnwickEditor::TarnwickEditor(QWidget* parent)
    : QWidget(parent)
    , m_mainWindow(MayaUtil::GetMainWindow())
{
    setWindowTitle(Settings::APPLICATION_TITLE);
    InitializeForMaya();
    ApplyTheme();
    CreateActions();
    CreateMenus();
    CreateWidgets();
    CreateLayout();
    CreateConnections();
    ApplyPreferences();
    StartSession();
    RestoreCodeEditors();
    const bool isFresh = GetCodeEditorCount() == 0;
    if (isFresh) {
        NewMelBuffer();
        NewPythonBuffer();
    }
    SetActiveCodeEditorGroup(GetActiveCodeEditorGroup(), true);
    m_keyBindings.ReadUserKeyBindings();
    ShowBoundKeys();
    m_outputPanel->OutputAppendText(MayaUtil::GetExistingHistory());
    if (m_mainWindow)
        m_mainWindow->installEventFilter(this);
    m_isComplete = true;
    if (isFresh || !m_adoptedTabs.empty())
        SaveState();
    StartRecovery();
}

TarnwickEditor::~TarnwickEditor()
{
    // Editors that go with the window have not been closed.
    m_recovery.reset();
    if (m_mainWindow)
        m_mainWindow->removeEventFilter(this);
    // Children go after the members, so they must not need the style any more.
    setStyleSheet(QString());
    setStyle(nullptr);
    // Nothing of what follows may call back into a window that is half gone.
    disconnect(qApp, nullptr, this, nullptr);
    delete m_goTo; // takes its shadow along, a child of the window as well
    qDeleteAll(findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly));
}

void TarnwickEditor::InitializeForMaya()
{
    // 101 in the host's toolkit: no native windows for the widgets around this one.
    setAttribute(Qt::WA_DontCreateNativeAncestors);
    setAttribute(Qt::WA_StyledBackground);
    if (objectName().isEmpty())
        setObjectName(Settings::APPLICATION_NAME);
}

void TarnwickEditor::ApplyTheme()
{
    if (!m_style) {
        m_style = std::make_unique<TarnwickStyle>();
        setStyle(m_style.get());
    }
    // To set even the same sheet has every widget laid out anew.
    const QString sheet = Theme::StyleSheet();
    if (sheet != styleSheet())
        setStyleSheet(sheet);
}

void TarnwickEditor::ApplyPreferences()
{
    for (CodeEditorGroup* group : qAsConst(m_groups))
        group->UpdatePreferences();
    m_outputPanel->ApplyPreferences();
    m_sideBar->UpdatePreferences();
    RefreshCodeEditorGroups(false);
}

void TarnwickEditor::CreateConnections()
{
    using T = TarnwickEditor;
    for (CodeEditorGroup* group : qAsConst(m_groups))
        ConnectGroup(group);
    OutputTextEdit* const output = m_outputPanel->GetOutput();
    connect(m_outputPanel, &PanelGroup::EchoAllCommandsChanged, this, &T::OnEchoAllCommandsChanged);
    connect(m_outputPanel, &PanelGroup::WriteToFileUpdated, this, &T::OnWriteToFileUpdated);
    connect(m_outputPanel, &PanelGroup::HideRequested, this, &T::ToggleOutput);
    connect(output, &OutputTextEdit::IncreaseFontSizeRequested, this, &T::IncreaseOutputFontSize);
    connect(output, &OutputTextEdit::DecreaseFontSizeRequested, this, &T::DecreaseOutputFontSize);
    connect(m_sideBarSlide, &QVariantAnimation::valueChanged, this,
        [this](const QVariant& value) { SetSideBarExtent(value.toInt()); });
    connect(m_sideBarSlide, &QAbstractAnimation::finished, this, &T::FinishSideBarSlide);
    connect(m_activityBar, &ActivityBar::ItemPressed, this, &T::OnActivityPressed);
    connect(m_activityBar, &QWidget::customContextMenuRequested, this, &T::ShowActivityContextMenu);
    connect(m_statusBar, &StatusBar::CountsPressed, this, &T::GoToNextMessage);
    connect(m_statusBar, &StatusBar::PositionPressed, this, &T::GoToLine);
    connect(m_statusBar, &StatusBar::InfoPressed, this, &T::GoToMessageOfLine);
    connect(m_statusBar, &StatusBar::HideRequested, this, &T::ToggleStatusBar);
    connect(m_sideBar, &SideBar::PageChanged, this, &T::UpdateActivityBar);
    ConnectSideBar();
    ConnectSearch();
    // Automatic: at once from this thread, queued from any other.
    connect(this, &T::AppendToOutputRequested, this, &T::AppendToOutput);
    connect(qApp, &QApplication::focusChanged, this, &T::OnApplicationFocusChanged);
}

void TarnwickEditor::ConnectGroup(CodeEditorGroup* group)
{
    using G = CodeEditorGroup;
    using T = TarnwickEditor;
    static constexpr std::pair<void (G::*)(), void (T::*)()> SLOTS[] = {
        {&G::NewTabRequested, &T::OnNewTabRequested},
        {&G::CurrentTabChanged, &T::OnCurrentTabChanged},
        {&G::CursorPositionChanged, &T::UpdateCursorPosition},
        {&G::OverwriteModeChanged, &T::OnOverwriteModeChanged},
        {&G::ErrorAndWarningTextChanged, &T::UpdateStatusBarInfo},
        {&G::TabsChanged, &T::UpdateOpenEditors},
        {&G::ExecutePressed, &T::Execute},
        {&G::ExecuteAllPressed, &T::ExecuteAll},
        {&G::ExecuteLinePressed, &T::ExecuteLine},
        {&G::SaveScriptToShelfPressed, &T::SaveScriptToShelf},
        {&G::InsertPathRequested, &T::ShowInsertPathDialog},
        {&G::PythonDirRequested, &T::PythonDirSelection},
        {&G::PythonHelpRequested, &T::PythonHelpSelection},
        {&G::PythonUpdateModuleStateRequested, &T::PythonUpdateModuleState},
        {&G::PythonRevertModuleStateRequested, &T::PythonRevertModuleState},
        {&G::TogglePythonRevertModuleStateOnExecuteRequested,
            &T::OnTogglePythonRevertModuleStateOnExecuteRequested},
        {&G::IncreaseFontSizeRequested, &T::IncreaseCodeEditorFontSize},
        {&G::DecreaseFontSizeRequested, &T::DecreaseCodeEditorFontSize},
        {&G::MiniToolbarDisplayModified, &T::OnMiniToolbarDisplayModified},
    };
    for (const auto& row : SLOTS)
        connect(group, row.first, this, row.second);
    connect(group, &G::QuickHelpChanged, this, &T::OnQuickHelpChanged);
    connect(group, &G::ShowInSideBarRequested, this, &T::ShowInSideBar);
    // The outline is that of the group one works in.
    connect(group, &G::ParserUpdated, this, [this, group](BaseParser* parser) {
        if (group == GetActiveCodeEditorGroup())
            OnParserUpdated(parser);
    });
    static constexpr std::pair<void (G::*)(G*, int), void (T::*)(G*, int)> TAB_SLOTS[] = {
        {&G::CloseTabRequested, &T::OnCloseTabRequested},
        {&G::CloseOtherTabsRequested, &T::OnCloseOtherTabsRequested},
        {&G::CloseTabsToRightRequested, &T::OnCloseTabsToRightRequested},
        {&G::RenameRequested, &T::Rename},
    };
    for (const auto& row : TAB_SLOTS)
        connect(group, row.first, this, row.second);
    connect(group, &G::ReceivedFocus, this, &T::OnCodeEditorGroupReceivedFocus);
    connect(group, &G::FileChanged, this, &T::OnFileChanged);
    connect(group, &G::MoveTabRequested, this, &T::OnMoveTabRequested);
    connect(group, &G::MoveTabToZoneRequested, this, &T::OnMoveTabToZoneRequested);
    connect(group, &G::OpenFileRequested, this, &T::OnOpenFileRequested);
    connect(group, &G::OpenFilesRequested, this, &T::OnOpenFilesRequested);
}

void TarnwickEditor::Shutdown()
{
    disconnect(qApp, &QApplication::focusChanged, this, &TarnwickEditor::OnApplicationFocusChanged);
    m_isShuttingDown = true;
    SaveAll(true, Settings::saveAllOnExit);
    EndRecovery();
    EndGuestSession();
    WriteUserConfigs();
}

void TarnwickEditor::WriteUserConfigs()
{
    // The first buffers are made before the user's keys are read: nothing is complete yet.
    if (!m_isComplete)
        return;
    UpdateCodeEditorGroupDetails();
    m_sideBar->SaveOutline();
    m_sideBar->ClearInvalidDetailsFromOutline(GetCodeEditorPaths());
    SaveWindowGeometry(false);
    SaveSplitterState();
    ForgetUnchosenSizes();
    StoreConfiguration();
}

void TarnwickEditor::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    RestoreSplitterState();
    SyncActions();
    if (Settings::codeEditorVisible)
        FocusActiveCodeEditor();
    UpdateTitleBar();
    MayaUtil::UpdatePylintPythonPath();
    if (!m_pythonModuleStateUpdated) {
        // What was loaded before the window first appeared is the baseline; nobody is asked.
        MayaUtil::PythonUpdateModuleState();
        m_pythonModuleStateUpdated = true;
    }
    if (MayaUtil::EchoAllCommandsEnabled())
        MayaUtil::SetEchoAllCommandsEnabled(true);
}

void TarnwickEditor::hideEvent(QHideEvent* event)
{
    SaveWindowGeometry(true);
    SaveSplitterState();
    m_sizeWhenHidden = size();
    QWidget::hideEvent(event);
}

void TarnwickEditor::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Enter) {
        QWidget::keyPressEvent(event);
        return;
    }
    Execute();
    event->accept();
}

bool TarnwickEditor::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_mainWindow && event->type() == QEvent::Close && !MayHostClose()) {
        event->ignore();
        return true;
    }
    if (event->type() == QEvent::ChildPolished)
        OnMenuChildPolished(static_cast<QChildEvent*>(event)->child());
    if (event->type() == QEvent::Shortcut
        && RunAmbiguous(watched, *static_cast<QShortcutEvent*>(event)))
        return true;
    if (!m_usedPaths.isEmpty())
        FollowUsedEditorWalk(*event);
    if (const auto* handle = qobject_cast<QSplitterHandle*>(watched))
        OnSplitterHandleEvent(handle->splitter(), *event);
    return QWidget::eventFilter(watched, event);
}

bool TarnwickEditor::event(QEvent* event)
{
    if (event->type() == QEvent::ChildPolished)
        OnMenuChildPolished(static_cast<QChildEvent*>(event)->child());
    // Not accepted: the host's own help line shows the tip as well.
    if (event->type() == QEvent::StatusTip)
        m_statusBar->ShowTip(static_cast<QStatusTipEvent*>(event)->tip());
    return QWidget::event(event);
}

/// While the window is docked its shortcuts work only as long as the focus is inside it.
void TarnwickEditor::OnApplicationFocusChanged(QWidget*, QWidget* now)
{
    const bool wanted = MayaUtil::WorkspaceControlFloating() || IsTarnwickEditorWidget(now);
    if (wanted == m_bindingsEnabled)
        return;
    m_keyBindings.SetBindingsEnabled(wanted);
    m_bindingsEnabled = wanted;
}

bool TarnwickEditor::IsTarnwickEditorWidget(const QWidget* widget) const
{
    while (widget && widget != this)
        widget = widget->parentWidget();
    return widget != nullptr;
}

void TarnwickEditor::UpdateTitleBar()
{
    const CodeEditor* editor = GetActiveCodeEditor();
    MayaUtil::SetWorkspaceLabel(editor
            ? QStringLiteral("%1 - %2").arg(editor->GetLabel(), Settings::APPLICATION_TITLE)
            : QString(Settings::APPLICATION_TITLE));
}
