#include "views/explorer/FolderReader.h"

#include <QTimer>

namespace {

constexpr int PATIENCE = 15; // ms

} // namespace

FolderReader::FolderReader(QObject* parent)
    : QObject(parent)
    , m_worker(new QObject)
{
    m_thread.setObjectName(QStringLiteral("FolderReader"));
    m_worker->moveToThread(&m_thread);
    connect(&m_thread, &QThread::finished, m_worker, &QObject::deleteLater);
    m_thread.start();
}

FolderReader::~FolderReader()
{
    m_cancelled = true;
    m_thread.quit();
    m_thread.wait();
}

void FolderReader::Read(int ticket, const QString& path, bool hideCompiledPython)
{
    ++m_awaited;
    QMetaObject::invokeMethod(
        m_worker, [=] { Work(ticket, path, hideCompiledPython); }, Qt::QueuedConnection);
}

/// On the thread.
void FolderReader::Work(int ticket, const QString& path, bool hideCompiledPython)
{
    if (m_cancelled)
        return;
    const FolderListing::Listing listing
        = FolderListing::Read(path, hideCompiledPython, &m_cancelled);
    {
        const QMutexLocker lock(&m_mutex);
        m_results.append({ticket, listing});
        m_added.wakeAll();
    }
    QMetaObject::invokeMethod(this, &FolderReader::Deliver, Qt::QueuedConnection);
}

void FolderReader::WaitBriefly()
{
    if (!m_turn.isValid()) {
        m_turn.start();
        QTimer::singleShot(0, this, [this] { m_turn.invalidate(); });
    }
    {
        QMutexLocker lock(&m_mutex);
        while (m_results.size() < m_awaited && m_turn.elapsed() < PATIENCE)
            m_added.wait(&m_mutex, static_cast<unsigned long>(PATIENCE - m_turn.elapsed()) + 1);
    }
    Deliver();
}

void FolderReader::Deliver()
{
    QVector<Result> results;
    {
        const QMutexLocker lock(&m_mutex);
        results.swap(m_results);
    }
    m_awaited -= results.size();
    for (const Result& result : qAsConst(results))
        Q_EMIT Finished(result.ticket, result.listing);
}
