#include "settings/pages/HomePath.h"

#include <QDir>

QString WithHomeFolder(const QString& path)
{
    const bool isInHome = path == QLatin1String("~") || path.startsWith(QLatin1String("~/"));
    return isInHome ? QDir::homePath() + path.mid(1) : path;
}
