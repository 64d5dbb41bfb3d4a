#include "api/PluginLibraryLoader.h"

#include "api/ApiAccess.h"
#include "api/Conversions.h"
#include "api/Guard.h"
#include "api/MenuItems.h"
#include "api/PluginCommand.h"
#include "api/PluginStep.h"
#include "api/Session.h"
#include "engine/Engine.h"

#include <QCoreApplication>
#include <QEvent>

#include <algorithm>
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

/// Calls a function as an event's handler is called, so that what the function deletes later goes
/// when it is done, and nothing that its callers are still busy with.
class DeletingCall : public QObject
{
public:
    explicit DeletingCall(std::function<void()> function)
        : m_function(std::move(function))
    { }

    void Run()
    {
        QEvent event(QEvent::User);
        if (QCoreApplication::instance())
            QCoreApplication::sendEvent(this, &event);
        else
            m_function();
    }

protected:
    bool event(QEvent*) override
    {
        m_function();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return true;
    }

private:
    const std::function<void()> m_function;
};

bool IsRunning(const PluginRecord& record)
{
    return record.running > 0 || Session::Current().callbacks.IsRunning(record.library);
}

/// Controls that the host's windows still know; others only wait for their end.
bool HasControls(const PluginRecord& record)
{
    const UserInterface* ui = Engine::Current().ui;
    return std::any_of(
        record.controls.begin(), record.controls.end(), [ui](const QPointer<QObject>& control) {
            return ui && control && !ui->FullName(control).isEmpty();
        });
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
    const QString obstacle = Obstacle(plugin);
    // Its code would be gone when the call returns, so that not even force helps.
    if (!obstacle.isNull() && (!force || IsRunning(*record)))
        return Plugins::InUse(plugin, obstacle);
    Outcome outcome;
    QStringList leftovers;
    // Widgets that the plug-in deletes have its code in their connections.
    DeletingCall([&] {
        outcome = Uninitialize(plugin, record);
        if (outcome.Ok() || force)
            leftovers = RemoveLeftovers(record);
    }).Run();
    if (!outcome.Ok() && !force)
        return outcome;
    for (const QString& leftover : qAsConst(leftovers)) {
        m_engine.output.Warning(
            QStringLiteral("Plug-in, \"%1\", left behind %2; removed.").arg(plugin.name, leftover));
    }
    Close(plugin, record);
    return {};
}

QString PluginLibraryLoader::Obstacle(const Plugin& plugin) const
{
    const auto record = Session::Current().FindPlugin(&plugin);
    if (record && IsRunning(*record))
        return QStringLiteral("its code is running");
    if (record && HasControls(*record))
        return QStringLiteral("its controls are open");
    if (record && HasSteps(*record))
        return QStringLiteral("its commands can still be undone");
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
    const QStringList menuItems = record->menuItems;
    for (const QString& item : menuItems)
        DeleteMenuItem(*record, item);
    for (const QString& type : qAsConst(record->uiTypes)) {
        m_engine.commands.Unregister(session.uiTypes.take(type));
        removed += QStringLiteral("the control type %1").arg(type);
    }
    record->uiTypes.clear();
    // Their code is about to go.
    for (const QPointer<QObject>& control : qAsConst(record->controls))
        delete control;
    record->controls.clear();
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
