#include "commands/RunTimeCommands.h"

#include "commands/Quoting.h"
#include "engine/Engine.h"

#include <QDir>
#include <QSaveFile>

namespace host::commands {

namespace {

/// The statement that makes the command again.
QString Statement(const QString& name, const RunTimeCommand& command)
{
    QString text
        = QStringLiteral("if (!`runTimeCommand -exists %1`)\n    runTimeCommand").arg(name);
    for (auto it = command.texts.begin(); it != command.texts.end(); ++it)
        text += QStringLiteral(" -%1 %2").arg(it.key(), Quoted(it.value()));
    const bool isMel = command.command.language == Language::Mel;
    return text
        + QStringLiteral(" -commandLanguage \"%1\" -command %2 %3;\n")
              .arg(isMel ? QLatin1String("mel") : QLatin1String("python"),
                  Quoted(command.command.text), name);
}

} // namespace

bool RunTimeCommands::Add(const QString& name, const RunTimeCommand& command)
{
    const auto run = [this, name](Call&) {
        // A copy: the text may redefine or delete the command that is running.
        const Script script = m_commands.value(name).command;
        return script.Run();
    };
    auto entry = std::make_unique<Command>(name, CommandOrigin::RunTime, run);
    if (!m_engine.commands.Register(std::move(entry)))
        return false;
    m_commands.insert(name, command);
    return true;
}

void RunTimeCommands::Remove(const QString& name)
{
    m_commands.remove(name);
    m_engine.commands.Unregister(name);
}

QString RunTimeCommands::FilePath() const
{
    return m_engine.paths.PreferencesDirectory() + QLatin1String("/userRunTimeCommands.mel");
}

QString RunTimeCommands::Save() const
{
    QString text = QStringLiteral("// The user's run-time commands\n");
    for (auto it = m_commands.begin(); it != m_commands.end(); ++it) {
        // A Python function has no text that could make it again.
        if (!it->isDefault && !it->command.callable)
            text += Statement(it.key(), *it);
    }
    QDir().mkpath(m_engine.paths.PreferencesDirectory());
    QSaveFile file(FilePath());
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0 || !file.commit()) {
        return QStringLiteral("Cannot write preferences file \"%1\": %2.")
            .arg(FilePath(), file.errorString());
    }
    return {};
}

} // namespace host::commands
