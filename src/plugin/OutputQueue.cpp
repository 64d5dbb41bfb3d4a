#include "plugin/OutputQueue.h"

#include <QCoreApplication>
#include <QEvent>
#include <QThread>

#include <utility>

OutputQueue::OutputQueue(Show show)
    : m_show(std::move(show))
{ }

void OutputQueue::Append(const OutputText& text)
{
    if (QThread::currentThread() != thread()) {
        QMetaObject::invokeMethod(
            this, [this, text] { m_show(text); }, Qt::QueuedConnection);
        return;
    }
    // What other threads printed before this text comes before it, too.
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
    m_show(text);
}
