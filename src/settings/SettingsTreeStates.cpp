// What is expanded in the workspace and outline trees, as the byte arrays of the settings file.

#include "settings/Settings.h"
#include "settings/StoredOption.h"

#include <QDataStream>

namespace {

constexpr int HASH_BYTES = 16;

/// The least that one entry of a stored hash takes: the lengths of two empty strings.
constexpr int MINIMUM_ENTRY_BYTES = 8;

} // namespace

QByteArray Settings::GetWorkspaceState()
{
    QByteArray state;
    for (const QByteArray& hash : qAsConst(workspaceExpandedFolderHashes))
        state += hash;
    return state;
}

void Settings::RestoreWorkspaceState(const QByteArray& state)
{
    workspaceExpandedFolderHashes.clear();
    if (state.size() > MAXIMUM_STORED_BYTES)
        return;
    for (int start = 0; start < state.size(); start += HASH_BYTES)
        workspaceExpandedFolderHashes += state.mid(start, HASH_BYTES);
}

QByteArray Settings::GetOutlineExpandedState()
{
    QByteArray state;
    QDataStream stream(&state, QIODevice::WriteOnly);
    stream << outlineExpandedHash;
    return state;
}

void Settings::RestoreOutlineExpandedState(QByteArray state)
{
    outlineExpandedHash.clear();
    if (state.size() > MAXIMUM_STORED_BYTES)
        return;
    QDataStream stream(&state, QIODevice::ReadOnly);
    quint32 count = 0;
    stream >> count;
    // A count that the bytes cannot hold would make the stream reserve memory for nothing.
    if (stream.status() != QDataStream::Ok || count > quint32(state.size() / MINIMUM_ENTRY_BYTES))
        return;
    stream.device()->seek(0);
    QMultiHash<QString, QString> restored;
    stream >> restored;
    if (stream.status() == QDataStream::Ok)
        outlineExpandedHash = restored;
}
