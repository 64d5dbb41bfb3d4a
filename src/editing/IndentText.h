#pragma once

#include <QString>

struct EditingOptions;

/// White space at the start of a line, as a text of its own.

/// Each tab as the spaces up to its stop; the rest as it is.
QString TabsToSpaces(const QString& indent, int tabSize);
/// The spaces and tabs at its start as tabs as far as whole stops go, then spaces.
QString SpacesToTabs(const QString& indent, int tabSize);
QString IndentInStyle(const QString& indent, const EditingOptions& options);
/// In the editor's style, `steps` steps shorter; empty when it is not longer than these.
QString Dedented(const QString& indent, int steps, const EditingOptions& options);
