#pragma once

class QString;

// Texts for tool tips that show names, paths and messages as they stand, tags and entities too:
// these come from files and programs.

/// As short as it can be said: the toolkit keeps such a text on one line.
QString ToolTipText(const QString& text);
/// Keeps its lines; long ones are wrapped.
QString WrappedToolTipText(const QString& text);
/// Keeps its lines, however long.
QString ToolTipLines(const QString& text);
