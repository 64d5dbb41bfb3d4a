#pragma once

#include "language/PylintOptions.h"

#include <QObject>
#include <QStringList>

#include <optional>

class QProcess;

/// Runs the user's pylint on the text of an editor. Lives on the worker thread of a code editor
/// group, which speaks to it by queued signals only. A newer request cancels the run of an older
/// one, whose results are never told.
class PylintWorker : public QObject
{
    Q_OBJECT

public:
    /// Takes the next worker number and makes that worker's file. Made on the interface thread,
    /// as the places of files are settings.
    PylintWorker();
    ~PylintWorker() override;

    /// Stops the run; false when it does not end within half a second.
    bool KillProcess();
    /// Lets a missing executable be told once more, after the settings changed. Only the first
    /// worker listens, so that it is told once for all groups.
    void ResetErrors();
    QString GetTempFilePath() const { return m_tempFilePath; }

public Q_SLOTS:
    /// For the requests that follow. Without them a worker goes by the settings, which only the
    /// interface thread may read.
    void SetOptions(const PylintOptions& options) { m_options = options; }
    /// Checks `source`, the text of `filePath`. `pythonPath` is pylint's module search path.
    void Pylint(const QString& source, const QString& filePath, const QString& pythonPath);
    /// Stops the run and ends the event loop of the thread.
    void Shutdown();

Q_SIGNALS:
    /// What pylint printed, cut at "::". A result is what has `fieldCount` fields parted by ":".
    void PylintOutput(const QString& filePath, const QStringList& results, int fieldCount);
    /// There will be no results for this request: pylint is missing or did not start or crashed.
    void PylintFailed(const QString& filePath);

private:
    void CreateTempFile();
    void WriteToTempFile(const QString& source);
    PylintOptions GetOptions() const;
    static bool IsExecutableThere(const QString& path);
    QString CommandLine(const PylintOptions& options) const;
    void StartProcess(const PylintOptions& options, const QString& pythonPath);
    void OnProcessFinished(int exitCode);
    void ProcessPylintOutput(int exitCode);

    int m_workerId;
    std::optional<PylintOptions> m_options;
    QProcess* m_process;
    QString m_tempFilePath;
    QString m_filePath; ///< of the editor whose text was sent last
    int m_requestCounter = 0;
    int m_runningRequest = -1; ///< the one that the process works for
};
