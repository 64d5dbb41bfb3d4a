#pragma once

#include <QStringList>

class PythonSource;

/// What Python completion reads in the edited text before the host is asked. No widgets.
namespace PythonCompletion {

/// What stands left of the cursor.
struct Request
{
    bool isValid = false; ///< something could be offered here
    QString prefix; ///< of the name; may be empty behind a dot
    QString object; ///< whose attributes are wanted; empty for a name by itself
    bool isImport = false; ///< the object is the module of a "from" line
};

/// `before`: the line up to the cursor. What would have to be called, indexed or evaluated has no
/// attributes to offer.
Request RequestAt(const QString& before);

/// What the host is to be asked about `object`: its text, or of a long one what has to do with the
/// object, the statement at the source's line replaced by a definition that marks its place, and
/// the imports behind. `lineText` is what the line holds now. Empty when it is longer than `limit`
/// characters.
QString SourceFor(const PythonSource& source, const QString& lineText, const QString& object,
    const QStringList& imports, int limit);

/// The text with the statement at `line` (from 0) replaced by the definition, and the imports.
QString MarkedSource(const QString& text, int line, const QStringList& imports);

/// The text as the inside of a Python literal in double quotes.
QString EscapedForPython(QString text);

} // namespace PythonCompletion
