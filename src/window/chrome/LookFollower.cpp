#include "window/chrome/LookFollower.h"

#include <QEvent>
#include <QWidget>

#include <utility>

namespace {

class LookFollower : public QObject
{
public:
    LookFollower(QWidget* widget, std::function<void()> apply)
        : QObject(widget)
        , m_apply(std::move(apply))
    {
        widget->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::StyleChange || event->type() == QEvent::FontChange)
            m_apply();
        return false;
    }

private:
    std::function<void()> m_apply;
};

} // namespace

void FollowLook(QWidget* widget, std::function<void()> apply)
{
    apply();
    new LookFollower(widget, std::move(apply));
}
