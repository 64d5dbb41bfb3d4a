#pragma once

#include <QHash>
#include <QStringList>
#include <QVector>

#include <functional>
#include <memory>

namespace host {

/// The named events that scripts and plug-ins can wait for. Main thread only.
class Events
{
public:
    using Handler = std::function<void()>;

    static const QStringList& Names();

    /// Id of the handler, never 0; 0 for an unknown event.
    int Add(const QString& event, Handler handler);
    bool Remove(int id);
    /// Calls the handlers in the order they were added. One removed meanwhile is not called.
    void Fire(const QString& event);

private:
    struct Entry
    {
        int id = 0;
        std::shared_ptr<Handler> handler;
    };

    QHash<QString, QVector<Entry>> m_handlers;
    int m_lastId = 0;
};

} // namespace host
