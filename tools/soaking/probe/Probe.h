#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QObject>
#include <QSocketNotifier>

/// Tells tools/soak how the process is: reads one request per line from a descriptor and answers
/// each with one line of JSON on another one. Requests are served by the event loop, so that an
/// answer also says that the interface is alive, inside dialogs as well.
///
///   look               what is to be seen, and where (Sights)
///   areas              every widget that is shown
///   memory             what the process holds on to
///   provoke <fault>    crash, hang, leak, warning or quit, for the soak's own check
class Probe : public QObject
{
    Q_OBJECT

public:
    Probe(int requests, int answers);

private:
    void Read();
    QJsonObject Answer(const QByteArray& request);
    void Write(const QJsonObject& answer) const;

    const int m_requests; ///< file descriptors, of the process that started us
    const int m_answers;
    QSocketNotifier m_notifier;
    QByteArray m_pending; ///< what came of a request so far
};
