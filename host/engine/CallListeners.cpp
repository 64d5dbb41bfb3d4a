#include "engine/CallListeners.h"

#include <algorithm>

namespace host {

int CallListeners::Add(Entry entry)
{
    entry.id = ++m_lastId;
    m_commandListeners += entry.command ? 1 : 0;
    m_entries += std::make_shared<const Entry>(std::move(entry));
    return m_lastId;
}

int CallListeners::AddForCommands(CommandListener listener)
{
    return Add({0, std::move(listener), {}});
}

int CallListeners::AddForCalls(CallListener listener)
{
    return Add({0, {}, std::move(listener)});
}

bool CallListeners::Remove(int id)
{
    const auto found = std::find_if(m_entries.begin(), m_entries.end(),
        [id](const EntryPointer& entry) { return entry->id == id; });
    if (found == m_entries.end())
        return false;
    m_commandListeners -= (*found)->command ? 1 : 0;
    m_entries.erase(found);
    return true;
}

void CallListeners::TellCommand(const QString& text)
{
    const QVector<EntryPointer> entries = m_entries;
    for (const EntryPointer& entry : entries) {
        if (entry->command && m_entries.contains(entry))
            entry->command(text);
    }
}

void CallListeners::TellCall(const CallNotice& notice)
{
    const QVector<EntryPointer> entries = m_entries;
    for (const EntryPointer& entry : entries) {
        if (entry->call && m_entries.contains(entry))
            entry->call(notice);
    }
}

CallScope::CallScope(CallListeners& listeners, const QString& name, CallNotice::Kind kind)
    : m_listeners(listeners)
{
    if (!listeners.HearsCalls())
        return;
    m_notice = {name, ++listeners.m_lastCall, true, kind};
    listeners.TellCall(m_notice);
}

CallScope::~CallScope()
{
    if (m_notice.number == 0)
        return;
    m_notice.begins = false;
    m_listeners.TellCall(m_notice);
}

} // namespace host
