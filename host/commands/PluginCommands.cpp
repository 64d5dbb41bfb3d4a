#include "commands/PluginPreferences.h"
#include "commands/Tables.h"
#include "engine/Engine.h"

#include <QDir>

#include <algorithm>

namespace host::commands {

namespace {

Plugins& AllPlugins()
{
    return Engine::Current().plugins;
}

/// Every plug-in file along the search path, by name.
QStringList InstalledPlugins()
{
    QStringList names;
    for (const QString& folder : EnvironmentEntries("MAYA_PLUG_IN_PATH")) {
        const QStringList files
            = QDir(folder).entryList({QLatin1Char('*') + Plugins::LibrarySuffix(),
                                         QLatin1Char('*') + Plugins::ScriptSuffix()},
                QDir::Files, QDir::Name);
        for (const QString& file : files)
            names += Plugins::NameOf(file);
    }
    names.removeDuplicates();
    return names;
}

/// Adds and removes what is told of plug-ins; false when the call asks for neither.
bool ChangeCallbacks(const Call& call, QVector<Script>& callbacks)
{
    for (int use = 0; use < call.UseCount("addCallback"); ++use)
        callbacks += call.GetScript("addCallback", 0, use);
    if (call.Has("removeCallback")) {
        const QString removed = call.GetScript("removeCallback").Description();
        callbacks.erase(std::remove_if(callbacks.begin(), callbacks.end(),
                            [&](const Script& script) { return script.Description() == removed; }),
            callbacks.end());
    }
    return call.Has("addCallback") || call.Has("removeCallback");
}

Outcome LoadPlugin(Call& call)
{
    if (ChangeCallbacks(call, AllPlugins().loadCallbacks) && call.GetObjects().isEmpty())
        return {};
    const QStringList wanted = call.Has("allPlugins") ? InstalledPlugins() : call.ObjectTexts();
    if (wanted.isEmpty() && !call.Has("allPlugins"))
        return Error{QStringLiteral("loadPlugin needs the name of a plug-in.")};
    QStringList loaded;
    for (const QString& name : wanted) {
        bool already = false;
        const Outcome outcome = AllPlugins().Load(name, &already, call.Text("name"));
        if (!outcome.Ok())
            return outcome;
        if (!already) {
            loaded += outcome.GetValue().ToText();
        } else if (!call.Has("quiet")) {
            Engine::Current().output.Warning(
                QStringLiteral("Plug-in, \"%1\", is already loaded.").arg(name));
        }
    }
    return loaded;
}

Outcome UnloadPlugin(Call& call)
{
    if (!ChangeCallbacks(call, AllPlugins().unloadCallbacks) && call.GetObjects().isEmpty())
        return Error{QStringLiteral("unloadPlugin needs the name of a plug-in.")};
    QStringList unloaded;
    for (const QString& name : call.ObjectTexts()) {
        const Outcome outcome = AllPlugins().Unload(name, call.Has("force"));
        if (!outcome.Ok())
            return outcome;
        unloaded += outcome.GetValue().ToText();
    }
    return unloaded;
}

Outcome SetAutoload(const QString& name, bool on)
{
    if (name.isEmpty())
        return Error{QStringLiteral("pluginInfo needs the name of a plug-in.")};
    QStringList& autoload = AllPlugins().autoload;
    autoload.removeAll(Plugins::NameOf(name));
    if (on)
        autoload += Plugins::NameOf(name);
    const QString problem = WritePluginPreferences(Engine::Current());
    return problem.isEmpty() ? Outcome() : Outcome(Error{problem});
}

struct DetailRow
{
    const char* flag;
    Value (*value)(const Plugin&);
};

constexpr DetailRow DETAILS[] = {
    {"apiVersion", [](const Plugin& plugin) { return Value(plugin.apiVersion); }},
    {"command", [](const Plugin& plugin) { return Value(plugin.commands); }},
    {"name", [](const Plugin& plugin) { return Value(plugin.name); }},
    {"path", [](const Plugin& plugin) { return Value(plugin.path); }},
    {"unloadOk",
        [](const Plugin& plugin) {
            return Value(!plugin.unloading && AllPlugins().Obstacle(plugin).isNull());
        }},
    {"vendor", [](const Plugin& plugin) { return Value(plugin.vendor); }},
    {"version", [](const Plugin& plugin) { return Value(plugin.version); }},
};

/// Name and version of each, one behind the other.
QStringList PluginsInUse()
{
    QStringList used;
    for (const QString& name : AllPlugins().Names()) {
        const Plugin& plugin = *AllPlugins().Find(name);
        if (!AllPlugins().Obstacle(plugin).isNull())
            used << plugin.name << plugin.version;
    }
    return used;
}

Outcome QueryPlugin(const Call& call)
{
    const QString name = call.ObjectText();
    if (call.Has("listPlugins"))
        return AllPlugins().Names();
    if (call.Has("listPluginsPath")) {
        QStringList paths;
        for (const QString& loaded : AllPlugins().Names())
            paths += AllPlugins().Find(loaded)->path;
        return paths;
    }
    if (call.Has("activeFile"))
        return QString();
    if (call.Has("pluginsInUse"))
        return PluginsInUse();
    if (call.Has("autoload"))
        return AllPlugins().autoload.contains(Plugins::NameOf(name));
    const Plugin* plugin = AllPlugins().Find(name);
    if (call.Has("loaded") || call.Has("registered"))
        return plugin != nullptr;
    if (!plugin)
        return Error{QStringLiteral("Plug-in, \"%1\", is not loaded.").arg(name)};
    for (const DetailRow& row : DETAILS) {
        if (call.Has(row.flag))
            return row.value(*plugin);
    }
    return Error{QStringLiteral("pluginInfo: the query needs a flag.")};
}

Outcome PluginInfo(Call& call)
{
    if (call.IsQuery())
        return QueryPlugin(call);
    if (call.Has("autoload"))
        return SetAutoload(call.ObjectText(), call.Bool("autoload"));
    QString problem;
    if (call.Has("savePluginPrefs"))
        problem = WritePluginPreferences(Engine::Current());
    else if (call.Has("loadPluginPrefs"))
        problem = ReadPluginPreferences(Engine::Current());
    return problem.isEmpty() ? Outcome() : Outcome(Error{problem});
}

const CommandRow COMMANDS[] = {
    {"loadPlugin", "string[]", "", "[String...]",
        "addCallback/ac script cm; allPlugins/a - c;"
        "name/n str c; quiet/qt - c; removeCallback/rc script c",
        LoadPlugin},
    {"unloadPlugin", "string[]", "", "[String...]",
        "addCallback/ac script cm; force/f - c;"
        "removeCallback/rc script c",
        UnloadPlugin},
    {"pluginInfo", "any", "QE", "[String]",
        "activeFile/af - q; apiVersion/av - q; autoload/a B cqe; command/c str qm; listPlugins/ls "
        "- q; listPluginsPath/lsp - q; loadPluginPrefs/lpp - c; loaded/l - q; name/n str q;"
        "path/p str q; pluginsInUse/pu - q; registered/r - q; savePluginPrefs/spp - c;"
        "unloadOk/uo - q; vendor/vd str q; version/v - q",
        PluginInfo},
};

} // namespace

void RegisterPlugins(CommandRegistry& registry)
{
    registry.Register(COMMANDS);
}

} // namespace host::commands
