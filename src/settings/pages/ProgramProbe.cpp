#include "settings/pages/ProgramProbe.h"

#include <QProcess>

#include <utility>

namespace {

constexpr int MAXIMUM_ANSWER = 4096; // bytes
constexpr int KILL_LIMIT = 500; // ms

QString TextOf(const QByteArray& bytes)
{
    return QString::fromLocal8Bit(bytes.left(MAXIMUM_ANSWER)).trimmed();
}

/// Of an error message the last line says most.
QString LastLine(const QString& text)
{
    return text.section(QLatin1Char('\n'), -1).trimmed();
}

} // namespace

ProgramProbe::ProgramProbe(int limit, QObject* parent)
    : QObject(parent)
{
    m_limit.setSingleShot(true);
    m_limit.setInterval(limit);
    connect(&m_limit, &QTimer::timeout, this, [this] {
        Finish(false, tr("No answer within %1 seconds.").arg(m_limit.interval() / 1000.0));
    });
}

ProgramProbe::~ProgramProbe()
{
    Stop();
    for (QProcess* process : findChildren<QProcess*>())
        process->waitForFinished(KILL_LIMIT);
}

void ProgramProbe::Start(const QString& program, const QProcessEnvironment& environment)
{
    Stop();
    m_process = new QProcess(this);
    m_process->setProcessEnvironment(environment);
    connect(m_process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
        &ProgramProbe::OnProcessFinished);
    connect(m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            Finish(false, m_process->errorString());
    });
    m_limit.start();
    m_process->start(program, {QStringLiteral("--version")}, QIODevice::ReadOnly);
}

void ProgramProbe::OnProcessFinished()
{
    const QString output = TextOf(m_process->readAllStandardOutput());
    const QString errors = TextOf(m_process->readAllStandardError());
    if (m_process->exitStatus() == QProcess::CrashExit)
        Finish(false, tr("The program crashed."));
    else if (m_process->exitCode() != 0)
        Finish(false,
            errors.isEmpty() ? tr("The program ended with code %1.").arg(m_process->exitCode())
                             : LastLine(errors));
    else
        Finish(!output.isEmpty(), output.isEmpty() ? tr("The program said nothing.") : output);
}

void ProgramProbe::Finish(bool answered, const QString& text)
{
    Stop();
    Q_EMIT Finished(answered, text);
}

/// Not deleted at once: it may be telling just now how it ended, or has to end first.
void ProgramProbe::Stop()
{
    m_limit.stop();
    QProcess* const process = std::exchange(m_process, nullptr);
    if (!process)
        return;
    process->disconnect(this);
    if (process->state() == QProcess::NotRunning) {
        process->deleteLater();
        return;
    }
    connect(process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), process,
        &QObject::deleteLater);
    process->kill();
}
