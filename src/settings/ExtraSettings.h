#pragma once

#include <QVariant>

/// Options in a file of their own beside the user's configuration, which stays as others read and
/// write it. Interface thread only.
class ExtraSettings
{
public:
    /// What is absent or does not parse has its default.
    static void ReadUserConfig();
    static void WriteUserConfig();
    /// Empty when the host has no preferences directory.
    static QString GetUserConfigPath();
    /// Invalid when there is no option of that key.
    static QVariant GetDefault(const QString& key);

    /// A file that has an encoding or line ends of its own is saved with them; nobody is asked.
    inline static bool keepEncodingAndLineEnds = false;
};
