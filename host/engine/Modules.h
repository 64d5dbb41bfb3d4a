#pragma once

#include <QStringList>

#include <vector>

namespace host {

class StartEnvironment;

/// A folder with plug-ins, scripts, icons and presets that a module file announces.
struct Module
{
    QString name;
    QString version;
    QString folder; ///< absolute
    QString file; ///< the module file, absolute
};

/// The modules that the host found when it started. Each is a block of a text file:
///
///     + MAYAVERSION:2024 PLATFORM:linux LOCALE:en_US NAME VERSION FOLDER
///     [r] plug-ins: folder
///     VARIABLE=value      += appends; := and +:= take a path in the module's folder
///
/// The block's folders join the search paths: what is in them is found, nothing is loaded. A block
/// that begins with "-" or names another host is passed over; of several blocks with one name the
/// first that fits counts. Belongs to the engine; main thread only.
class Modules
{
public:
    /// Reads the module files (*.mod) of these folders, in this order. Returns what is wrong with
    /// them, a text with file and line for each line that was passed over.
    QStringList Read(const QStringList& folders, StartEnvironment& environment);

    const std::vector<Module>& All() const { return m_modules; }
    /// Null when there is none of that name.
    const Module* Find(const QString& name) const;

private:
    std::vector<Module> m_modules;
};

} // namespace host
