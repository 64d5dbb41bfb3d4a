#include "files/DiskContents.h"

#include "files/FileText.h"

#include <QDateTime>

namespace {

/// Two writes so close to each other may have the same time on the slowest clocks of file systems.
constexpr qint64 CLOCK_STEP = 2000000000; // ns
/// Larger ones are not read again for that.
constexpr qint64 LARGE_FILE = 8 * 1024 * 1024; // bytes

qint64 Now()
{
    return QDateTime::currentMSecsSinceEpoch() * 1000000;
}

} // namespace

void DiskContents::Stamp(Known& known, const QString& path)
{
    known.stamped = Now();
    known.stamp = FileStamp::Of(path);
}

bool DiskContents::MayHaveBeenWrittenSince(const Known& known)
{
    return known.stamp.isFile && known.stamp.size < LARGE_FILE
        && known.stamped - known.stamp.changed < CLOCK_STEP;
}

void DiskContents::Set(const QString& path, const QByteArray& fingerprint)
{
    Known known;
    known.fingerprint = fingerprint;
    Stamp(known, path);
    m_known.insert(path, known);
}

void DiskContents::Move(const QString& from, const QString& to)
{
    if (from != to && m_known.contains(from))
        m_known.insert(to, m_known.take(from));
}

void DiskContents::Remove(const QString& path)
{
    m_known.remove(path);
}

QByteArray DiskContents::GetFingerprint(const QString& path) const
{
    return m_known.value(path).fingerprint;
}

DiskContents::Change DiskContents::TakeChange(const QString& path)
{
    const auto found = m_known.find(path);
    if (found == m_known.end())
        return Change::None;
    Known& known = *found;
    const FileStamp stamp = FileStamp::Of(path);
    if (stamp == known.stamp && !MayHaveBeenWrittenSince(known))
        return Change::None;
    // Before it is read: what comes in between is found the next time.
    Stamp(known, path);
    const QByteArray content = known.stamp.isFile ? FileText::Fingerprint(path) : QByteArray();
    const Change last = known.last;
    known.last = !known.stamp.isFile ? Change::Gone
        : content.isEmpty()          ? Change::Unreadable
                                     : Change::None;
    if (known.last != Change::None)
        return known.last == last ? Change::None : known.last;
    const bool isSame = content == known.fingerprint && last != Change::Gone;
    known.fingerprint = content;
    return isSame ? Change::None : Change::Content;
}
