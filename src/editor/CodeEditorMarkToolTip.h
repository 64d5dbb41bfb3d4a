#pragma once

#include "editor/CodeEditorMarks.h"

#include <QString>

constexpr int MAXIMUM_TOOL_TIP_MARKS = 6;

enum class ToolTipRows { Plain, Numbered };

/// A tool tip with a row per mark: icon, the line's number (from 1) if wanted, and the message as
/// plain text. Empty without marks. `pixelRatio` is that of the screen.
QString MarkToolTip(const QVector<CodeEditorMark>& marks, ToolTipRows rows, double pixelRatio);
