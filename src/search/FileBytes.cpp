#include "search/FileBytes.h"

#include <cerrno>
#include <unistd.h>

namespace {

constexpr size_t FIRST_SIZE = 256 * 1024;
constexpr size_t MAXIMUM_SIZE = 1024 * 1024 * 1024; ///< what a text can hold

} // namespace

bool FileBytes::Read(const QByteArray& path, int folderDescriptor, int flags)
{
    m_size = 0;
    const int descriptor = openat(
        folderDescriptor, path.constData(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK | flags);
    if (descriptor < 0)
        return false;
    const bool isRead = ReadAll(descriptor);
    close(descriptor);
    return isRead;
}

bool FileBytes::ReadAll(int descriptor)
{
    if (m_bytes.empty())
        m_bytes.resize(FIRST_SIZE);
    for (;;) {
        if (m_size == m_bytes.size()) {
            if (m_size == MAXIMUM_SIZE)
                return false;
            m_bytes.resize(m_size * 2);
        }
        const ssize_t count = read(descriptor, m_bytes.data() + m_size, m_bytes.size() - m_size);
        if (count == 0)
            return true;
        if (count < 0 && errno != EINTR)
            return false;
        m_size += count > 0 ? static_cast<size_t>(count) : 0;
    }
}
