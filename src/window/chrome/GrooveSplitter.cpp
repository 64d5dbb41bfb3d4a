#include "window/chrome/GrooveSplitter.h"

#include "window/chrome/LookFollower.h"
#include "window/chrome/Theme.h"

#include <QMouseEvent>
#include <QSplitterHandle>

namespace {

constexpr int GRAB_WIDTH = 4; // design pixels

/// The margins belong to the handle for the pointer only: the splitter leaves them out of its
/// layout and the mask out of the picture.
class GrooveHandle : public QSplitterHandle
{
public:
    explicit GrooveHandle(GrooveSplitter* splitter)
        : QSplitterHandle(splitter->orientation(), splitter)
        , m_splitter(splitter)
    { }

    void UpdateMargins()
    {
        const int grab = qMax(0, Theme::Dp(GRAB_WIDTH) - m_splitter->handleWidth());
        const int before = m_splitter->GrabsBefore() ? grab : 0;
        const int behind = grab - before;
        if (orientation() == Qt::Horizontal)
            setContentsMargins(before, 0, behind, 0);
        else
            setContentsMargins(0, before, 0, behind);
        setAttribute(Qt::WA_MouseNoMask);
        setMask(contentsRect());
    }

protected:
    void resizeEvent(QResizeEvent* event) override
    {
        UpdateMargins();
        QWidget::resizeEvent(event);
    }

    /// The base class takes the margin before the groove for a part of the way.
    void mouseMoveEvent(QMouseEvent* event) override
    {
        const QPoint margin(contentsMargins().left(), contentsMargins().top());
        QMouseEvent moved(event->type(), event->localPos() + margin, event->windowPos() + margin,
            event->screenPos() + margin, event->button(), event->buttons(), event->modifiers(),
            event->source());
        QSplitterHandle::mouseMoveEvent(&moved);
    }

private:
    GrooveSplitter* m_splitter;
};

} // namespace

GrooveSplitter::GrooveSplitter(Qt::Orientation orientation, QWidget* parent)
    : QSplitter(orientation, parent)
{
    FollowLook(this, [this] { UpdateHandleWidth(); });
}

void GrooveSplitter::SetGrabsBefore(bool before)
{
    m_grabsBefore = before;
    for (int i = 0; i < count(); ++i)
        static_cast<GrooveHandle*>(handle(i))->UpdateMargins();
}

void GrooveSplitter::UpdateHandleWidth()
{
    setHandleWidth(Theme::Hairline());
    SetGrabsBefore(m_grabsBefore);
}

QSplitterHandle* GrooveSplitter::createHandle()
{
    return new GrooveHandle(this);
}
