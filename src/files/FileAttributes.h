#pragma once

class QByteArray;
struct stat;

/// What a file is besides its bytes: owner, group, permissions, access lists, extended attributes.
namespace FileAttributes {

/// Gives the new file behind `descriptor` what the file at `path` has, whose state is `old`. False
/// when something that people would miss cannot be given to it.
bool Copy(const QByteArray& path, const struct stat& old, int descriptor);

} // namespace FileAttributes
