#pragma once

#include "views/explorer/FolderListing.h"

#include <QElapsedTimer>
#include <QMutex>
#include <QObject>
#include <QThread>
#include <QWaitCondition>

#include <atomic>

/// Reads folders on a thread of its own, so that neither a large nor a slow one keeps anybody
/// waiting. Used by the interface thread, which the results arrive on. Going away it waits for the
/// entry that is being read.
class FolderReader : public QObject
{
    Q_OBJECT

public:
    explicit FolderReader(QObject* parent);
    ~FolderReader() override;

    /// `ticket` comes back with the result.
    void Read(int ticket, const QString& path, bool hideCompiledPython);
    /// What is read so soon that nobody notices is delivered at once: ordinary folders come without
    /// a moment of emptiness. Shorter than a frame for all calls in one turn of the event loop.
    void WaitBriefly();

Q_SIGNALS:
    void Finished(int ticket, const FolderListing::Listing& listing);

private:
    struct Result
    {
        int ticket = 0;
        FolderListing::Listing listing;
    };

    void Work(int ticket, const QString& path, bool hideCompiledPython);
    void Deliver();

    QThread m_thread;
    QObject* m_worker; ///< lives on the thread and goes with it
    std::atomic<bool> m_cancelled{false};
    int m_awaited = 0; ///< asked for and not delivered
    QElapsedTimer m_turn; ///< since this turn of the event loop first waited
    QMutex m_mutex;
    QWaitCondition m_added;
    QVector<Result> m_results; ///< guarded by the mutex
};
