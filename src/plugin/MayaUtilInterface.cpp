// The host's windows: the workspace control, the menu, the shelf and the documentation.

#include "plugin/Logger.h"
#include "plugin/MayaUtil.h"
#include "plugin/MelText.h"
#include "settings/Settings.h"

#include <maya/MQtUtil.h>

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace {

/// Empty while the host's menu has no entry of ours.
QString mainMenuItem;
/// The host's script editor button while it opens this editor; empty otherwise.
QString overriddenButton;

/// In this mode the host leaves the scale to the desktop.
constexpr int SYSTEM_SCALE_MODE = 2;

QString ControlName()
{
    return Settings::APPLICATION_NAME + QStringLiteral("Window");
}

bool QueryControl(const QString& command)
{
    int answer = 0;
    return MayaUtil::ExecuteMelIntResult(command.arg(ControlName()), answer) && answer != 0;
}

/// Whether a person can get hold of a window there: screens come and go between two sessions.
bool IsReachable(const QRect& geometry)
{
    const QSize least(100, 50); // pixels
    // Intersecting would turn the rectangle round.
    if (!geometry.isValid())
        return false;
    for (const QScreen* screen : QGuiApplication::screens()) {
        const QRect visible = screen->availableGeometry() & geometry;
        if (visible.width() >= least.width() && visible.height() >= least.height())
            return true;
    }
    return false;
}

QString CreationCommand()
{
    return QStringLiteral("workspaceControl -label \"%1\" -retain 1 -floating 1 -visible 0"
                          " -requiredPlugin %2 -checksPlugins 1 %3")
        .arg(Settings::APPLICATION_TITLE, Settings::APPLICATION_NAME, ControlName());
}

void EditButton(const QString& flag, const QString& value, const QString& failure)
{
    const QString command
        = QStringLiteral("symbolButton -e %1 \"%2\" %3").arg(flag, value, overriddenButton);
    if (!MayaUtil::ExecuteMel(command, false, false))
        Logger::Error(failure);
}

} // namespace

QWidget* MayaUtil::GetMainWindow()
{
    return MQtUtil::mainWindow();
}

QWidget* MayaUtil::GetWorkspaceControl()
{
    return MQtUtil::findControl(ToMString(ControlName()));
}

bool MayaUtil::WorkspaceControlExists()
{
    return QueryControl(QStringLiteral("workspaceControl -q -exists %1"));
}

bool MayaUtil::WorkspaceControlVisible()
{
    return QueryControl(QStringLiteral("workspaceControl -q -visible %1"));
}

bool MayaUtil::WorkspaceControlFloating()
{
    return QueryControl(QStringLiteral("workspaceControl -q -floating %1"));
}

bool MayaUtil::WorkspaceControlCollapsed()
{
    return QueryControl(QStringLiteral("workspaceControl -q -collapse %1"));
}

QWidget* MayaUtil::CreateWorkspaceControl()
{
    if (WorkspaceControlExists())
        return nullptr;
    ExecuteMel(CreationCommand(), false, false);
    if (!WorkspaceControlExists())
        return nullptr;
    // Only right now: the next command may make another layout the current parent.
    QWidget* const control = MQtUtil::getCurrentParent();
    if (IsReachable(Settings::windowGeometry))
        ExecuteMel(MelText::WorkspaceGeometry(Settings::windowGeometry, ControlName()));
    // Given at creation, the script would run at once.
    ExecuteMel(QStringLiteral("workspaceControl -e -uiScript %1 %2")
                   .arg(Settings::MEL_COMMAND, ControlName()));
    SetWorkspaceControlVisible(true);
    return control;
}

void MayaUtil::SetWorkspaceChild(QWidget* widget, QWidget* control)
{
    QWidget* const layout = control ? control : GetWorkspaceControl();
    MQtUtil::addWidgetToMayaLayout(widget, layout);
}

void MayaUtil::SetWorkspaceControlVisible(bool visible)
{
    const QString flag = visible ? QStringLiteral(" -restore") : QStringLiteral(" -visible 0");
    ExecuteMel(QStringLiteral("workspaceControl -e%1 %2").arg(flag, ControlName()));
}

void MayaUtil::SetWorkspaceLabel(const QString& title)
{
    const QString label = WorkspaceControlFloating() ? title : Settings::APPLICATION_TITLE;
    // A title holds file names, and those may hold quotes.
    ExecuteMel(QStringLiteral("workspaceControl -e -label \"%1\" %2")
                   .arg(MelText::Escaped(label), ControlName()));
}

void MayaUtil::UpdateWorkspaceControlGeometry()
{
    const QWidget* const control = GetWorkspaceControl();
    if (!control || !IsReachable(Settings::windowGeometry))
        return;
    QWidget* const window = control->window();
    if (window != GetMainWindow())
        window->setGeometry(Settings::windowGeometry);
}

void MayaUtil::CloseWorkspaceControl()
{
    if (!WorkspaceControlExists())
        return;
    SetWorkspaceControlVisible(false);
    ExecuteMel(QStringLiteral("workspaceControl -e -close %1").arg(ControlName()));
}

void MayaUtil::CreateMainMenuItem()
{
    if (!mainMenuItem.isEmpty())
        return;
    ExecuteMelStringResult(QStringLiteral("qhCreateTarnwickEditorMenuItem(\"%1\", \"%2\")")
                               .arg(Settings::APPLICATION_TITLE, Settings::MEL_COMMAND),
        mainMenuItem);
    if (mainMenuItem.isEmpty()) {
        Logger::Error(
            QStringLiteral("Failed to create '%1' menu item").arg(Settings::APPLICATION_TITLE));
    }
}

void MayaUtil::RemoveMainMenuItem()
{
    if (mainMenuItem.isEmpty())
        return;
    if (!ExecuteMel(QStringLiteral("deleteUI -mi %1").arg(mainMenuItem))) {
        Logger::Error(
            QStringLiteral("Failed to remove '%1' menu item").arg(Settings::APPLICATION_TITLE));
    }
    mainMenuItem.clear();
}

void MayaUtil::OverrideScriptEditorButton()
{
    if (!overriddenButton.isEmpty())
        return;
    ExecuteMelStringResult(QStringLiteral("qhGetScriptEditorButtonName()"), overriddenButton);
    if (overriddenButton.isEmpty()) {
        Logger::Error(QStringLiteral("Failed to identify Script Editor button"));
        return;
    }
    EditButton(QStringLiteral("-c"), Settings::MEL_COMMAND,
        QStringLiteral("Failed to override Script Editor button command"));
    EditButton(QStringLiteral("-ann"), Settings::APPLICATION_TITLE,
        QStringLiteral("Failed to override Script Editor button annotation"));
}

void MayaUtil::RestoreScriptEditorButton()
{
    if (overriddenButton.isEmpty())
        return;
    EditButton(QStringLiteral("-c"), QStringLiteral("ScriptEditor"),
        QStringLiteral("Failed to restore Script Editor button command"));
    EditButton(QStringLiteral("-ann"), QStringLiteral("Script Editor"),
        QStringLiteral("Failed to restore Script Editor button annotation"));
    overriddenButton.clear();
}

void MayaUtil::ShowHelp(const QString& topic)
{
    ExecuteMel(QStringLiteral("showHelp %1").arg(topic));
}

double MayaUtil::GetCustomScaleValue()
{
    int mode = SYSTEM_SCALE_MODE;
    double scale = 1.0;
    if (ExecuteMelIntResult(QStringLiteral("mayaDpiSetting -q -m;"), mode)
        && mode != SYSTEM_SCALE_MODE)
        ExecuteMelDoubleResult(QStringLiteral("mayaDpiSetting -q -rsv;"), scale);
    return scale;
}
