#include "window/BusyLoop.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTimer>
#include <QWindow>

namespace {

bool IsInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::TabletPress:
    case QEvent::TabletRelease:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
    case QEvent::InputMethod:
    case QEvent::Close: return true;
    default: return false;
    }
}

} // namespace

BusyLoop::BusyLoop(QWidget* owner)
    : m_owner(owner)
{ }

BusyLoop::~BusyLoop()
{
    if (m_hasCursor)
        QApplication::restoreOverrideCursor();
    for (const QPointer<QWindow>& window : qAsConst(m_toClose)) {
        if (window)
            QTimer::singleShot(0, window, &QWindow::close);
    }
}

bool BusyLoop::Turn()
{
    if (!m_hasCursor)
        QApplication::setOverrideCursor(Qt::BusyCursor);
    m_hasCursor = true;
    qApp->installEventFilter(this);
    // Watched files and the like can wait.
    QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers);
    qApp->removeEventFilter(this);
    return !IsCancelled();
}

bool BusyLoop::eventFilter(QObject* watched, QEvent* event)
{
    if (!IsInput(event->type()) || QApplication::activeModalWidget())
        return QObject::eventFilter(watched, event);
    const bool isKey
        = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (isKey && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape)
        m_isCancelled = true;
    if (event->type() == QEvent::Close) {
        auto* const window = qobject_cast<QWindow*>(watched);
        // What scripts close is theirs.
        if (!window || !event->spontaneous())
            return QObject::eventFilter(watched, event);
        m_isCancelled = true;
        m_toClose.append(window);
        event->ignore();
    }
    return true;
}
