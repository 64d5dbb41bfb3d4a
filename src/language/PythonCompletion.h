#pragma once

#include <QHash>
#include <QStringList>

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

/// The text with the statement at `line` (from 0) replaced by a definition that marks its place,
/// other functions at the top level without what is inside, and the imports behind.
QString SourceFor(const QString& text, int line, const QStringList& imports);

/// The names that stand in the code of `text`, each with the icon of what it is defined as or an
/// empty one. Attributes are left out, and so is `line` (from 0; -1: none).
QHash<QString, QString> NamesIn(const QString& text, int line);

/// The text as the inside of a Python literal in double quotes.
QString EscapedForPython(QString text);

} // namespace PythonCompletion
