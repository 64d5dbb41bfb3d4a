#pragma once

#include "ui/model/Element.h"

#include <QMainWindow>

namespace host::ui {

/// A window that a script makes. Closing it runs its close command and removes it, unless it is
/// retained; its size and place are remembered under its name. What does not fit into it scrolls.
class ScriptWindow : public QMainWindow
{
    Q_OBJECT
public:
    ScriptWindow(Element& element, QWidget* parent);

    /// Where layouts are put.
    QWidget* GetContent() const { return m_content; }
    /// Follows the size of what is in it.
    void SetFitting(bool fits);
    bool IsFitting() const { return m_fits; }
    /// Whether a person may change the size; counts from when it is shown.
    void SetSizeable(bool sizeable);
    /// The file that remembers the windows' places by their names.
    static QString PreferencesFile();

    /// Shows it where it was last time, or in its asked or natural size, and brings it to the
    /// front.
    void Present();
    /// Writes size and place to the preferences. Nothing for a window that was never shown.
    void Remember() const;
    /// Keeps the first Present from going back to the remembered place.
    void ChooseOwnPlace() { m_hasOwnPlace = true; }

    /// What a control says about itself goes to the main window's help line.
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    bool Recall();
    /// As large as the content needs, or as the screen allows.
    QSize NaturalSize() const;

    QPointer<Element> m_element;
    QWidget* m_content;
    bool m_fits = false;
    bool m_sizeable = true;
    bool m_presented = false;
    bool m_hasOwnPlace = false;
};

} // namespace host::ui
