#pragma once

#include "ui/workspace/ControlRecord.h"

#include <QMap>

namespace host::ui {

/// The layout of the main window as a file keeps it.
struct SavedWorkspace
{
    QVector<ControlRecord> controls;
    QMap<QString, FrameRecord> frames;
    QMap<DockSide, int> sideSizes; ///< width or height of a side area, pixels
    QRect windowGeometry; ///< invalid when unknown
    bool windowMaximized = false;
};

/// Reads a layout. An entry that makes no sense is left out and `problems` gets a sentence about
/// it; everything else is read. No files are touched.
SavedWorkspace ReadWorkspace(const QByteArray& text, QStringList& problems);
/// A Python function cannot be written down: such a script is left out.
QByteArray WriteWorkspace(const SavedWorkspace& workspace);

/// One control as text and back, for the command's state string.
QString WriteControlState(const ControlRecord& record);
/// False when the text is no such state; `record` is unchanged then. The name stays as it is.
bool ReadControlState(const QString& text, ControlRecord& record);

} // namespace host::ui
