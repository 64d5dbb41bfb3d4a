#include "window/RecoveryKeeper.h"

#include "editor/CodeEditor.h"
#include "files/RecoveryWriter.h"
#include "language/DocumentCopy.h"

#include <QEvent>
#include <QThread>

#include <algorithm>

namespace {

constexpr int PAUSE = 2000; // ms
constexpr int LIMIT = 15000; // ms
/// A snapshot that is due at the limit begins this much earlier: it must be on the disk by then.
constexpr double LIMIT_SHARE = 0.9;
constexpr int SLICE = 4; // ms
/// "pause:limit" in milliseconds, for tests that cannot wait so long.
const char* const DELAYS_VARIABLE = "TE2_RECOVERY_DELAYS";

bool IsSame(const CodeEditorProperties& left, const CodeEditorProperties& right)
{
    return left.type == right.type && left.language == right.language
        && left.filePath == right.filePath && left.label == right.label;
}

} // namespace

/// Changes are counted, so that it is known which one a snapshot holds.
struct RecoveryKeeper::Record
{
    CodeEditor* editor = nullptr; ///< not owned
    int id = 0;
    CodeEditorProperties properties;
    qint64 change = 0;
    qint64 sentChange = 0;
    qint64 givenUpChange = -1;
    qint64 firstChangeTime = 0; ///< of those that no snapshot holds; ms of the clock
    qint64 lastChangeTime = 0;
    bool isWriting = false;
    bool hasSnapshot = false;
    bool hasFailed = false;
    std::unique_ptr<DocumentCopy> text; ///< while it is being copied
};

RecoveryKeeper::Delays RecoveryKeeper::ReadDelays()
{
    const QStringList fields = qEnvironmentVariable(DELAYS_VARIABLE).split(QLatin1Char(':'));
    const int pause = fields.value(0).toInt();
    const int limit = fields.value(1).toInt();
    const bool isGiven = pause > 0 && limit > 0;
    return {isGiven ? pause : PAUSE, static_cast<int>((isGiven ? limit : LIMIT) * LIMIT_SHARE)};
}

RecoveryKeeper::RecoveryKeeper(const QString& folder, Describe describe, QObject* parent)
    : QObject(parent)
    , m_describe(std::move(describe))
    , m_delays(ReadDelays())
    , m_writer(new RecoveryWriter(folder))
{
    m_clock.start();
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::CoarseTimer);
    m_sliceTimer.setInterval(0);
    connect(&m_timer, &QTimer::timeout, this, &RecoveryKeeper::OnDue);
    connect(&m_sliceTimer, &QTimer::timeout, this, &RecoveryKeeper::OnSlice);
    connect(m_writer, &RecoveryWriter::Written, this, &RecoveryKeeper::OnWritten);
}

RecoveryKeeper::~RecoveryKeeper()
{
    if (m_thread) {
        // The code that it runs may be about to go, so it is waited for.
        m_thread->quit();
        m_thread->wait();
    }
    delete m_writer;
}

void RecoveryKeeper::StartThread()
{
    if (m_thread)
        return;
    m_thread = new QThread(this);
    m_thread->setObjectName(QStringLiteral("recoveryThread"));
    m_writer->moveToThread(m_thread);
    m_thread->start(QThread::LowPriority);
}

template <typename Operation>
void RecoveryKeeper::Post(Operation operation)
{
    StartThread();
    QMetaObject::invokeMethod(m_writer, operation, Qt::QueuedConnection);
}

template <typename Operation>
void RecoveryKeeper::Run(Operation operation)
{
    if (m_thread)
        QMetaObject::invokeMethod(m_writer, operation, Qt::BlockingQueuedConnection);
}

void RecoveryKeeper::Watch(CodeEditor* editor)
{
    std::unique_ptr<Record>& record = m_records[editor];
    const bool isNew = !record;
    if (isNew) {
        record = std::make_unique<Record>();
        record->editor = editor;
        record->id = ++m_lastId;
        connect(editor->document(), &QTextDocument::contentsChange, this,
            [this, editor](int position, int removed, int added) {
                OnContentsChange(editor, position, removed, added);
            });
        connect(
            editor, &CodeEditor::ModificationChanged, this, &RecoveryKeeper::OnModificationChanged);
        connect(editor, &QObject::destroyed, this, &RecoveryKeeper::OnDestroyed);
    }
    const CodeEditorProperties known = record->properties;
    editor->GetProperties(record->properties);
    const bool hasChanged = isNew ? editor->IsModified() : !IsSame(known, record->properties);
    if (hasChanged)
        OnChanged(editor);
}

void RecoveryKeeper::OnContentsChange(CodeEditor* editor, int position, int removed, int added)
{
    const std::unique_ptr<Record>& record = m_records.at(editor);
    if (record->text)
        record->text->OnContentsChange(position, removed, added);
    OnChanged(editor);
}

/// Runs at every key.
void RecoveryKeeper::OnChanged(CodeEditor* editor)
{
    Record& record = *m_records.at(editor);
    const qint64 now = m_clock.elapsed();
    if (record.change == record.sentChange)
        record.firstChangeTime = now;
    record.lastChangeTime = now;
    ++record.change;
    if (!m_timer.isActive())
        m_timer.start(std::min(m_delays.pause, m_delays.limit));
}

void RecoveryKeeper::OnModificationChanged(bool modified, CodeEditor* editor)
{
    // Also without any change of the text: it may be nowhere else any more.
    if (modified)
        OnChanged(editor);
    else
        Discard(*m_records.at(editor));
}

void RecoveryKeeper::OnDestroyed(QObject* editor)
{
    const auto found = m_records.find(editor);
    if (found == m_records.end())
        return;
    Discard(*found->second);
    m_records.erase(found);
}

void RecoveryKeeper::Discard(Record& record)
{
    record.text.reset();
    record.sentChange = record.change;
    record.hasFailed = false;
    if (!record.hasSnapshot)
        return;
    record.hasSnapshot = false;
    Post([writer = m_writer, id = record.id] { writer->Remove(id); });
    // Whatever is still on its way has nothing to do with what comes next.
    record.id = ++m_lastId;
    record.isWriting = false;
}

void RecoveryKeeper::NoteSaving(const CodeEditor* editor, const QByteArray& fingerprint)
{
    const auto found = m_records.find(editor);
    if (found != m_records.end() && found->second->hasSnapshot)
        m_writer->NoteSaving(found->second->id, fingerprint);
}

bool RecoveryKeeper::IsPending(const Record& record) const
{
    return record.change != record.sentChange && record.editor->IsModified();
}

qint64 RecoveryKeeper::DueTime(const Record& record) const
{
    return std::min(
        record.lastChangeTime + m_delays.pause, record.firstChangeTime + m_delays.limit);
}

void RecoveryKeeper::OnDue()
{
    const qint64 now = m_clock.elapsed();
    for (const auto& [editor, record] : m_records) {
        // A slow disk is not given the next one before it is done with the last.
        if (record->text || record->isWriting || !IsPending(*record) || DueTime(*record) > now)
            continue;
        record->text = std::make_unique<DocumentCopy>(record->editor->document());
        m_sliceTimer.start();
    }
    StartTimer();
    if (m_sliceTimer.isActive())
        OnSlice();
}

void RecoveryKeeper::StartTimer()
{
    qint64 next = -1;
    for (const auto& [editor, record] : m_records) {
        if (!record->text && !record->isWriting && IsPending(*record))
            next = next < 0 ? DueTime(*record) : std::min(next, DueTime(*record));
    }
    if (next >= 0)
        m_timer.start(static_cast<int>(std::max<qint64>(0, next - m_clock.elapsed())));
}

void RecoveryKeeper::OnSlice()
{
    const QDeadlineTimer deadline(SLICE);
    for (const auto& [editor, record] : m_records) {
        if (!record->text)
            continue;
        if (!record->text->TakeSlice(deadline))
            return;
        Send(*record, RecoveryFile::Wait::ForDisk);
        if (deadline.hasExpired())
            return;
    }
    m_sliceTimer.stop();
}

void RecoveryKeeper::Send(Record& record, RecoveryFile::Wait wait)
{
    RecoverySnapshot snapshot = m_describe(*record.editor);
    snapshot.time = QDateTime::currentDateTimeUtc();
    record.sentChange = record.change;
    record.isWriting = true;
    record.hasSnapshot = true;
    Post([writer = m_writer, id = record.id, snapshot, pieces = record.text->GetPieces(), wait] {
        writer->Write(id, snapshot, pieces, wait);
    });
    record.text.reset();
}

void RecoveryKeeper::OnWritten(int id, bool success)
{
    const auto found = std::find_if(m_records.begin(), m_records.end(),
        [id](const auto& entry) { return entry.second->id == id; });
    if (found == m_records.end())
        return;
    Record& record = *found->second;
    record.isWriting = false;
    if (!success && record.sentChange == record.change && record.editor->IsModified()) {
        // Tried again when it would be due.
        record.firstChangeTime = record.lastChangeTime = m_clock.elapsed();
        ++record.change;
    }
    if (!success && !record.hasFailed)
        Q_EMIT Failed(record.properties.label);
    record.hasFailed = !success;
    StartTimer();
}

void RecoveryKeeper::SnapshotSoon()
{
    for (const auto& [editor, record] : m_records) {
        if (IsPending(*record) && !record->text && !record->isWriting) {
            record->text = std::make_unique<DocumentCopy>(record->editor->document());
            m_sliceTimer.start();
        }
    }
}

void RecoveryKeeper::TakeAll(Record& record, RecoveryFile::Wait wait)
{
    if (!record.text)
        record.text = std::make_unique<DocumentCopy>(record.editor->document());
    record.text->TakeSlice(QDeadlineTimer(QDeadlineTimer::Forever));
    Send(record, wait);
}

bool RecoveryKeeper::Flush(RecoveryFile::Wait wait)
{
    for (const auto& [editor, record] : m_records) {
        if (IsPending(*record))
            TakeAll(*record, wait);
    }
    bool isComplete = true;
    Run([writer = m_writer, &isComplete] { isComplete = writer->IsComplete(); });
    return isComplete;
}

void RecoveryKeeper::GiveUpFiles()
{
    for (const auto& [editor, record] : m_records) {
        if (record->properties.type == CodeEditorType::File)
            record->givenUpChange = record->change;
    }
}

void RecoveryKeeper::Close()
{
    for (const auto& [editor, record] : m_records) {
        if (record->givenUpChange == record->change)
            Discard(*record);
        else if (IsPending(*record))
            TakeAll(*record, RecoveryFile::Wait::ForDisk);
    }
    Run([writer = m_writer] { writer->Close(); });
    m_timer.stop();
    m_sliceTimer.stop();
    disconnect(m_writer, nullptr, this, nullptr);
    // What happens to the editors from here on is not theirs to tell.
    for (const auto& [editor, record] : m_records) {
        disconnect(record->editor, nullptr, this, nullptr);
        disconnect(record->editor->document(), nullptr, this, nullptr);
    }
    m_records.clear();
}

bool RecoveryKeeper::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Leave || event->type() == QEvent::WindowDeactivate)
        SnapshotSoon();
    return QObject::eventFilter(watched, event);
}
