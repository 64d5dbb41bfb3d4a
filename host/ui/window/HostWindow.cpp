#include "ui/window/HostWindow.h"

#include "commands/Session.h"
#include "engine/Engine.h"
#include "ui/model/InterfaceModel.h"
#include "ui/window/CommandLine.h"
#include "ui/window/HostColors.h"
#include "ui/window/HostIcons.h"
#include "ui/window/HostStyle.h"
#include "ui/window/Viewport.h"
#include "ui/workspace/FloatingWindow.h"
#include "ui/workspace/Workspace.h"
#include "ui/workspace/WorkspaceControls.h"
#include "ui/workspace/WorkspacePanel.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QFile>
#include <QLabel>
#include <QMenuBar>
#include <QPainter>
#include <QSaveFile>
#include <QScreen>
#include <QStatusBar>
#include <QUrl>
#include <QVBoxLayout>

namespace host::ui {

namespace {

const QString WINDOW_NAME = QStringLiteral("MayaWindow");
const QString SCRIPT_EDITOR_BUTTON = QStringLiteral("scriptEditorButton");
const QSize FIRST_SIZE(1600, 1000);
constexpr int MENU_BAR_HEIGHT = 26;
constexpr int SHELF_HEIGHT = 22 + 39;
constexpr int HELP_LINE_HEIGHT = 22;
constexpr int SAVE_DELAY_MS = 1000;
constexpr double REFERENCE_DPI = 96.0;
constexpr qint64 LARGEST_FILE = 16 * 1024 * 1024;

void SetBackground(QWidget* widget, const QColor& background, const QColor& text)
{
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Window, background);
    palette.setColor(QPalette::WindowText, text);
    widget->setPalette(palette);
    widget->setAutoFillBackground(true);
}

/// A groove under a part of the window.
QWidget* NewGroove(QWidget* parent)
{
    auto* groove = new QWidget(parent);
    groove->setFixedHeight(1);
    SetBackground(groove, colors::GROOVE, colors::TEXT);
    return groove;
}

} // namespace

HostWindow::HostWindow(Engine& engine, InterfaceModel& model)
    : m_engine(engine)
    , m_model(model)
{
    setWindowTitle(tr("Tarnwick Host - untitled scene"));
    setWindowIcon(HostIcon(QStringLiteral("tarnwick")));
    CreateWidgets();
    Element* element = model.Create(WindowKind, QStringLiteral("window"), WINDOW_NAME, nullptr);
    element->placeChild
        = [this](Element& child) { m_shelfArea->layout()->addWidget(child.GetWidget()); };
    element->SetWidget(this, m_shelfArea);
    m_controls = new WorkspaceControls(engine, model, *m_workspace, this);
    m_saveTimer.setSingleShot(true);
    m_saveTimer.setInterval(SAVE_DELAY_MS);
    connect(&m_saveTimer, &QTimer::timeout, this, &HostWindow::SaveWorkspace);
    connect(m_controls, &WorkspaceControls::Changed, &m_saveTimer,
        static_cast<void (QTimer::*)()>(&QTimer::start));
    qApp->installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this, &HostWindow::OnFocusChanged);
    const QRect screen = QApplication::primaryScreen()->availableGeometry();
    // The offscreen platform's screen is smaller than any real one.
    const bool offscreen = QGuiApplication::platformName() == QLatin1String("offscreen");
    resize(offscreen ? FIRST_SIZE : FIRST_SIZE.boundedTo(screen.size()));
    engine.ui = this;
}

HostWindow::~HostWindow()
{
    m_engine.ui = nullptr;
    qApp->removeEventFilter(this);
    // Parts that go after this would still move the focus.
    disconnect(qApp, nullptr, this, nullptr);
    // The controls look at the workspace until their end.
    delete m_controls;
}

void HostWindow::CreateWidgets()
{
    menuBar()->setNativeMenuBar(false);
    auto* sceneLabel = new QLabel(tr("untitled scene"));
    sceneLabel->setObjectName(QStringLiteral("sceneLabel"));
    sceneLabel->setContentsMargins(0, 0, 15, 0);
    sceneLabel->setMinimumHeight(MENU_BAR_HEIGHT);
    QPalette palette = sceneLabel->palette();
    for (const auto role : {QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(role, colors::TEXT_SOFT);
    sceneLabel->setPalette(palette);
    menuBar()->setCornerWidget(sceneLabel);
    auto* content = new QWidget(this);
    content->setObjectName(QStringLiteral("mainContent"));
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    m_shelfArea = new QWidget(content);
    m_shelfArea->setObjectName(QStringLiteral("shelfArea"));
    auto* shelfLayout = new QVBoxLayout(m_shelfArea);
    shelfLayout->setContentsMargins(0, 0, 0, 0);
    shelfLayout->setSpacing(0);
    m_shelfArea->setFixedHeight(SHELF_HEIGHT);
    SetBackground(m_shelfArea, colors::SHELF, colors::TEXT);
    m_workspace = new Workspace(content);
    auto* viewPanel = new WorkspacePanel(QStringLiteral("viewPanel"), m_workspace);
    m_viewport = new Viewport(viewPanel);
    viewPanel->layout()->addWidget(m_viewport);
    viewPanel->SetIcon(HostIcon(QStringLiteral("host_box")));
    viewPanel->SetLabel(tr("Viewport"));
    m_workspace->SetFixedPanel(viewPanel);
    m_commandLine = new CommandLine(m_engine, content);
    connect(m_commandLine, &CommandLine::ScriptEditorRequested, this,
        [this] { m_engine.Execute(Language::Mel, QStringLiteral("ScriptEditor"), false); });
    for (QWidget* part : {NewGroove(content), m_shelfArea, static_cast<QWidget*>(m_workspace),
             NewGroove(content), static_cast<QWidget*>(m_commandLine)}) {
        layout->addWidget(part, part == m_workspace ? 1 : 0);
    }
    setCentralWidget(content);
    statusBar()->setObjectName(QStringLiteral("helpLine"));
    statusBar()->setSizeGripEnabled(false);
    statusBar()->setFixedHeight(HELP_LINE_HEIGHT);
    SetBackground(statusBar(), colors::HELP_LINE, colors::HELP_TEXT);
}

/// A layout at the end of the help line, for the main progress bar; a name for the view.
void HostWindow::CreateElements()
{
    auto* area = new QWidget(statusBar());
    auto* row = new QHBoxLayout(area);
    row->setContentsMargins(0, 2, 8, 2);
    statusBar()->addPermanentWidget(area);
    Element* element = m_model.Create(
        LayoutKind, QStringLiteral("formLayout"), QStringLiteral("MainHelpLineLayout"), nullptr);
    element->SetWidget(area, area);
    m_model
        .Create(ControlKind, QStringLiteral("modelPanel"), QStringLiteral("modelPanel4"), nullptr)
        ->SetWidget(m_viewport);
}

void HostWindow::Build()
{
    CreateMenus();
    CreateElements();
    ApplyStoredSwitches();
    m_viewport->FollowScene();
    commands::Session::Current().drawView = [view = QPointer<Viewport>(m_viewport)](
                                                const QString& path, const QString& format) {
        return view
            && view->grab().save(path, format.isEmpty() ? nullptr : format.toLatin1().constData());
    };
    FollowSceneName();
    QFile script(QStringLiteral(":/host/mainWindow.mel"));
    if (script.open(QIODevice::ReadOnly))
        m_engine.Execute(Language::Mel, QString::fromUtf8(script.readAll()), false);
    // What is made next must not land in the last shelf.
    m_model.SetCurrentParent(nullptr);
    m_model.SetCurrentMenu(nullptr);
    commands::HelpRequests::Current().changed
        = [window = QPointer<HostWindow>(this)](const commands::HelpRequest& request) {
              if (window)
                  window->ShowHelpRequest(request);
          };
}

/// There are no pages of documentation here: the help line tells what would be opened.
void HostWindow::ShowHelpRequest(const commands::HelpRequest& request)
{
    const bool isAddress = request.kind == commands::HelpRequest::Kind::Address;
    if (isAddress && QDesktopServices::openUrl(QUrl(request.target)))
        return;
    statusBar()->showMessage(tr("Documentation: %1").arg(request.target));
}

// The layout

QString HostWindow::WorkspacePath() const
{
    return m_engine.paths.PreferencesDirectory() + QLatin1String("/workspaces.json");
}

void HostWindow::LoadWorkspace()
{
    QFile file(WorkspacePath());
    if (!file.exists())
        return;
    QStringList problems;
    if (!file.open(QIODevice::ReadOnly))
        problems += file.errorString();
    else if (file.size() > LARGEST_FILE)
        problems += tr("The file is too large.");
    const SavedWorkspace saved
        = problems.isEmpty() ? ReadWorkspace(file.readAll(), problems) : SavedWorkspace();
    for (const QString& problem : qAsConst(problems))
        m_engine.output.Warning(QStringLiteral("%1: %2").arg(file.fileName(), problem));
    const QRect screen = QApplication::primaryScreen()->virtualGeometry();
    if (saved.windowGeometry.isValid() && screen.intersects(saved.windowGeometry))
        setGeometry(saved.windowGeometry);
    if (saved.windowMaximized)
        setWindowState(Qt::WindowMaximized);
    m_controls->SetSaved(saved);
}

SavedWorkspace HostWindow::CaptureWorkspace() const
{
    SavedWorkspace workspace = m_controls->Capture();
    workspace.windowMaximized = isMaximized();
    const bool plain = !isMaximized() && !isFullScreen();
    workspace.windowGeometry = plain ? geometry() : normalGeometry();
    return workspace;
}

void HostWindow::FreezeWorkspace()
{
    m_frozenWorkspace = CaptureWorkspace();
    m_frozen = true;
    m_controls->Freeze();
    m_saveTimer.stop();
}

void HostWindow::SaveWorkspace()
{
    QSaveFile file(WorkspacePath());
    const QByteArray text = WriteWorkspace(m_frozen ? m_frozenWorkspace : CaptureWorkspace());
    const bool saved
        = file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit();
    if (!saved && !m_saveFailed) {
        m_engine.output.Warning(QStringLiteral("Cannot save the panels to \"%1\": %2.")
                                    .arg(file.fileName(), file.errorString()));
    }
    // Said once, not at every change.
    m_saveFailed = !saved;
}

QPixmap HostWindow::Grab()
{
    QPixmap picture = grab();
    QPainter painter(&picture);
    for (QWidget* window : findChildren<QWidget*>()) {
        if (window->isWindow() && window->isVisible())
            painter.drawPixmap(window->pos() - pos(), window->grab());
    }
    return picture;
}

// UserInterface

QWidget* HostWindow::MainWindow() const
{
    return const_cast<HostWindow*>(this);
}

QWidget* HostWindow::FindControl(const QString& name, const QWidget* ancestor) const
{
    return m_model.FindControl(name, ancestor);
}

QWidget* HostWindow::FindLayout(const QString& name, const QWidget* ancestor) const
{
    return m_model.FindLayout(name, ancestor);
}

QWidget* HostWindow::FindWindow(const QString& name) const
{
    return m_model.FindWindow(name);
}

QAction* HostWindow::FindMenuItem(const QString& name) const
{
    return m_model.FindMenuItem(name);
}

QString HostWindow::FullName(const QObject* object) const
{
    return m_model.FullName(object);
}

QWidget* HostWindow::CurrentParent() const
{
    return m_model.CurrentParent();
}

QString HostWindow::AddWidget(QWidget* control, QWidget* layout, const QString& type)
{
    return m_model.AddWidgetNamed(control, layout, type);
}

double HostWindow::ScaleFactor() const
{
    return qMax(1.0, screen()->logicalDotsPerInch() / REFERENCE_DPI) * HostStyle::GetScale();
}

// Events

void HostWindow::closeEvent(QCloseEvent* event)
{
    m_awaitsCloseEvent = false;
    // A filter may have ignored the event without keeping it from us.
    if (!event->isAccepted() || m_engine.RunningScripts() > 0) {
        event->ignore();
        return;
    }
    event->accept();
    Q_EMIT QuitAccepted();
}

void HostWindow::keyPressEvent(QKeyEvent* event)
{
    const commands::Hotkeys& hotkeys = commands::Session::Current().hotkeys;
    const commands::Hotkey hotkey
        = hotkeys.Find(commands::Hotkeys::KeyText(event->key(), event->modifiers()));
    if (event->isAutoRepeat())
        return QMainWindow::keyPressEvent(event);
    if (!hotkey.release.isEmpty())
        m_heldKeys.insert(event->key(), hotkey.release);
    if (!hotkeys.Run(hotkey.press))
        QMainWindow::keyPressEvent(event);
}

/// Only of keys that were pressed here: fields leave it to others that a key is let go.
void HostWindow::keyReleaseEvent(QKeyEvent* event)
{
    const QString release = event->isAutoRepeat() ? QString() : m_heldKeys.take(event->key());
    if (!commands::Session::Current().hotkeys.Run(release))
        QMainWindow::keyReleaseEvent(event);
}

void HostWindow::NoteCloseEvent()
{
    m_awaitsCloseEvent = true;
    QMetaObject::invokeMethod(
        this, [this] { m_awaitsCloseEvent = false; }, Qt::QueuedConnection);
}

void HostWindow::setVisible(bool visible)
{
    // A filter that eats the close event and leaves it accepted would hide the window for good.
    if (!visible && m_awaitsCloseEvent)
        return;
    QMainWindow::setVisible(visible);
}

void HostWindow::UpdateScriptEditorButton(QAbstractButton* button)
{
    const Element* element = m_model.FindExact(button);
    if (!element)
        return;
    const bool own
        = element->GetCallback(QStringLiteral("command")).text == QLatin1String("ScriptEditor");
    button->setIcon(HostIcon(
        own ? QStringLiteral("host_script_editor") : QStringLiteral("host_script_editor_taken")));
}

void HostWindow::PrepareWindow(QWidget* window)
{
    // Without a window manager nobody gives a window the keyboard when it appears or is clicked.
    const Qt::WindowType type = window->windowType();
    const bool wanted = type == Qt::Window || type == Qt::Dialog || type == Qt::Tool;
    if (wanted && !window->isActiveWindow() && !window->testAttribute(Qt::WA_ShowWithoutActivating))
        window->activateWindow();
}

bool HostWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Close && watched == this)
        NoteCloseEvent();
    // Whoever takes the button over gives it another annotation after another command.
    if (event->type() == QEvent::ToolTipChange && watched->objectName() == SCRIPT_EDITOR_BUTTON) {
        if (auto* button = qobject_cast<QAbstractButton*>(watched))
            UpdateScriptEditorButton(button);
    }
    const bool shown = event->type() == QEvent::Show;
    const bool pressed = event->type() == QEvent::MouseButtonPress;
    if ((shown || pressed) && watched->isWidgetType()) {
        auto* widget = static_cast<QWidget*>(watched);
        if (pressed)
            PrepareWindow(widget->window());
        else if (widget->isWindow())
            PrepareWindow(widget);
    }
    return QMainWindow::eventFilter(watched, event);
}

} // namespace host::ui
