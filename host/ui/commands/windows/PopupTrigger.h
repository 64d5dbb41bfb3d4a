#pragma once

#include <QObject>

class QMenu;
class QWidget;

namespace host::ui {

/// Opens a pop-up menu when its mouse button is pressed on a control with the right modifier keys.
/// Owned by the menu.
class PopupTrigger : public QObject
{
    Q_OBJECT
public:
    PopupTrigger(QMenu* menu, QWidget* control);

    void SetButton(Qt::MouseButton button) { m_button = button; }
    Qt::MouseButton GetButton() const { return m_button; }
    void SetModifier(Qt::KeyboardModifier modifier, bool wanted)
    {
        m_modifiers.setFlag(modifier, wanted);
    }
    bool HasModifier(Qt::KeyboardModifier modifier) const { return m_modifiers.testFlag(modifier); }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QMenu* m_menu; ///< not owned; the parent
    Qt::MouseButton m_button = Qt::RightButton;
    Qt::KeyboardModifiers m_modifiers = Qt::NoModifier;
};

} // namespace host::ui
