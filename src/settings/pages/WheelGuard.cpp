#include "settings/pages/WheelGuard.h"

#include <QEvent>
#include <QWidget>

namespace {

class WheelGuard : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::Wheel || static_cast<QWidget*>(watched)->hasFocus())
            return false;
        event->ignore();
        return true;
    }
};

} // namespace

void GuardFromWheel(QWidget* field)
{
    field->setFocusPolicy(Qt::StrongFocus);
    field->installEventFilter(new WheelGuard(field));
}
