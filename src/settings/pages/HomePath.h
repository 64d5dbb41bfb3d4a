#pragma once

#include <QString>

/// The path with the home folder for a "~" at its beginning, as a shell has it: programs and files
/// are not opened by a shell here.
QString WithHomeFolder(const QString& path);
