#include "commands/OpenFiles.h"
#include "commands/Patterns.h"
#include "commands/Tables.h"
#include "engine/Engine.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>

namespace host::commands {

namespace {

constexpr int WAIT_STEP_MS = 50; ///< how often a running command looks for a stop request

Outcome GetFileList(Call& call)
{
    const QDir folder(call.Has("folder") ? call.Text("folder") : QDir::currentPath());
    const QStringList entries = folder.entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    const QRegularExpression wanted
        = ShellExpression(call.Has("filespec") ? call.Text("filespec") : QStringLiteral("*"));
    QStringList found;
    for (const QString& entry : entries) {
        if (wanted.match(entry).hasMatch())
            found += entry;
    }
    return found;
}

/// Copies over an existing file; a failed copy leaves that one alone.
bool CopyFile(const QString& from, const QString& to)
{
    if (!QFileInfo(from).isFile() || QFileInfo(from) == QFileInfo(to))
        return false;
    const QString part = to + QLatin1String(".part");
    QFile::remove(part);
    if (!QFile::copy(from, part))
        return false;
    QFile::remove(to);
    return QFile::rename(part, to);
}

Outcome SysFile(Call& call)
{
    const QString path = call.ObjectText();
    if (call.GivenFlags().size() != 1)
        return Error{QStringLiteral("sysFile needs exactly one flag.")};
    const QString action = call.GivenFlags().first();
    if (action == QLatin1String("makeDir"))
        return QDir().mkpath(path);
    if (action == QLatin1String("removeEmptyDir"))
        return QDir().rmdir(path);
    if (action == QLatin1String("delete"))
        return QFile::remove(path);
    const QString target = call.Texts(action.toLatin1().constData()).first();
    if (action == QLatin1String("copy"))
        return CopyFile(path, target);
    return QFile::rename(path, target);
}

Outcome FileTest(Call& call)
{
    const QFileInfo file(call.ObjectText());
    const auto yes = [](bool answer) { return Outcome(answer ? 1 : 0); };
    if (call.GivenFlags().size() != 1)
        return Error{QStringLiteral("filetest needs exactly one flag.")};
    switch (call.GivenFlags().first().at(0).unicode()) {
    case u'r': return yes(file.isReadable());
    case u'w': return yes(file.isWritable());
    case u'x': return yes(file.isExecutable());
    case u'f': return yes(file.isFile());
    case u'd': return yes(file.isDir());
    case u'L': return yes(file.isSymLink());
    case u's': return yes(file.size() > 0);
    default: return yes(file.exists());
    }
}

Outcome RunSystem(FunctionCall& call)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.setInputChannelMode(QProcess::ForwardedInputChannel);
    process.start(QStringLiteral("/bin/sh"), {QStringLiteral("-c"), call.Text(0)});
    if (!process.waitForStarted())
        return Error{QStringLiteral("Cannot run a command: %1.").arg(process.errorString())};
    while (process.state() != QProcess::NotRunning && !process.waitForFinished(WAIT_STEP_MS)) {
        if (!Engine::Current().interrupt.Poll())
            continue;
        process.kill();
        process.waitForFinished();
        return Error{QStringLiteral("Interrupted.")};
    }
    return DecodedText(process.readAllStandardOutput());
}

Outcome RunInBackground(FunctionCall& call)
{
    if (!QProcess::startDetached(QStringLiteral("/bin/sh"), {QStringLiteral("-c"), call.Text(0)})) {
        return Error{QStringLiteral("Cannot run the command \"%1\".").arg(call.Text(0))};
    }
    return {};
}

Outcome GetEnvironment(FunctionCall& call)
{
    return qEnvironmentVariable(call.Text(0).toUtf8().constData());
}

Outcome PutEnvironment(FunctionCall& call)
{
    const QByteArray name = call.Text(0).toUtf8();
    if (name.isEmpty() || name.contains('='))
        return Error{QStringLiteral("Invalid environment variable \"%1\".").arg(call.Text(0))};
    qputenv(name.constData(), call.Text(1).toUtf8());
    return call.Text(1);
}

Outcome CurrentDirectory(FunctionCall&)
{
    return QDir::currentPath();
}

Outcome ChangeDirectory(FunctionCall& call)
{
    // 0 for success, as in the system's own call of that name.
    return QDir::setCurrent(call.Text(0)) ? 0 : 1;
}

const FunctionRow FUNCTIONS[] = {
    {"string system(string)", RunSystem},
    {"void exec(string)", RunInBackground},
    {"string getenv(string)", GetEnvironment},
    {"string putenv(string, string)", PutEnvironment},
    {"string pwd()", CurrentDirectory},
    {"int chdir(string)", ChangeDirectory},
};

const CommandRow COMMANDS[] = {
    {"getFileList", "string[]", "", "", "filespec/fs str c; folder/fld str c", GetFileList},
    {"sysFile", "bool", "", "String",
        "copy/cp str c; delete/del - c; makeDir/md - c; move/mov str c; removeEmptyDir/red - c; "
        "rename/ren str c",
        SysFile},
    {"filetest", "int", "", "String",
        "d/d - c; e/e - c; f/f - c; L/L - c; r/r - c; s/s - c; w/w - c; x/x - c", FileTest},
};

} // namespace

void RegisterFileSystem(CommandRegistry& registry)
{
    registry.Register(FUNCTIONS);
    registry.Register(COMMANDS);
}

} // namespace host::commands
