#pragma once

#include <QColor>
#include <QFont>

// How the console's text looks where only samples of it are shown.

/// The colour, or that of the console's plain text when it is invalid.
QColor ConsoleForeground(const QColor& color = {});
QColor ConsoleBackground(const QColor& color = {});

/// At the interface scale but without the console's zoom, which would not fit into rows.
QFont ConsoleFont();
