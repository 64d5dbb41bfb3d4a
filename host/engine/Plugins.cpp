#include "engine/Plugins.h"

#include "engine/StartEnvironment.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace host {

namespace {

QString ExistingFile(const QString& path)
{
    for (const QString& suffix : {QString(), Plugins::LibrarySuffix(), Plugins::ScriptSuffix()}) {
        const QFileInfo candidate(path + suffix);
        if (candidate.isFile())
            return candidate.absoluteFilePath();
    }
    return {};
}

/// The suffix of a plug-in's file; empty for other files.
QString SuffixOf(const QString& path)
{
    for (const QString& suffix : {Plugins::LibrarySuffix(), Plugins::ScriptSuffix()}) {
        if (path.endsWith(suffix))
            return suffix;
    }
    return {};
}

const QString NO_LOADER = QStringLiteral("This host cannot load plug-ins.");

} // namespace

void Plugins::SetLoader(const QString& suffix, std::unique_ptr<PluginLoader> loader)
{
    m_loaders[suffix] = std::move(loader);
}

/// The loader of libraries says what is wrong with a file that is none.
PluginLoader* Plugins::LoaderOf(const QString& path) const
{
    const QString suffix = SuffixOf(path);
    const auto found = m_loaders.find(suffix.isEmpty() ? LibrarySuffix() : suffix);
    return found == m_loaders.end() ? nullptr : found->second.get();
}

QString Plugins::Obstacle(const Plugin& plugin) const
{
    const PluginLoader* loader = LoaderOf(plugin.path);
    return loader ? loader->Obstacle(plugin) : QString();
}

/// A text names a procedure; one that fails has shown why.
void Plugins::Tell(const QVector<Script>& callbacks, const QString& name)
{
    const QVector<Script> present = callbacks;
    for (const Script& callback : present) {
        const bool isMel = callback.language == Language::Mel && !callback.callable;
        const QString call = isMel ? QStringLiteral("%1 \"%2\"") : QStringLiteral("%1(\"%2\")");
        if (callback.callable)
            callback.Run({name});
        else
            Script{callback.language, call.arg(callback.text, name), nullptr}.Run();
    }
}

Plugin* Plugins::FindPath(const QString& path) const
{
    for (const auto& plugin : m_plugins) {
        if (plugin->path == path)
            return plugin.get();
    }
    return nullptr;
}

Error Plugins::InUse(const Plugin& plugin, const QString& reason)
{
    return {QStringLiteral("Plug-in, \"%1\", cannot be unloaded because it is still in use: %2.")
                .arg(plugin.name, reason)};
}

void Plugins::Forget(const Plugin* plugin)
{
    m_plugins.erase(std::remove_if(m_plugins.begin(), m_plugins.end(),
                        [&](const auto& other) { return other.get() == plugin; }),
        m_plugins.end());
}

QString Plugins::NameOf(const QString& path)
{
    const QFileInfo file(path);
    const bool bare = file.completeBaseName().isEmpty() || SuffixOf(path).isEmpty();
    return bare ? file.fileName() : file.completeBaseName();
}

QString Plugins::FindFile(const QString& nameOrPath)
{
    QStringList directories{QDir::currentPath()};
    if (nameOrPath.contains(QLatin1Char('/')))
        return ExistingFile(nameOrPath);
    directories += EnvironmentEntries("MAYA_PLUG_IN_PATH");
    for (const QString& directory : qAsConst(directories)) {
        const QString found = ExistingFile(QDir(directory).filePath(nameOrPath));
        if (!found.isEmpty())
            return found;
    }
    return {};
}

Plugin* Plugins::Find(const QString& nameOrPath) const
{
    for (const auto& plugin : m_plugins) {
        if (plugin->name == NameOf(nameOrPath) || plugin->path == nameOrPath)
            return plugin.get();
    }
    return nullptr;
}

QStringList Plugins::Names() const
{
    QStringList names;
    for (const auto& plugin : m_plugins)
        names += plugin->name;
    return names;
}

Outcome Plugins::Load(const QString& nameOrPath, bool* alreadyLoaded, const QString& wantedName)
{
    if (alreadyLoaded)
        *alreadyLoaded = false;
    const QString path = FindFile(nameOrPath);
    const Plugin* known = path.isEmpty() ? nullptr : FindPath(path);
    if (!known)
        known = Find(nameOrPath);
    if (known) {
        if (alreadyLoaded)
            *alreadyLoaded = true;
        return known->name;
    }
    if (path.isEmpty()) {
        return Error{
            QStringLiteral("Plug-in, \"%1\", was not found on MAYA_PLUG_IN_PATH.").arg(nameOrPath)};
    }
    PluginLoader* loader = LoaderOf(path);
    if (!loader)
        return Error{NO_LOADER};
    auto plugin = std::make_unique<Plugin>();
    plugin->path = path;
    plugin->name = wantedName.isEmpty() ? NameOf(path) : wantedName;
    Plugin& record = *plugin;
    // The entry point may ask for its own record, so it is listed before it runs.
    m_plugins.push_back(std::move(plugin));
    const Outcome outcome = loader->Load(record);
    if (!outcome.Ok()) {
        Forget(&record);
        return outcome;
    }
    const QString name = record.name;
    Tell(loadCallbacks, name);
    return name;
}

Outcome Plugins::Unload(const QString& name, bool force)
{
    Plugin* plugin = Find(name);
    if (!plugin)
        return Error{QStringLiteral("Plug-in, \"%1\", is not loaded.").arg(name)};
    if (plugin->unloading)
        return Error{QStringLiteral("Plug-in, \"%1\", is being unloaded already.").arg(name)};
    PluginLoader* loader = LoaderOf(plugin->path);
    if (!loader)
        return Error{NO_LOADER};
    plugin->unloading = true;
    if (force || loader->Obstacle(*plugin).isNull())
        Tell(unloadCallbacks, plugin->name);
    const Outcome outcome = loader->Unload(*plugin, force);
    plugin->unloading = false;
    if (!outcome.Ok())
        return outcome;
    const QString unloaded = plugin->name;
    Forget(plugin);
    return unloaded;
}

} // namespace host
