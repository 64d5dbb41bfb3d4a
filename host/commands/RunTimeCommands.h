#pragma once

#include "engine/Script.h"

#include <QMap>
#include <QStringList>

namespace host {
class Engine;
}

namespace host::commands {

/// A command that a script made of a text.
struct RunTimeCommand
{
    Script command;
    /// What only menus and editors read, by flag name: "annotation", "category" ...
    QMap<QString, QString> texts;
    bool isDefault = false; ///< the host's own: not saved, not deleted
    bool showInHotkeyEditor = true;
};

/// The run-time commands by name. Each is in the engine's registry as well, so that MEL and Python
/// call it like any other. Owned by the session; main thread only.
class RunTimeCommands
{
public:
    explicit RunTimeCommands(Engine& engine)
        : m_engine(engine)
    { }

    bool Contains(const QString& name) const { return m_commands.contains(name); }
    const RunTimeCommand& Get(const QString& name) const { return *m_commands.constFind(name); }
    RunTimeCommand& Edit(const QString& name) { return m_commands[name]; }
    QStringList Names() const { return m_commands.keys(); }
    /// False when another command has the name.
    bool Add(const QString& name, const RunTimeCommand& command);
    void Remove(const QString& name);

    /// The file of the user's own commands: a script that makes them again.
    QString FilePath() const;
    /// Replaces the file as a whole or leaves it as it was. Empty on success.
    QString Save() const;

private:
    Engine& m_engine;
    QMap<QString, RunTimeCommand> m_commands;
};

} // namespace host::commands
