// The file that the console's output is copied to on request.

#include "output/OutputTextEdit.h"
#include "plugin/Logger.h"

#include <QFile>
#include <QTextStream>

#include <sys/stat.h>

namespace {

/// The system writes happily into a file that nobody can reach any more.
bool IsRemoved(const QFile& file)
{
    struct stat status = {};
    return fstat(file.handle(), &status) == 0 && status.st_nlink == 0;
}

} // namespace

bool OutputTextEdit::BeginWriteToFile(const QString& path)
{
    auto file = std::make_unique<QFile>(path);
    if (!file->open(QIODevice::WriteOnly | QIODevice::Text)) {
        Logger::Error(QStringLiteral("Failed to open log file for write: %1").arg(path));
        return false;
    }
    EndWriteToFile();
    m_logFile = std::move(file);
    m_logStream = std::make_unique<QTextStream>(m_logFile.get());
    // Whatever the locale is, no character gets lost.
    m_logStream->setCodec("UTF-8");
    return true;
}

void OutputTextEdit::EndWriteToFile()
{
    if (!m_logFile)
        return;
    m_logStream->flush();
    m_logStream.reset();
    m_logFile->close();
    m_logFile.reset();
}

QString OutputTextEdit::GetWriteToFilePath() const
{
    return m_logFile ? m_logFile->fileName() : QString();
}

// Flushed every time: the log must hold the line that was printed before a crash of the host.
void OutputTextEdit::WriteToLog(const QString& text)
{
    *m_logStream << text;
    m_logStream->flush();
    // The stream also takes half a character, of which nothing is written yet, for a failure.
    m_logStream->resetStatus();
    if (m_logFile->error() == QFileDevice::NoError && !IsRemoved(*m_logFile))
        return;
    const QString path = GetWriteToFilePath();
    const QString reason = m_logFile->error() == QFileDevice::NoError ? tr("The file was removed")
                                                                      : m_logFile->errorString();
    EndWriteToFile();
    // Later, as the report is output itself and belongs behind the text at hand.
    QMetaObject::invokeMethod(
        this, [this, path, reason] { ReportLogFailure(path, reason); }, Qt::QueuedConnection);
}

void OutputTextEdit::ReportLogFailure(const QString& path, const QString& reason)
{
    Logger::Error(
        QStringLiteral("Failed to write log file, writing stopped: %1 (%2)").arg(path, reason));
    Q_EMIT WriteToFileEnded();
}
