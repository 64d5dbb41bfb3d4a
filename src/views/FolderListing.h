#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

/// What the workspace shows of a folder. Free of widgets.
namespace FolderListing {

struct Entry
{
    QString name;
    bool folder = false;
    /// Whether there is something to look into: not so for a link to a folder above itself.
    bool expandable = false;
};

/// Folders first, then files, each in natural order. Empty for a folder that cannot be read.
QVector<Entry> Read(const QString& path, bool hideCompiledPython);

/// How an expanded folder is remembered: 16 bytes made of its absolute path.
QByteArray Hash(const QString& path);

} // namespace FolderListing
