#pragma once

#include <QString>
#include <QVector>

#include <functional>

namespace host::commands {

/// What a script asked the host to show of its documentation.
struct HelpRequest
{
    enum class Kind { Topic, Docs, Address, Table };

    Kind kind = Kind::Topic;
    QString target; ///< the topic, a page below the documentation's folder, or an address
};

/// Requests for documentation, in order. This host has no pages to show: the window tells in its
/// help line what was asked for. Main thread only.
class HelpRequests
{
public:
    static HelpRequests& Current();

    void Add(const HelpRequest& request);
    const QVector<HelpRequest>& All() const { return m_requests; }

    /// Called after each request; set by the window.
    std::function<void(const HelpRequest&)> changed;

    /// Older ones are forgotten.
    static constexpr int MAXIMUM_COUNT = 100;

private:
    QVector<HelpRequest> m_requests;
};

} // namespace host::commands
