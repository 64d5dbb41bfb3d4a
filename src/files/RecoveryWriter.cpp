#include "files/RecoveryWriter.h"

RecoveryWriter::RecoveryWriter(const QString& folder)
    : m_store(folder)
{ }

void RecoveryWriter::Write(
    int id, RecoverySnapshot snapshot, const QVector<QString>& pieces, RecoveryFile::Wait wait)
{
    int length = 0;
    for (const QString& piece : pieces)
        length += piece.size();
    snapshot.text.reserve(length);
    for (const QString& piece : pieces)
        snapshot.text += piece;
    const bool success = m_store.Write(id, snapshot, wait);
    if (success)
        m_failed.remove(id);
    else
        m_failed.insert(id);
    Q_EMIT Written(id, success);
}

void RecoveryWriter::Remove(int id)
{
    m_failed.remove(id);
    m_store.Remove(id);
}
