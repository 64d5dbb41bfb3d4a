#include "ui/window/EscapeWatcher.h"

#include "engine/Engine.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace host::ui {

namespace {

/// So that a flood of other events cannot hold up the script for long.
constexpr int LONGEST_PAUSE_MS = 20;

bool IsUserInput(QEvent::Type type)
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
    case QEvent::NonClientAreaMouseButtonPress:
    case QEvent::Wheel:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
    case QEvent::ContextMenu:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
    case QEvent::InputMethod:
    case QEvent::Close: return true;
    default: return false;
    }
}

} // namespace

EscapeWatcher::EscapeWatcher(Engine& engine, QObject* parent)
    : QObject(parent)
    , m_engine(engine)
{
    engine.interrupt.hook = [this] { ProcessEvents(); };
}

EscapeWatcher::~EscapeWatcher()
{
    m_engine.interrupt.hook = nullptr;
}

void EscapeWatcher::ProcessEvents()
{
    qApp->installEventFilter(this);
    m_escapePressed = false;
    QCoreApplication::processEvents(QEventLoop::AllEvents, LONGEST_PAUSE_MS);
    qApp->removeEventFilter(this);
    const auto cancel = m_engine.interrupt.cancel;
    if (m_escapePressed && !(cancel && cancel()))
        m_engine.interrupt.Request();
}

bool EscapeWatcher::eventFilter(QObject*, QEvent* event)
{
    if (!IsUserInput(event->type()))
        return false;
    // Where some action has Escape as its shortcut, only the override is seen.
    const bool isKey
        = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (isKey && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape)
        m_escapePressed = true;
    if (event->type() == QEvent::Close)
        event->ignore();
    return true;
}

} // namespace host::ui
