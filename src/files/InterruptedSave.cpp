#include "files/InterruptedSave.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QMutex>
#include <QUuid>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace {

constexpr mode_t PRIVATE_FILE = 0600;
const QLatin1String SUFFIX(".save");
const QByteArray FORMAT = QByteArrayLiteral("TarnwickEditor2-save 1");

struct Contents
{
    QByteArray target; ///< the path
    QByteArray before;
    QByteArray after;
};

QMutex folderMutex;

QString& Folder()
{
    static QString folder;
    return folder;
}

QString GetFolder()
{
    const QMutexLocker locker(&folderMutex);
    return Folder();
}

QByteArray Checksum(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1);
}

QByteArray Encode(const Contents& contents)
{
    QByteArray body;
    QDataStream stream(&body, QIODevice::WriteOnly);
    stream << contents.target << contents.before << contents.after;
    return FORMAT + Checksum(body) + body;
}

/// False for what was cut short itself: then nothing was written over yet.
bool Decode(const QByteArray& bytes, Contents& contents)
{
    const int start = FORMAT.size() + Checksum({}).size();
    const QByteArray body = bytes.mid(start);
    if (bytes.left(start) != FORMAT + Checksum(body))
        return false;
    QDataStream stream(body);
    stream >> contents.target >> contents.before >> contents.after;
    return stream.status() == QDataStream::Ok;
}

/// Whether writing one content over the other can have left this.
bool IsTorn(const QByteArray& content, const Contents& contents)
{
    const auto& [target, before, after] = contents;
    const auto [smallest, largest] = std::minmax({before.size(), after.size()});
    if (content == before || content == after || content.size() < smallest
        || content.size() > largest)
        return false;
    const auto isAt = [](const QByteArray& bytes, int position, char byte) {
        return position < bytes.size() && bytes.at(position) == byte;
    };
    for (int i = 0; i < content.size(); ++i) {
        if (!isAt(after, i, content.at(i)) && !isAt(before, i, content.at(i)))
            return false;
    }
    return true;
}

enum class Outcome {
    Nothing, ///< to be done
    Mended,
    Failed,
};

Outcome Finish(const Contents& contents)
{
    QByteArray content;
    PosixFile reader(contents.target, O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
    if (!reader.IsOpen())
        return errno == ENOENT ? Outcome::Nothing : Outcome::Failed;
    if (!reader.ReadAll(content))
        return Outcome::Failed;
    if (!IsTorn(content, contents))
        return Outcome::Nothing;
    PosixFile file(contents.target, O_WRONLY | O_NOFOLLOW | O_NONBLOCK);
    return file.IsOpen() && file.WriteOver(contents.after) ? Outcome::Mended : Outcome::Failed;
}

} // namespace

InterruptedSave::InterruptedSave(
    const QByteArray& target, const QByteArray& before, const QByteArray& after)
{
    const QString folder = GetFolder();
    if (folder.isEmpty() || !QDir().mkpath(folder))
        return;
    const QString name = QUuid::createUuid().toString(QUuid::WithoutBraces);
    const QByteArray path = QFile::encodeName(QStringLiteral("%1/%2").arg(folder, name) + SUFFIX);
    TemporaryFile::RemoveLeftovers(TemporaryFile::FolderOf(path));
    m_file = std::make_unique<TemporaryFile>(path, PRIVATE_FILE);
    PosixFile& file = m_file->GetFile();
    if (file.IsOpen() && file.WriteAll(Encode({target, before, after})) && file.Sync()
        && m_file->MoveTo(path))
        m_path = path;
    else
        m_file.reset();
}

InterruptedSave::~InterruptedSave()
{
    const int reason = errno;
    if (!m_path.isEmpty() && !m_isKept) {
        ::unlink(m_path.constData());
        QDir().rmdir(GetFolder()); // unless there are others
    }
    errno = reason;
}

void InterruptedSave::SetFolder(const QString& folder)
{
    const QMutexLocker locker(&folderMutex);
    Folder() = folder;
}

QStringList InterruptedSave::FinishAll()
{
    QStringList mended;
    const QString folder = GetFolder();
    const QDir directory(folder);
    const QStringList names = folder.isEmpty()
        ? QStringList()
        : directory.entryList({QLatin1Char('*') + SUFFIX}, QDir::Files | QDir::NoSymLinks);
    for (const QString& name : names) {
        const QByteArray path = QFile::encodeName(directory.filePath(name));
        PosixFile file(path, O_RDONLY | O_NOFOLLOW);
        // A process that lives will finish its own.
        if (!file.IsOpen() || ::flock(file.GetDescriptor(), LOCK_EX | LOCK_NB) != 0)
            continue;
        QByteArray bytes;
        Contents contents;
        const Outcome outcome
            = file.ReadAll(bytes) && Decode(bytes, contents) ? Finish(contents) : Outcome::Nothing;
        if (outcome == Outcome::Mended)
            mended.append(QFile::decodeName(contents.target));
        if (outcome != Outcome::Failed)
            ::unlink(path.constData());
    }
    if (!names.isEmpty())
        QDir().rmdir(folder);
    return mended;
}
