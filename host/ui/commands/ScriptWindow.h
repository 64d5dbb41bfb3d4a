#pragma once

#include "ui/model/Element.h"

#include <QMainWindow>

namespace host::ui {

/// A window that a script makes. Closing it runs its close command and removes it, unless it is
/// retained; its size and place are remembered under its name.
class ScriptWindow : public QMainWindow
{
    Q_OBJECT
public:
    ScriptWindow(Element& element, QWidget* parent);

    /// Shows it where it was last time, or in its asked or natural size, and brings it to the
    /// front.
    void Present();
    /// Writes size and place to the preferences. Nothing for a window that was never shown.
    void Remember() const;
    /// Keeps the first Present from going back to the remembered place.
    void ChooseOwnPlace() { m_hasOwnPlace = true; }

    /// What a control says about itself goes to the main window's help line.
    bool event(QEvent* event) override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    bool Recall();

    QPointer<Element> m_element;
    bool m_presented = false;
    bool m_hasOwnPlace = false;
};

} // namespace host::ui
