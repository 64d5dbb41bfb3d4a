#include "language/PythonSourceLoader.h"

#include "language/DocumentCopy.h"
#include "language/PythonSource.h"

#include <QTextBlock>
#include <QTextDocument>

#include <atomic>

namespace {

constexpr int SHORT_TEXT = 20000; ///< characters; read in a millisecond or two
constexpr int SLICE = 3; // ms
constexpr int REST_TIME = 60000; // ms

} // namespace

/// Shared with the thread that reads.
struct PythonSourceLoader::Job
{
    std::atomic<bool> isCancelled{false};
    std::shared_ptr<const PythonSource> source; ///< once it has been read
};

PythonSourceLoader::PythonSourceLoader(const QTextDocument* document, QObject* parent)
    : QObject(parent)
    , m_document(document)
    , m_revision(document->revision())
    , m_lineCount(document->blockCount())
{
    m_pool.setMaxThreadCount(1);
    m_sliceTimer.setInterval(0);
    m_restTimer.setSingleShot(true);
    m_restTimer.setInterval(REST_TIME);
    connect(&m_sliceTimer, &QTimer::timeout, this, &PythonSourceLoader::OnSlice);
    connect(&m_restTimer, &QTimer::timeout, this, &PythonSourceLoader::DropCopy);
    connect(document, &QTextDocument::contentsChange, this, &PythonSourceLoader::OnContentsChange);
}

PythonSourceLoader::~PythonSourceLoader()
{
    DropSource();
    m_pool.waitForDone();
}

std::shared_ptr<const PythonSource> PythonSourceLoader::Fetch(int line)
{
    m_restTimer.start();
    if (line != m_line)
        DropSource();
    m_line = line;
    const QString text = m_document->findBlockByNumber(line).text();
    if (m_source && m_source->StillHolds(text))
        return m_source;
    if (m_job || m_sliceTimer.isActive())
        return nullptr;
    if (m_document->characterCount() <= SHORT_TEXT) {
        DropCopy();
        m_source = std::make_shared<PythonSource>(m_document->toPlainText(), line);
        return m_source;
    }
    if (!m_copy)
        m_copy = std::make_unique<DocumentCopy>(m_document);
    if (m_copy->TakeSlice(QDeadlineTimer(0)))
        StartReading();
    else
        m_sliceTimer.start();
    return nullptr;
}

/// What is typed into the line that was asked for changes nothing.
void PythonSourceLoader::OnContentsChange(int position, int removed, int added)
{
    if (m_copy)
        m_copy->OnContentsChange(position, removed, added);
    const bool hasSameLines = m_document->blockCount() == m_lineCount;
    // Colours change, too.
    if (hasSameLines && m_document->revision() == m_revision)
        return;
    m_revision = m_document->revision();
    const bool isWithinLine = hasSameLines
        && m_document->findBlock(position).blockNumber() == m_line
        && m_document->findBlock(position + added).blockNumber() == m_line;
    m_lineCount = m_document->blockCount();
    if (isWithinLine)
        return;
    DropSource();
    Q_EMIT Changed();
}

void PythonSourceLoader::DropSource()
{
    m_sliceTimer.stop();
    m_source.reset();
    if (m_job)
        m_job->isCancelled = true;
    m_job.reset();
}

void PythonSourceLoader::DropCopy()
{
    m_sliceTimer.stop();
    m_copy.reset();
}

void PythonSourceLoader::OnSlice()
{
    if (!m_copy->TakeSlice(QDeadlineTimer(SLICE)))
        return;
    m_sliceTimer.stop();
    StartReading();
}

void PythonSourceLoader::StartReading()
{
    const QVector<QString> pieces = m_copy->GetPieces();
    m_job = std::make_shared<Job>();
    m_pool.start([this, job = m_job, pieces, line = m_line] {
        QString text;
        for (const QString& piece : pieces)
            text += piece;
        job->source = std::make_shared<PythonSource>(text, line, &job->isCancelled);
        QMetaObject::invokeMethod(
            this, [this, job] { OnRead(job); }, Qt::QueuedConnection);
    });
}

void PythonSourceLoader::OnRead(const std::shared_ptr<Job>& job)
{
    if (job != m_job)
        return;
    m_source = job->source;
    m_job.reset();
    Q_EMIT Loaded();
}
