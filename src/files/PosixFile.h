#pragma once

#include <QByteArray>

#include <sys/types.h>

/// An open file of the operating system, closed with the object. Where the toolkit's files hide
/// what happened, these leave the reason in `errno`. Any thread, one at a time.
class PosixFile
{
public:
    PosixFile() = default;
    PosixFile(const QByteArray& path, int flags, mode_t mode = 0);
    ~PosixFile();
    PosixFile(PosixFile&& other) noexcept;
    PosixFile& operator=(PosixFile&& other) noexcept;

    bool IsOpen() const { return m_descriptor >= 0; }
    int GetDescriptor() const { return m_descriptor; }
    /// From where the file stands.
    bool WriteAll(const QByteArray& bytes);
    bool ReadAll(QByteArray& bytes);
    /// Makes `bytes` all that the file holds, on the disk too. Torn when it fails.
    bool WriteOver(const QByteArray& bytes);
    /// Returns when the bytes are on the disk.
    bool Sync();
    void Close();

private:
    int m_descriptor = -1;
};
