#include "engine/CommandRegistry.h"

namespace host {

bool CommandRegistry::Register(std::unique_ptr<Command> command)
{
    if (Contains(command->GetName()))
        return false;
    const QString name = command->GetName();
    const QMutexLocker lock(&m_mutex);
    m_commands.insert(name, std::shared_ptr<const Command>(std::move(command)));
    return true;
}

bool CommandRegistry::RegisterFunction(std::unique_ptr<Function> function)
{
    if (Contains(function->name))
        return false;
    const QString name = function->name;
    m_functions.insert(name, std::shared_ptr<const Function>(std::move(function)));
    return true;
}

bool CommandRegistry::Unregister(const QString& name)
{
    std::shared_ptr<const Command>
        removed; // goes after the lock: what its handler keeps may need others
    const QMutexLocker lock(&m_mutex);
    removed = m_commands.take(name);
    return removed != nullptr;
}

std::shared_ptr<const Command> CommandRegistry::FindCommand(const QString& name) const
{
    return m_commands.value(name);
}

std::shared_ptr<const Command> CommandRegistry::FindCommandFromAnyThread(const QString& name) const
{
    const QMutexLocker lock(&m_mutex);
    return m_commands.value(name);
}

const Function* CommandRegistry::FindFunction(const QString& name) const
{
    const auto found = m_functions.constFind(name);
    return found == m_functions.constEnd() ? nullptr : found->get();
}

bool CommandRegistry::Contains(const QString& name) const
{
    return m_commands.contains(name) || m_functions.contains(name);
}

QStringList CommandRegistry::Names() const
{
    QStringList names = m_commands.keys() + m_functions.keys();
    names.sort();
    return names;
}

QStringList CommandRegistry::CommandNames() const
{
    QStringList names;
    {
        const QMutexLocker lock(&m_mutex);
        names = m_commands.keys();
    }
    names.sort();
    return names;
}

Outcome CommandRegistry::Run(ReadCall read)
{
    if (read.error)
        return *read.error;
    return read.call.GetCommand().handler(read.call);
}

} // namespace host
