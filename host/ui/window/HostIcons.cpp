#include "ui/window/HostIcons.h"

#include "engine/Engine.h"

#include <QFileInfo>
#include <QHash>

namespace host::ui {

namespace {

const char* const SUFFIXES[] = {"", "_20", "_24", "_32", "_40", "_48", "_64"};

QIcon LoadIcon(const QString& name)
{
    const QString folder = Engine::Current().paths.InstallDirectory() + QLatin1String("/icons/");
    QIcon icon;
    for (const char* suffix : SUFFIXES) {
        const QString path = folder + name + QLatin1String(suffix) + QLatin1String(".png");
        // addFile remembers a missing file as a size of its own.
        if (QFileInfo::exists(path))
            icon.addFile(path);
    }
    return icon;
}

} // namespace

QIcon HostIcon(const QString& name)
{
    static QHash<QString, QIcon> icons;
    const auto known = icons.constFind(name);
    if (known != icons.constEnd())
        return *known;
    return *icons.insert(name, LoadIcon(name));
}

} // namespace host::ui
