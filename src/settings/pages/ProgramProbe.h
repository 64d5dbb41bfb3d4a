#pragma once

#include <QObject>
#include <QTimer>

class QProcess;
class QProcessEnvironment;

/// Asks a program for its version without anybody waiting. Owned by who asks; what runs is killed
/// with it. Interface thread.
class ProgramProbe : public QObject
{
    Q_OBJECT

public:
    /// A program that has not answered after that many milliseconds is killed.
    ProgramProbe(int limit, QObject* parent);
    ~ProgramProbe() override;

    /// Runs it with "--version"; what was asked before is forgotten.
    void Start(const QString& program, const QProcessEnvironment& environment);
    bool IsRunning() const { return m_process != nullptr; }

Q_SIGNALS:
    /// The lines of the answer, or what went wrong in one line.
    void Finished(bool answered, const QString& text);

private:
    void Finish(bool answered, const QString& text);
    void OnProcessFinished();
    void Stop();

    QProcess* m_process = nullptr; ///< while it runs
    QTimer m_limit;
};
