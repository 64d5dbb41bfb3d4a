#include "commands/PluginPreferences.h"

#include "commands/OpenFiles.h"
#include "engine/Engine.h"

#include <QDir>
#include <QRegularExpression>
#include <QSaveFile>

namespace host::commands {

namespace {

QString FilePath(const Engine& engine)
{
    return engine.paths.PreferencesDirectory() + QLatin1String("/pluginPrefs.mel");
}

} // namespace

QString ReadPluginPreferences(Engine& engine)
{
    QFile file(FilePath(engine));
    if (!file.exists())
        return {};
    if (!file.open(QIODevice::ReadOnly)) {
        return QStringLiteral("Cannot read preferences file \"%1\": %2.")
            .arg(file.fileName(), file.errorString());
    }
    // evalDeferred("autoLoadPlugin(\"\", \"NAME\", \"NAME\")");
    static const QRegularExpression line(
        QStringLiteral("^\\s*evalDeferred\\s*\\(\"autoLoadPlugin\\(\\\\\"[^\"]*\\\\\",\\s*"
                       "\\\\\"([^\"\\\\]+)\\\\\""),
        QRegularExpression::MultilineOption);
    auto matches = line.globalMatch(DecodedText(file.readAll()));
    while (matches.hasNext())
        engine.plugins.autoload += matches.next().captured(1);
    engine.plugins.autoload.removeDuplicates();
    return {};
}

QString WritePluginPreferences(const Engine& engine)
{
    QString text = QStringLiteral("// Plug-ins loaded at every start\n");
    for (const QString& name : engine.plugins.autoload) {
        text += QStringLiteral(
            "evalDeferred(\"autoLoadPlugin(\\\"\\\", \\\"%1\\\", \\\"%1\\\")\");\n")
                    .arg(name);
    }
    const QString path = FilePath(engine);
    QDir().mkpath(engine.paths.PreferencesDirectory());
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0 || !file.commit()) {
        return QStringLiteral("Cannot write preferences file \"%1\": %2.")
            .arg(path, file.errorString());
    }
    return {};
}

} // namespace host::commands
