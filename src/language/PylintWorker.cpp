#include "language/PylintWorker.h"

#include "plugin/Logger.h"
#include "settings/Settings.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QThread>

#include <atomic>
#include <utility>

namespace {

constexpr int FIELD_COUNT = 5; // category, line, column, message id, text
constexpr int START_MILLISECONDS = 1000;
constexpr int KILL_MILLISECONDS = 500;
constexpr int USAGE_ERROR = 32; // of pylint's exit codes; below it they tell what was found
constexpr int NO_REQUEST = -1;

std::atomic<int> workerCounter{0};
/// So that a missing executable is told once rather than at every pause in typing.
std::atomic<bool> sShowPylintExeNotFoundError{true};

QString Quoted(const QString& path)
{
    return path.contains(QLatin1Char(' ')) ? QLatin1Char('"') + path + QLatin1Char('"') : path;
}

} // namespace

PylintWorker::PylintWorker()
    : m_workerId(workerCounter++)
    , m_process(new QProcess(this))
{
    CreateTempFile();
    connect(m_process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
        &PylintWorker::OnProcessFinished);
}

PylintWorker::~PylintWorker()
{
    m_process->disconnect(this);
    KillProcess();
}

void PylintWorker::CreateTempFile()
{
    const QString directory = Settings::GetTempDirectoryPath();
    if (!directory.isEmpty()) {
        m_tempFilePath
            = QStringLiteral("%1/te2_worker%2_temp.py").arg(directory, QString::number(m_workerId));
        QFile file(m_tempFilePath);
        file.open(QIODevice::WriteOnly | QIODevice::Truncate);
    }
    if (!QFileInfo::exists(m_tempFilePath))
        Logger::Error("Failed to create worker file");
}

void PylintWorker::WriteToTempFile(const QString& source)
{
    QFile file(m_tempFilePath);
    const QByteArray bytes = source.toUtf8();
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(bytes) != bytes.size()
        || !file.flush())
        Logger::Error("Failed to write to worker file");
}

void PylintWorker::ResetErrors()
{
    if (m_workerId == 0)
        sShowPylintExeNotFoundError = true;
}

void PylintWorker::Pylint(const QString& source, const QString& filePath, const QString& pythonPath)
{
    ++m_requestCounter;
    if (!KillProcess()) {
        Q_EMIT PylintFailed(filePath);
        return;
    }
    m_filePath = filePath;
    const PylintOptions options = GetOptions();
    if (!options.isEnabled)
        return;
    if (!IsExecutableThere(options.path)) {
        Q_EMIT PylintFailed(m_filePath);
        return;
    }
    WriteToTempFile(source);
    StartProcess(options, pythonPath);
}

PylintOptions PylintWorker::GetOptions() const
{
    return m_options ? *m_options : PylintOptions::FromSettings();
}

bool PylintWorker::IsExecutableThere(const QString& path)
{
    if (QFileInfo::exists(path))
        return true;
    if (sShowPylintExeNotFoundError.exchange(false))
        Logger::Error(QStringLiteral("Pylint executable not found: %1").arg(path));
    return false;
}

QString PylintWorker::CommandLine(const PylintOptions& options) const
{
    const QString messageTemplate = QStringLiteral("::{C}:{line}:{column}:[{msg_id}]:{msg}::");
    const QString reducedCheckers = QStringLiteral(
        "--disable=W,R,C,E1111 --enable=import-error,unreachable,duplicate-key,"
        "unnecessary-semicolon,global-variable-not-assigned,unused-variable,binary-op-exception,"
        "bad-format-string,anomalous-backslash-in-string,bad-open-mode");
    QString command
        = QStringLiteral("%1 --msg-template='%2'").arg(Quoted(options.path), messageTemplate);
    if (options.usesMinimalCheckers)
        command = QStringLiteral("%1 %2").arg(command, reducedCheckers);
    else if (!options.configPath.isEmpty())
        command = QStringLiteral("%1 --rcfile=%2").arg(command, Quoted(options.configPath));
    return QStringLiteral("%1 %2").arg(command, Quoted(m_tempFilePath));
}

void PylintWorker::StartProcess(const PylintOptions& options, const QString& pythonPath)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("PYTHONPATH"), pythonPath);
    if (!options.pythonHomePath.isEmpty())
        environment.insert(QStringLiteral("PYTHONHOME"), options.pythonHomePath);
    m_process->setProcessEnvironment(environment);

    QStringList arguments = QProcess::splitCommand(CommandLine(options));
    const QString program = arguments.takeFirst();
    m_runningRequest = m_requestCounter;
    m_process->start(program, arguments, QIODevice::ReadWrite);
    if (m_process->waitForStarted(START_MILLISECONDS))
        return;
    m_runningRequest = NO_REQUEST; // whatever it still does comes too late
    KillProcess();
    Q_EMIT PylintFailed(m_filePath);
}

void PylintWorker::OnProcessFinished(int exitCode)
{
    const int finishedRequest = std::exchange(m_runningRequest, NO_REQUEST);
    if (finishedRequest == m_requestCounter)
        ProcessPylintOutput(exitCode);
}

void PylintWorker::ProcessPylintOutput(int exitCode)
{
    const QString output = QString::fromUtf8(m_process->readAllStandardOutput());
    const QString errors = QString::fromUtf8(m_process->readAllStandardError());
    if (GetOptions().showsErrors && !errors.isEmpty())
        Logger::Error(errors);
    // pylint says something whenever it finds something; silence with a code is no result.
    const bool failed = m_process->exitStatus() == QProcess::CrashExit || exitCode >= USAGE_ERROR
        || (exitCode != 0 && output.trimmed().isEmpty());
    if (failed)
        Q_EMIT PylintFailed(m_filePath);
    else
        Q_EMIT PylintOutput(
            m_filePath, output.split(QStringLiteral("::"), Qt::SkipEmptyParts), FIELD_COUNT);
}

bool PylintWorker::KillProcess()
{
    if (m_process->state() == QProcess::NotRunning)
        return true;
    m_process->kill();
    return m_process->waitForFinished(KILL_MILLISECONDS);
}

void PylintWorker::Shutdown()
{
    ++m_requestCounter; // nobody waits for the results any more
    KillProcess();
    QThread::currentThread()->exit(0);
}
