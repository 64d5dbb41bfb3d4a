#pragma once

#include <QByteArray>

#include <fcntl.h>
#include <vector>

/// Reads one file after the other into one buffer. Used by one thread.
class FileBytes
{
public:
    /// False for what cannot be read, is larger than a text can be, or is no file. A relative path
    /// begins at the folder. Never waits for somebody to write.
    bool Read(const QByteArray& path, int folderDescriptor = AT_FDCWD, int flags = 0);

    const char* GetBegin() const { return m_bytes.data(); }
    const char* GetEnd() const { return m_bytes.data() + m_size; }

private:
    bool ReadAll(int descriptor);

    std::vector<char> m_bytes;
    size_t m_size = 0;
};
