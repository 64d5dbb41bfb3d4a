// The file that the console's output is copied to on request.

#include "output/OutputTextEdit.h"
#include "plugin/Logger.h"

#include <QFile>
#include <QTextStream>

bool OutputTextEdit::BeginWriteToFile(const QString& path)
{
    EndWriteToFile();
    auto file = std::make_unique<QFile>(path);
    if (!file->open(QIODevice::WriteOnly | QIODevice::Text)) {
        Logger::Error(QStringLiteral("Failed to open log file for write: %1").arg(path));
        return false;
    }
    m_logFile = std::move(file);
    m_logStream = std::make_unique<QTextStream>(m_logFile.get());
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
    if (m_logStream->status() == QTextStream::Ok && m_logFile->error() == QFileDevice::NoError)
        return;
    const QString path = GetWriteToFilePath();
    const QString reason = m_logFile->errorString();
    // First, as what is logged comes here, too.
    EndWriteToFile();
    Q_EMIT WriteToFileEnded();
    Logger::Error(
        QStringLiteral("Failed to write log file: %1 (%2). It holds the output up to this point.")
            .arg(path, reason));
}
