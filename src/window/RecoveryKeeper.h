#pragma once

#include "files/RecoveryFile.h"

#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>
#include <memory>
#include <unordered_map>

class CodeEditor;
class QThread;
class DocumentCopy;
class RecoveryWriter;

/// Sees to it that the unsaved text of every editor is on the disk soon after it was typed: after a
/// pause, while typing goes on from time to time, and at once when something dangerous is about to
/// happen. Owned by the window; interface thread, with a thread of its own for the disk. Text is
/// taken in slices, so that nobody notices.
class RecoveryKeeper : public QObject
{
    Q_OBJECT

public:
    /// Everything about an editor but its text and the time.
    using Describe = std::function<RecoverySnapshot(const CodeEditor&)>;

    /// `folder` is the recovery folder; it need not exist.
    RecoveryKeeper(const QString& folder, Describe describe, QObject* parent);
    /// What is on the disk stays there.
    ~RecoveryKeeper() override;

    /// Looks after the editor until it is deleted; its snapshot goes then, as it does when the
    /// editor is not modified any more. Called again when the editor has another path or label.
    void Watch(CodeEditor* editor);
    /// Writes down what is newer than the last snapshots, without waiting for a pause in typing.
    void SnapshotSoon();
    /// The same at once: whatever becomes of this process, the text outlives it. With
    /// Wait::ForDisk it outlives the machine's sudden end, too. False when it could not be written.
    bool Flush(RecoveryFile::Wait wait);
    /// The editor is about to be saved: its file will have the content of that fingerprint.
    void NoteSaving(const CodeEditor* editor, const QByteArray& fingerprint);
    /// The user does not want the texts that files have now, should the session end with them.
    void GiveUpFiles();
    /// The last thing that is called. Modified texts that nobody gave up are kept for the next
    /// start, everything else goes.
    void Close();

Q_SIGNALS:
    /// An editor's text could not be written down; told once until it can be again.
    void Failed(const QString& label);

protected:
    /// Of the window: who leaves it may be about to have the host run something.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Record;
    struct Delays
    {
        int pause; ///< ms after the last change
        int limit; ///< ms after the first change that no snapshot holds
    };

    static Delays ReadDelays();
    void OnChanged(CodeEditor* editor);
    void OnContentsChange(CodeEditor* editor, int position, int removed, int added);
    void OnModificationChanged(bool modified, CodeEditor* editor);
    void OnDestroyed(QObject* editor);
    void OnDue();
    void OnSlice();
    void OnWritten(int id, bool success);
    bool IsPending(const Record& record) const;
    qint64 DueTime(const Record& record) const;
    void StartTimer();
    void TakeAll(Record& record, RecoveryFile::Wait wait);
    void Send(Record& record, RecoveryFile::Wait wait);
    void Discard(Record& record);
    void StartThread();
    template <typename Operation>
    void Post(Operation operation);
    /// Waits until the writer has done all that it was asked for, `operation` being the last.
    template <typename Operation>
    void Run(Operation operation);

    Describe m_describe;
    Delays m_delays;
    QElapsedTimer m_clock;
    QTimer m_timer; ///< until the next snapshot is due
    QTimer m_sliceTimer; ///< runs while texts are being copied
    std::unordered_map<const QObject*, std::unique_ptr<Record>> m_records;
    int m_lastId = 0;
    QThread* m_thread = nullptr; ///< starts with the first snapshot
    RecoveryWriter* m_writer; ///< lives on the thread once that runs
};
