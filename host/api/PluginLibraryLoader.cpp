#include "api/PluginLibraryLoader.h"

#include "api/ApiAccess.h"
#include "api/Conversions.h"
#include "api/Guard.h"
#include "api/PluginCommand.h"
#include "api/PluginStep.h"
#include "api/Session.h"
#include "engine/Engine.h"

#include <dlfcn.h>

namespace host::api {

namespace {

using EntryPoint = MStatus (*)(MObject);

/// Names of an entry point in the file: as the compiler writes it, then plain.
struct EntryNames
{
    const char* mangled;
    const char* plain;
    const char* missing;
};

constexpr EntryNames INITIALIZE = {
    "_Z16initializePluginN8Autodesk4Maya16OpenMaya202400007MObjectE",
    "initializePlugin",
    "No initializePlugin() or initializePlugin2() function",
};
constexpr EntryNames UNINITIALIZE = {
    "_Z18uninitializePluginN8Autodesk4Maya16OpenMaya202400007MObjectE",
    "uninitializePlugin",
    "No uninitializePlugin() or uninitializePlugin2() function",
};

EntryPoint Find(void* library, const EntryNames& names)
{
    void* found = dlsym(library, names.mangled);
    if (!found)
        found = dlsym(library, names.plain);
    return reinterpret_cast<EntryPoint>(found);
}

QString LoaderText()
{
    const char* text = dlerror();
    return QString::fromLocal8Bit(text ? text : "");
}

/// Success of an entry point; what it threw counts as failure.
bool Call(EntryPoint entry, Plugin& plugin)
{
    MStatus status = MS::kFailure;
    CallGuarded(plugin.name, [&] { status = entry(ApiAccess::ObjectOf(&plugin)); });
    return !status.error();
}

Error InUse(const Plugin& plugin, const QString& reason)
{
    return {QStringLiteral("Plug-in, \"%1\", cannot be unloaded because it is still in use: %2.")
                .arg(plugin.name, reason)};
}

} // namespace

PluginLibraryLoader::PluginLibraryLoader(Engine& engine)
    : m_engine(engine)
{ }

PluginLibraryLoader::~PluginLibraryLoader()
{
    // The objects' code is still mapped now.
    m_engine.undoQueue.Clear();
    Session::Current().Clear();
}

Outcome PluginLibraryLoader::Load(Plugin& plugin)
{
    plugin.library = dlopen(plugin.path.toLocal8Bit().constData(), RTLD_NOW | RTLD_LOCAL);
    if (!plugin.library) {
        return Error{
            QStringLiteral("Unable to dynamically load : %1\n%2").arg(plugin.path, LoaderText())};
    }
    for (const EntryNames& names : {INITIALIZE, UNINITIALIZE}) {
        if (Find(plugin.library, names))
            continue;
        dlclose(plugin.library);
        return Error{QStringLiteral("%1 (%2)").arg(QLatin1String(names.missing), plugin.name)};
    }
    // The handle is what the loader calls the library by.
    const auto record = Session::Current().AddPlugin(plugin, plugin.library);
    const Outcome outcome = Initialize(plugin, record);
    if (!outcome.Ok()) {
        RemoveLeftovers(record);
        Close(plugin, record);
    }
    return outcome;
}

Outcome PluginLibraryLoader::Initialize(Plugin& plugin, const std::shared_ptr<PluginRecord>& record)
{
    const PluginScope inPlugin(record);
    if (!Call(Find(plugin.library, INITIALIZE), plugin))
        return Error{QStringLiteral("initializePlugin function failed (%1)").arg(plugin.name)};
    RunProcedure(record->creationProcedure);
    return {};
}

Outcome PluginLibraryLoader::Unload(Plugin& plugin, bool force)
{
    Session& session = Session::Current();
    const auto record = session.FindPlugin(&plugin);
    if (!record)
        return Error{QStringLiteral("Plug-in, \"%1\", is not loaded.").arg(plugin.name)};
    // Its code would be gone when the call returns, so that not even force helps.
    if (record->running > 0 || session.callbacks.IsRunning(record->library))
        return InUse(plugin, QStringLiteral("its code is running"));
    if (!force && HasSteps(*record))
        return InUse(plugin, QStringLiteral("its commands can still be undone"));
    const Outcome outcome = Uninitialize(plugin, record);
    if (!outcome.Ok() && !force)
        return outcome;
    for (const QString& leftover : RemoveLeftovers(record)) {
        m_engine.output.Warning(
            QStringLiteral("Plug-in, \"%1\", left behind %2; removed.").arg(plugin.name, leftover));
    }
    Close(plugin, record);
    return {};
}

Outcome PluginLibraryLoader::Uninitialize(
    Plugin& plugin, const std::shared_ptr<PluginRecord>& record)
{
    const PluginScope inPlugin(record);
    RunProcedure(record->deletionProcedure);
    if (!Call(Find(plugin.library, UNINITIALIZE), plugin))
        return Error{QStringLiteral("uninitializePlugin function failed (%1)").arg(plugin.name)};
    return {};
}

QStringList PluginLibraryLoader::RemoveLeftovers(const std::shared_ptr<PluginRecord>& record)
{
    Session& session = Session::Current();
    QStringList removed;
    RemoveSteps(*record);
    const auto commands = record->commands;
    for (const auto& command : commands) {
        command->Retire();
        m_engine.commands.Unregister(command->Name());
        removed += QStringLiteral("the command %1").arg(command->Name());
    }
    record->commands.clear();
    record->plugin->commands.clear();
    const int callbacks = session.callbacks.RemoveOf(record->library);
    if (callbacks > 0)
        removed += QStringLiteral("%1 callback(s)").arg(callbacks);
    return removed;
}

void PluginLibraryLoader::Close(Plugin& plugin, const std::shared_ptr<PluginRecord>& record)
{
    Session& session = Session::Current();
    session.RemovePlugin(plugin);
    if (session.callbacks.IsStuck(record->library)) {
        m_engine.output.Warning(
            QStringLiteral("Plug-in, \"%1\", stays in memory: a callback is still running.")
                .arg(plugin.name));
    } else {
        dlclose(plugin.library);
    }
    record->library = nullptr;
    plugin.library = nullptr;
}

void PluginLibraryLoader::RunProcedure(const QString& name)
{
    if (!name.isEmpty() && m_engine.mel)
        m_engine.Execute(Language::Mel, name + QStringLiteral("()"), false);
}

std::unique_ptr<PluginLoader> MakePluginLoader(Engine& engine)
{
    return std::make_unique<PluginLibraryLoader>(engine);
}

} // namespace host::api
