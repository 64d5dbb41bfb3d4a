#pragma once

#include "engine/Call.h"
#include "engine/Function.h"

#include <QHash>
#include <QMutex>

#include <memory>

namespace host {

/// Every name that both languages can call: commands (with flags) and the MEL language's functions
/// (typed positional arguments). One name belongs to one of them. Main thread only.
class CommandRegistry
{
public:
    /// False when the name is taken.
    bool Register(std::unique_ptr<Command> command);
    /// Registers every row; `sharedFlags` (may be null) belong to each of them.
    template <size_t N>
    void Register(const CommandRow (&rows)[N], const char* sharedFlags = nullptr)
    {
        for (const CommandRow& row : rows)
            Register(std::make_unique<Command>(row, sharedFlags));
    }
    template <size_t N>
    void Register(const FunctionRow (&rows)[N])
    {
        for (const FunctionRow& row : rows)
            RegisterFunction(std::make_unique<Function>(row));
    }
    bool RegisterFunction(std::unique_ptr<Function> function);
    /// Removes a command. A call of it that is running keeps it alive to its end.
    bool Unregister(const QString& name);

    /// Null when there is none.
    std::shared_ptr<const Command> FindCommand(const QString& name) const;
    /// The same, from any thread.
    std::shared_ptr<const Command> FindCommandFromAnyThread(const QString& name) const;
    const Function* FindFunction(const QString& name) const;
    bool Contains(const QString& name) const;
    /// Sorted names of all commands and functions.
    QStringList Names() const;
    /// Any thread.
    QStringList CommandNames() const;

    /// Runs a call that was read for this command.
    static Outcome Run(ReadCall read);

private:
    /// Held by those who write, and by those who read on any thread.
    mutable QMutex m_mutex;
    QHash<QString, std::shared_ptr<const Command>> m_commands;
    QHash<QString, std::shared_ptr<const Function>> m_functions;
};

} // namespace host
