#pragma once

#include "files/RecoveryStore.h"

#include <QObject>
#include <QSet>
#include <QVector>

/// Writes snapshots down, on a thread of its own: encoding, writing and waiting for the disk take
/// as long as they take. Owned by who sends the text; everything but the construction is for the
/// thread that the object was moved to.
class RecoveryWriter : public QObject
{
    Q_OBJECT

public:
    /// `folder` is the recovery folder.
    explicit RecoveryWriter(const QString& folder);

    /// The snapshot comes without its text, which is the pieces one after the other.
    void Write(
        int id, RecoverySnapshot snapshot, const QVector<QString>& pieces, RecoveryFile::Wait wait);
    void Remove(int id);
    /// See RecoveryStore; any thread.
    void NoteSaving(int id, const QByteArray& fingerprint) const
    {
        m_store.NoteSaving(id, fingerprint);
    }
    /// The last thing that is called.
    void Close() { m_store.Close(); }
    /// Whether the last snapshot of every editor is on the disk.
    bool IsComplete() const { return m_failed.isEmpty(); }

Q_SIGNALS:
    void Written(int id, bool success);

private:
    RecoveryStore m_store;
    QSet<int> m_failed; ///< whose last snapshot could not be written
};
