#pragma once

#include "engine/Script.h"

#include <QMap>
#include <QRect>
#include <QSize>

namespace host::ui {

/// The parts of the main window that hold docked panels as tabs.
enum class DockSide { Center, Left, Right, Top, Bottom };

/// "center", "left" ...; used in files and by the commands.
QString DockSideName(DockSide side);
/// False for a word that names no side.
bool ReadDockSide(const QString& name, DockSide& side);

/// What the host knows about a workspace control apart from its widget; this is what is saved.
struct ControlRecord
{
    QString name;
    QString label;
    bool floating = false;
    bool visible = true;
    bool collapsed = false;
    bool retain = true;
    bool checksPlugins = true;
    bool loadImmediately = false;
    DockSide side = DockSide::Center; ///< where it is, or goes back to, when docked
    int tabIndex = -1; ///< among the tabs of its side; -1 for the end
    bool current = false; ///< it was the front tab
    QSize initialSize; ///< pixels; a part of 0 or less: no wish
    QSize minimumSize;
    QStringList requiredPlugins;
    QStringList requiredControls;
    Script uiScript; ///< fills the panel when it is shown empty
    Script closeCommand;
    Script initCallback;
    /// Flags that are only kept and given back, by long name.
    QMap<QString, Value> others;
};

/// What `workspaceControlState` keeps under a name, whether or not there is such a control.
struct FrameRecord
{
    QRect geometry; ///< of the floating window on the screen; invalid parts are unset
    bool hasPosition = false;
    bool hasSize = false;
    bool maximized = false;
    QPoint defaultTopLeft; ///< x is the left edge
    QSize defaultSize;
};

} // namespace host::ui
