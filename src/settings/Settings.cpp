#include "settings/Settings.h"

#include <QDataStream>

#include <utility>

const QString Settings::CONFIG_FILE_NAME = QStringLiteral("tarnwickEditor2.ini");
const QString Settings::PREFS_DIRECTORY_NAME = QStringLiteral("tarnwickEditor2");
const QString Settings::INTERNAL_BUFFERS_DIRECTORY_NAME = QStringLiteral("internalBuffers");
const QString Settings::TEMP_DIRECTORY_NAME = QStringLiteral("temp");
const QString Settings::WORKSPACES_DIRECTORY_NAME = QStringLiteral("workspaces");
const QString Settings::DEFAULT_WORKSPACE_FILE_NAME = QStringLiteral("default");
const QString Settings::WORKSPACE_EXTENSION = QStringLiteral(".te2-workspace");
const QString Settings::APPLICATION_TITLE = QStringLiteral("Tarnwick Editor 2");
const QString Settings::APPLICATION_NAME = QStringLiteral("TarnwickEditor2");
const QString Settings::MEL_COMMAND = QStringLiteral("tarnwickEditor2");
const QString Settings::VERSION_STRING = QStringLiteral("2.6.4");
const QString Settings::PATH_SEP = QStringLiteral(":");

namespace {

constexpr int HASH_BYTES = 16;
/// A stored multi-hash begins with its number of entries; the shortest entry is two empty texts.
constexpr int HASH_COUNT_BYTES = 4;
constexpr int SHORTEST_ENTRY_BYTES = 8;

} // namespace

QFont Settings::GetDefaultFont()
{
    QFont font(QStringLiteral("Liberation Mono"), 9, QFont::Normal, false);
    font.setStyleHint(QFont::TypeWriter);
    return font;
}

QByteArray Settings::GetWorkspaceState()
{
    QByteArray state;
    for (const QByteArray& hash : std::as_const(workspaceExpandedFolderHashes))
        state += hash;
    return state;
}

void Settings::RestoreWorkspaceState(const QByteArray& state)
{
    workspaceExpandedFolderHashes.clear();
    for (int start = 0; start < state.size(); start += HASH_BYTES)
        workspaceExpandedFolderHashes.append(state.mid(start, HASH_BYTES));
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
    if (state.isEmpty()) {
        outlineExpandedHash.clear();
        return;
    }
    QDataStream stream(&state, QIODevice::ReadOnly);
    quint32 count = 0;
    stream >> count;
    // A count that the bytes cannot hold would have the hash reserve memory for nothing.
    const qint64 bytes = state.size() - HASH_COUNT_BYTES;
    if (stream.status() != QDataStream::Ok || qint64(count) * SHORTEST_ENTRY_BYTES > bytes)
        return;
    stream.device()->seek(0);
    QMultiHash<QString, QString> restored;
    stream >> restored;
    if (stream.status() == QDataStream::Ok)
        outlineExpandedHash = restored;
}
