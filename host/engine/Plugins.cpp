#include "engine/Plugins.h"

#include "engine/StartEnvironment.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace host {

namespace {

const QString SUFFIX = QStringLiteral(".so");

QString ExistingFile(const QString& path)
{
    for (const QString& candidate : {path, QString(path + SUFFIX)}) {
        if (QFileInfo(candidate).isFile())
            return QFileInfo(candidate).absoluteFilePath();
    }
    return {};
}

const QString NO_LOADER = QStringLiteral("This host cannot load plug-ins.");

} // namespace

void Plugins::Forget(const Plugin* plugin)
{
    m_plugins.erase(std::remove_if(m_plugins.begin(), m_plugins.end(),
                        [&](const auto& other) { return other.get() == plugin; }),
        m_plugins.end());
}

QString Plugins::NameOf(const QString& path)
{
    return QFileInfo(path).completeBaseName().isEmpty() || !path.endsWith(SUFFIX)
        ? QFileInfo(path).fileName()
        : QFileInfo(path).completeBaseName();
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

Outcome Plugins::Load(const QString& nameOrPath, bool* alreadyLoaded)
{
    if (alreadyLoaded)
        *alreadyLoaded = false;
    if (const Plugin* plugin = Find(nameOrPath)) {
        if (alreadyLoaded)
            *alreadyLoaded = true;
        return plugin->name;
    }
    const QString path = FindFile(nameOrPath);
    if (path.isEmpty()) {
        return Error{
            QStringLiteral("Plug-in, \"%1\", was not found on MAYA_PLUG_IN_PATH.").arg(nameOrPath)};
    }
    if (!m_loader)
        return Error{NO_LOADER};
    auto plugin = std::make_unique<Plugin>();
    plugin->path = path;
    plugin->name = NameOf(path);
    Plugin& record = *plugin;
    // The entry point may ask for its own record, so it is listed before it runs.
    m_plugins.push_back(std::move(plugin));
    const Outcome outcome = m_loader->Load(record);
    if (!outcome.Ok()) {
        Forget(&record);
        return outcome;
    }
    return record.name;
}

Outcome Plugins::Unload(const QString& name, bool force)
{
    Plugin* plugin = Find(name);
    if (!plugin)
        return Error{QStringLiteral("Plug-in, \"%1\", is not loaded.").arg(name)};
    if (plugin->unloading)
        return Error{QStringLiteral("Plug-in, \"%1\", is being unloaded already.").arg(name)};
    plugin->unloading = true;
    const Outcome outcome = m_loader->Unload(*plugin, force);
    plugin->unloading = false;
    if (!outcome.Ok())
        return outcome;
    const QString unloaded = plugin->name;
    Forget(plugin);
    return unloaded;
}

} // namespace host
