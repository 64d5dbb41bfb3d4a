#include "ui/commands/windows/ScriptWindow.h"

#include "engine/Engine.h"
#include "ui/commands/Control.h"

#include <QApplication>
#include <QCloseEvent>
#include <QScreen>
#include <QScrollArea>
#include <QSettings>
#include <QVBoxLayout>

namespace host::ui {

namespace {

/// Of the screen; windows that need more scroll.
constexpr double LARGEST_SHARE = 0.9;

} // namespace

QString ScriptWindow::PreferencesFile()
{
    return Engine::Current().paths.PreferencesDirectory() + QLatin1String("/windowPrefs.ini");
}

ScriptWindow::ScriptWindow(Element& element, QWidget* parent)
    : QMainWindow(parent, Qt::Window)
    , m_element(&element)
    , m_content(new QWidget)
{
    auto* fill = new QVBoxLayout(m_content);
    fill->setContentsMargins(0, 0, 0, 0);
    auto* area = new QScrollArea(this);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    area->setWidget(m_content);
    setCentralWidget(area);
    m_content->installEventFilter(this);
    setWindowTitle(element.GetName());
    connect(qApp, &QCoreApplication::aboutToQuit, this, &ScriptWindow::Remember);
}

void ScriptWindow::Present()
{
    if (!m_presented) {
        m_presented = true;
        const bool sized = m_element && m_element->values.contains(QStringLiteral("width"));
        const bool recalled = !m_hasOwnPlace && m_sizeable && Recall();
        const QRect available = screen()->availableGeometry();
        if (!recalled)
            resize(sized ? size().boundedTo(available.size()) : NaturalSize());
        if (!m_sizeable)
            setFixedSize(size());
        if (!recalled && !m_hasOwnPlace && parentWidget()) {
            const QPoint place = parentWidget()->frameGeometry().center() - rect().center();
            move(qMax(place.x(), available.left()), qMax(place.y(), available.top()));
        }
    }
    show();
    raise();
    activateWindow();
}

QSize ScriptWindow::NaturalSize() const
{
    const QWidget* bar = menuWidget();
    const int barHeight = bar && !bar->isHidden() ? bar->sizeHint().height() : 0;
    const QSize needed = m_content->sizeHint().expandedTo(m_content->minimumSizeHint());
    return (needed + QSize(0, barHeight)).boundedTo(screen()->availableSize() * LARGEST_SHARE);
}

void ScriptWindow::SetFitting(bool fits)
{
    m_fits = fits;
    if (fits && m_presented)
        resize(NaturalSize());
}

void ScriptWindow::SetSizeable(bool sizeable)
{
    m_sizeable = sizeable;
    if (!m_presented)
        return;
    if (!sizeable) {
        setFixedSize(size());
        return;
    }
    setMinimumSize(0, 0);
    setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
}

bool ScriptWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_content && event->type() == QEvent::LayoutRequest && m_fits && m_presented)
        resize(NaturalSize());
    return QMainWindow::eventFilter(watched, event);
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
