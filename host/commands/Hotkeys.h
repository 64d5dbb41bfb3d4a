#pragma once

#include "engine/Script.h"

#include <QMap>
#include <QString>

namespace host {
class Engine;
}

namespace host::commands {

/// A text with a name, for hotkeys to run.
struct NamedCommand
{
    Script command;
    QString annotation;
};

/// What a hotkey runs: names of named or run-time commands; "" for nothing.
struct Hotkey
{
    QString press;
    QString release;
};

/// Keys and the named commands they run. Keys are written as the toolkit's portable texts, such as
/// "Ctrl+Shift+K". Kept in two scripts of the preferences that make them again. Owned by the
/// session; main thread only.
class Hotkeys
{
public:
    explicit Hotkeys(Engine& engine)
        : m_engine(engine)
    { }

    /// The portable text for a key as scripts name it ("k", "K" for a shifted one, "F5", "Page_Up",
    /// "space"); "" when there is no such key.
    static QString KeyText(const QString& name, Qt::KeyboardModifiers modifiers);
    /// The same for a key that was pressed.
    static QString KeyText(int key, Qt::KeyboardModifiers modifiers);

    const QMap<QString, NamedCommand>& NamedCommands() const { return m_commands; }
    void AddCommand(const QString& name, const NamedCommand& command);
    Hotkey Find(const QString& key) const { return m_keys.value(key); }
    /// A hotkey that runs nothing is forgotten.
    void Set(const QString& key, const Hotkey& hotkey);
    void Clear() { m_keys.clear(); }

    /// Runs the command of that name; false when there is none. Errors have been shown.
    bool Run(const QString& name) const;

    /// Runs the two scripts, if there are any. What cannot be read is kept beside them.
    void Read();
    /// Replaces each file as a whole or leaves it as it was. Empty on success. While the scripts
    /// are being read nothing is saved.
    QString Save() const;

private:
    QString CommandsPath() const;
    QString KeysPath() const;

    Engine& m_engine;
    QMap<QString, NamedCommand> m_commands;
    QMap<QString, Hotkey> m_keys;
    bool m_reading = false;
};

} // namespace host::commands
