#pragma once

class QString;

/// `text` for a tool tip that shows it as it stands, tags and entities too. For names, paths and
/// messages, which come from files and programs.
QString ToolTipText(const QString& text);
