#pragma once

#include <QRect>
#include <QString>
#include <QStringList>

/// The texts of commands, put together and taken apart without a host. Any thread.
namespace MelText {

/// `text` as it stands between the quotes of a MEL string: backslashes, line feeds and double
/// quotes escaped, and the paragraph separators of a text widget's selection as line feeds.
QString Escaped(const QString& text);

/// Whether the whole text is one variable's name and nothing else.
bool IsVariable(const QString& text);
/// A script that prints the variable's value and a line feed.
QString PrintVariable(const QString& variable);

/// Adds a button to the current shelf. The label stands as it is.
QString ScriptToShelf(const QString& label, const QString& script, bool isMel);

/// Gives a workspace control a place and size on the screen.
QString WorkspaceGeometry(const QRect& geometry, const QString& control);

/// Three texts for each flag that the host's help on a command lists: short name, long name, first
/// argument type. Empty when it is no such help.
QStringList FlagsOfHelp(const QString& help);

/// A module search path without the entries of the host's own standard library, each entry left
/// followed by the separator.
QString WithoutStandardLibrary(const QString& searchPath, const QString& separator);

} // namespace MelText
