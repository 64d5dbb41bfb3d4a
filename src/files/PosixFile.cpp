#include "files/PosixFile.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr int READ_STEP = 1024 * 1024; // bytes
/// The kernel moves no more at once anyway.
constexpr int WRITE_STEP = 1024 * 1024 * 1024;

/// Repeats a call that a signal interrupted.
template <class Call>
auto Retry(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

} // namespace

PosixFile::PosixFile(const QByteArray& path, int flags, mode_t mode)
    : m_descriptor(Retry([&] { return ::open(path.constData(), flags | O_CLOEXEC, mode); }))
{ }

PosixFile::~PosixFile()
{
    Close();
}

PosixFile::PosixFile(PosixFile&& other) noexcept
    : m_descriptor(std::exchange(other.m_descriptor, -1))
{ }

PosixFile& PosixFile::operator=(PosixFile&& other) noexcept
{
    std::swap(m_descriptor, other.m_descriptor);
    return *this;
}

bool PosixFile::WriteAll(const QByteArray& bytes)
{
    int written = 0;
    while (written < bytes.size()) {
        const ssize_t step = Retry([&] {
            return ::write(m_descriptor, bytes.constData() + written,
                std::min(bytes.size() - written, WRITE_STEP));
        });
        if (step <= 0) {
            errno = step < 0 ? errno : ENOSPC;
            return false;
        }
        written += static_cast<int>(step);
    }
    return true;
}

bool PosixFile::ReadAll(QByteArray& bytes)
{
    bytes.clear();
    for (;;) {
        const int length = bytes.size();
        bytes.resize(length + READ_STEP);
        const ssize_t step
            = Retry([&] { return ::read(m_descriptor, bytes.data() + length, READ_STEP); });
        bytes.resize(length + static_cast<int>(std::max<ssize_t>(step, 0)));
        if (step <= 0)
            return step == 0;
    }
}

bool PosixFile::WriteOver(const QByteArray& bytes)
{
    return ::lseek(m_descriptor, 0, SEEK_SET) == 0 && WriteAll(bytes)
        && ::ftruncate(m_descriptor, bytes.size()) == 0 && Sync();
}

bool PosixFile::Sync()
{
    // A pipe or a device has nothing to wait for.
    return Retry([&] { return ::fdatasync(m_descriptor); }) == 0 || errno == EINVAL
        || errno == ENOTSUP;
}

void PosixFile::Close()
{
    // The reason of an earlier failure is still to be told.
    const int reason = errno;
    if (IsOpen())
        ::close(std::exchange(m_descriptor, -1));
    errno = reason;
}
