#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

#include <atomic>

/// What the workspace shows of a folder. Free of widgets; any thread.
namespace FolderListing {

struct Entry
{
    QString name;
    bool folder = false;
    /// Whether there is something to look into: not so for a link to a folder above itself.
    bool expandable = false;
};

struct Listing
{
    QVector<Entry> entries; ///< folders first, then files, each in natural order
    bool absent = false; ///< there is no such folder
    QString fault; ///< why it could not be read, for people; empty when it could
};

/// Gives up, with whatever there is by then, once `cancelled` is set.
Listing Read(
    const QString& path, bool hideCompiledPython, const std::atomic<bool>* cancelled = nullptr);

bool IsCompiledPython(const QString& name, bool folder);

/// Folders before files, each in natural order.
bool Less(const Entry& left, const Entry& right);

/// How an expanded folder is remembered: 16 bytes made of its absolute path.
QByteArray Hash(const QString& path);

} // namespace FolderListing

Q_DECLARE_TYPEINFO(FolderListing::Entry, Q_MOVABLE_TYPE);
