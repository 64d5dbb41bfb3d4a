#pragma once

#include "api/Callbacks.h"
#include "api/PluginRecord.h"

#include <QHash>

#include <vector>

namespace host::api {

/// Everything the API keeps between two calls. One per process; emptied when the plug-in loader
/// goes, which is when the engine does. Main thread only where nothing else is said.
class Session
{
public:
    static Session& Current();

    Callbacks callbacks;
    /// The commands that make the controls of plug-ins' types.
    QHash<QString, QString> uiTypes;

    std::shared_ptr<PluginRecord> AddPlugin(host::Plugin& plugin, const void* library);
    void RemovePlugin(const host::Plugin& plugin);
    /// Null when it is not loaded.
    std::shared_ptr<PluginRecord> FindPlugin(const host::Plugin* plugin) const;
    /// Any thread.
    std::shared_ptr<PluginRecord> FindLibrary(const void* library) const;

    void Clear();

private:
    Session() = default;

    mutable QMutex m_mutex; ///< guards the list, not what is in it
    std::vector<std::shared_ptr<PluginRecord>> m_plugins;
};

} // namespace host::api
