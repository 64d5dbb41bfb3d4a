#include "commands/HelpRequests.h"

#include "commands/Session.h"

namespace host::commands {

HelpRequests& HelpRequests::Current()
{
    return Session::Current().helpRequests;
}

void HelpRequests::Add(const HelpRequest& request)
{
    m_requests += request;
    if (m_requests.size() > MAXIMUM_COUNT)
        m_requests.removeFirst();
    if (changed)
        changed(request);
}

} // namespace host::commands
