#include "engine/Interrupt.h"

namespace host {

bool Interrupt::Poll()
{
    if (m_requested)
        return true;
    if (!m_sincePoll.isValid())
        m_sincePoll.start();
    if (m_polling || !hook || m_sincePoll.elapsed() < POLL_INTERVAL_MS)
        return false;
    m_polling = true;
    hook();
    m_polling = false;
    m_sincePoll.restart();
    return m_requested;
}

} // namespace host
