#pragma once

#include <QStringList>

/// Imports that the user wants to be known in every Python source.
namespace PythonForcedImports {

struct Entries
{
    QStringList statements; ///< whole import statements
    QStringList rejected; ///< entries that are no imports
};

/// Entries are parted by commas or line breaks: "a.b", "a.b as c", or a whole import statement.
Entries Parse(const QString& option);

/// The statements of the option that run in the host, each tried once per session. Kept in
/// Settings::pythonParsedForcedImports; warns once of entries that are dropped.
QStringList Statements();

} // namespace PythonForcedImports
