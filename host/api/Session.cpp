#include "api/Session.h"

#include "api/PluginCommand.h"

#include <algorithm>

namespace host::api {

Session& Session::Current()
{
    static Session session;
    return session;
}

std::shared_ptr<PluginRecord> Session::AddPlugin(host::Plugin& plugin, const void* library)
{
    auto record = std::make_shared<PluginRecord>();
    record->plugin = &plugin;
    record->library = library;
    const QMutexLocker lock(&m_mutex);
    m_plugins.push_back(record);
    return record;
}

void Session::RemovePlugin(const host::Plugin& plugin)
{
    const QMutexLocker lock(&m_mutex);
    const auto isIt = [&](const auto& record) { return record->plugin == &plugin; };
    const auto found = std::find_if(m_plugins.begin(), m_plugins.end(), isIt);
    if (found == m_plugins.end())
        return;
    // Idle tasks and command records may still point to it.
    (*found)->plugin = nullptr;
    (*found)->commands.clear();
    m_plugins.erase(found);
}

std::shared_ptr<PluginRecord> Session::FindPlugin(const host::Plugin* plugin) const
{
    for (const auto& record : m_plugins) {
        if (plugin && record->plugin == plugin)
            return record;
    }
    return nullptr;
}

std::shared_ptr<PluginRecord> Session::FindLibrary(const void* library) const
{
    const QMutexLocker lock(&m_mutex);
    for (const auto& record : m_plugins) {
        if (library && record->library == library)
            return record;
    }
    return nullptr;
}

void Session::Clear()
{
    callbacks.Clear();
    uiTypes.clear();
    const QMutexLocker lock(&m_mutex);
    for (const auto& record : m_plugins) {
        for (const auto& command : record->commands)
            command->Retire();
        record->plugin = nullptr;
        record->commands.clear();
    }
    m_plugins.clear();
}

} // namespace host::api
