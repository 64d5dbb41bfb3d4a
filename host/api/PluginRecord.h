#pragma once

#include "engine/Plugins.h"

#include <QMap>
#include <QPointer>

namespace host::api {

class PluginCommand;

/// What the API knows of a loaded plug-in beyond the engine's own record. Main thread only.
struct PluginRecord
{
    host::Plugin* plugin = nullptr; ///< not owned; null once the plug-in is gone
    const void* library = nullptr; ///< as Callbacks::LibraryOf names it
    QMap<QString, std::shared_ptr<PluginCommand>> commands;
    /// Calls into the plug-in that are on the stack now: entry points, commands, idle tasks.
    int running = 0;
    /// MEL procedures to run after loading and before unloading; may be empty.
    QString creationProcedure;
    QString deletionProcedure;
    QStringList menuItems; ///< full names
    QStringList uiTypes; ///< types of controls it adds
    QVector<QPointer<QObject>> controls; ///< made by them, dead or alive
};

/// Held while the host calls into a plug-in, so that it is not unloaded under its own feet.
class PluginScope
{
public:
    /// `record` may be null: the host's own code needs no guard.
    explicit PluginScope(std::shared_ptr<PluginRecord> record)
        : m_record(std::move(record))
    {
        if (m_record)
            ++m_record->running;
    }
    ~PluginScope()
    {
        if (m_record)
            --m_record->running;
    }
    PluginScope(const PluginScope&) = delete;
    PluginScope& operator=(const PluginScope&) = delete;

private:
    std::shared_ptr<PluginRecord> m_record;
};

} // namespace host::api
