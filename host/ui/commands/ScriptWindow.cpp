#include "ui/commands/ScriptWindow.h"

#include "engine/Engine.h"
#include "ui/commands/Control.h"

#include <QApplication>
#include <QCloseEvent>
#include <QScreen>
#include <QSettings>
#include <QVBoxLayout>

namespace host::ui {

namespace {

QString PreferencesFile()
{
    return Engine::Current().paths.PreferencesDirectory() + QLatin1String("/windowPrefs.ini");
}

} // namespace

ScriptWindow::ScriptWindow(Element& element, QWidget* parent)
    : QMainWindow(parent, Qt::Window)
    , m_element(&element)
{
    auto* content = new QWidget(this);
    auto* fill = new QVBoxLayout(content);
    fill->setContentsMargins(0, 0, 0, 0);
    setCentralWidget(content);
    setWindowTitle(element.GetName());
    connect(qApp, &QCoreApplication::aboutToQuit, this, &ScriptWindow::Remember);
}

void ScriptWindow::Present()
{
    if (!m_presented) {
        m_presented = true;
        const bool sized = m_element && m_element->values.contains(QStringLiteral("width"));
        const bool recalled = !m_hasOwnPlace && Recall();
        if (!recalled && !sized)
            adjustSize();
        if (!recalled && !m_hasOwnPlace && parentWidget())
            move(parentWidget()->frameGeometry().center() - rect().center());
    }
    show();
    raise();
    activateWindow();
}

bool ScriptWindow::Recall()
{
    const QSettings settings(PreferencesFile(), QSettings::IniFormat);
    const QRect place = settings.value(objectName()).toRect();
    if (!place.isValid() || !QGuiApplication::screenAt(place.center()))
        return false;
    setGeometry(place);
    return true;
}

void ScriptWindow::Remember() const
{
    // Names given by the host itself mean another window next time.
    const bool named
        = !objectName().isEmpty() && !objectName().at(objectName().size() - 1).isDigit();
    if (!m_presented || !named)
        return;
    QSettings settings(PreferencesFile(), QSettings::IniFormat);
    settings.setValue(objectName(), isMaximized() ? normalGeometry() : geometry());
}

bool ScriptWindow::event(QEvent* event)
{
    if (event->type() == QEvent::StatusTip && parentWidget())
        return QCoreApplication::sendEvent(parentWidget(), event);
    return QMainWindow::event(event);
}

void ScriptWindow::closeEvent(QCloseEvent* event)
{
    Remember();
    QMainWindow::closeEvent(event);
    if (!m_element)
        return;
    m_element->RunCallback(QStringLiteral("closeCommand"));
    if (m_element && !Stored(*m_element, "retain", false).ToBool())
        InterfaceModel::Current().Delete(m_element);
}

} // namespace host::ui
