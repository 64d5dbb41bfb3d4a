#pragma once

#include "engine/Plugins.h"

namespace host {
class Engine;
}

namespace host::api {

struct PluginRecord;

/// Opens plug-in files with the process's loader and calls their entry points. Owned by the
/// engine's Plugins; when it goes, so does all that the API kept for plug-ins. Plug-ins still
/// loaded then stay mapped and get no exit call, as the process is about to end. Main thread only.
class PluginLibraryLoader : public PluginLoader
{
public:
    explicit PluginLibraryLoader(Engine& engine);
    ~PluginLibraryLoader() override;

    Outcome Load(Plugin& plugin) override;
    Outcome Unload(Plugin& plugin, bool force) override;
    QString Obstacle(const Plugin& plugin) const override;

private:
    Outcome Initialize(Plugin& plugin, const std::shared_ptr<PluginRecord>& record);
    Outcome Uninitialize(Plugin& plugin, const std::shared_ptr<PluginRecord>& record);
    /// Removes what the plug-in registered and did not remove itself; says what that was.
    QStringList RemoveLeftovers(const std::shared_ptr<PluginRecord>& record);
    void Close(Plugin& plugin, const std::shared_ptr<PluginRecord>& record);
    void RunProcedure(const QString& name);

    Engine& m_engine;
};

/// The loader for `engine.plugins`.
std::unique_ptr<PluginLoader> MakePluginLoader(Engine& engine);

} // namespace host::api
