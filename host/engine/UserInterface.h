#pragma once

#include <QString>

class QAction;
class QObject;
class QWidget;

namespace host {

/// What the API and the interpreters need of the host's windows. Implemented by the interface
/// library; absent in batch mode. Main thread only. Widgets returned are not owned.
class UserInterface
{
public:
    virtual ~UserInterface() = default;

    virtual QWidget* MainWindow() const = 0;
    /// By plain name or path "window|layout|control"; `ancestor` (may be null) narrows the search.
    virtual QWidget* FindControl(const QString& name, const QWidget* ancestor) const = 0;
    virtual QWidget* FindLayout(const QString& name, const QWidget* ancestor) const = 0;
    virtual QWidget* FindWindow(const QString& name) const = 0;
    virtual QAction* FindMenuItem(const QString& name) const = 0;
    /// Path of an element; "" when the object is none of the host's.
    virtual QString FullName(const QObject* object) const = 0;
    /// Content widget of the layout or panel that `setParent -q` names; null when there is none.
    virtual QWidget* CurrentParent() const = 0;
    /// Puts a foreign widget under the host's management; its full name, "" on failure.
    virtual QString AddWidget(QWidget* control, QWidget* layout, const QString& type) = 0;
    /// Interface scale: 1.0 at 96 dots per inch.
    virtual double ScaleFactor() const = 0;
};

} // namespace host
