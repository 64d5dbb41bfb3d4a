#include "ui/workspace/FloatingWindow.h"

#include "ui/window/HostColors.h"
#include "ui/workspace/DockArea.h"
#include "ui/workspace/FloatingTitleBar.h"
#include "ui/workspace/ResizeGrip.h"
#include "ui/workspace/WorkspacePanel.h"

#include <QCloseEvent>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>

namespace host::ui {

namespace {

constexpr int EDGE = 1;
const QColor EDGE_COLOR(0x1f, 0x20, 0x21);
const QSize SMALLEST(160, FloatingTitleBar::HEIGHT + 2 * EDGE);

} // namespace

FloatingWindow::FloatingWindow(QWidget* mainWindow)
    // Window managers keep dialogs, and no plain windows, in front of the window they belong to.
    : QWidget(mainWindow, Qt::Dialog | Qt::FramelessWindowHint)
    , m_title(new FloatingTitleBar(this))
    , m_area(new DockArea(this))
{
    setObjectName(QStringLiteral("floatingWindow"));
    setMinimumSize(SMALLEST);
    m_area->SetTabsHiddenForOne(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(EDGE, EDGE, EDGE, EDGE);
    layout->setSpacing(0);
    layout->addWidget(m_title);
    layout->addWidget(m_area, 1);
    ResizeGrip::AddTo(this);
    connect(m_title, &FloatingTitleBar::Dragged, this, &FloatingWindow::OnDragged);
    connect(m_title, &FloatingTitleBar::DoubleClicked, this, &FloatingWindow::DockRequested);
    connect(m_title, &FloatingTitleBar::MenuRequested, this, &FloatingWindow::MenuRequested);
    connect(m_title, &FloatingTitleBar::CloseClicked, this, &FloatingWindow::CloseRequested);
    connect(
        m_title, &FloatingTitleBar::CollapseClicked, this, [this] { SetCollapsed(!m_collapsed); });
    connect(m_title, &FloatingTitleBar::FillClicked, this, [this] { SetFilling(!m_filling); });
    connect(m_area, &DockArea::Changed, this, &FloatingWindow::UpdateTitle);
}

FloatingWindow* FloatingWindow::Of(const DockArea* area)
{
    return area ? qobject_cast<FloatingWindow*>(area->parentWidget()) : nullptr;
}

void FloatingWindow::UpdateTitle()
{
    const WorkspacePanel* panel = m_area->CurrentPanel();
    if (!panel) {
        hide();
        deleteLater();
        return;
    }
    setWindowTitle(panel->GetLabel());
    setWindowIcon(panel->GetIcon());
    m_title->update();
}

void FloatingWindow::SetCollapsed(bool collapsed)
{
    if (collapsed == m_collapsed)
        return;
    if (collapsed)
        m_normalGeometry = NormalGeometry();
    m_collapsed = collapsed;
    m_title->SetCollapsed(collapsed);
    m_area->setVisible(!collapsed);
    setMaximumHeight(collapsed ? FloatingTitleBar::HEIGHT + 2 * EDGE : QWIDGETSIZE_MAX);
    if (collapsed)
        resize(width(), FloatingTitleBar::HEIGHT + 2 * EDGE);
    else
        resize(width(), m_normalGeometry.height());
    Q_EMIT GeometryChanged();
}

void FloatingWindow::SetFilling(bool filling)
{
    if (filling == m_filling)
        return;
    SetCollapsed(false);
    if (filling)
        m_normalGeometry = geometry();
    m_filling = filling;
    setGeometry(filling ? screen()->availableGeometry() : m_normalGeometry);
    m_title->SetFilling(filling);
    Q_EMIT GeometryChanged();
}

QRect FloatingWindow::NormalGeometry() const
{
    if (m_filling)
        return m_normalGeometry;
    return m_collapsed ? QRect(pos(), QSize(width(), m_normalGeometry.height())) : geometry();
}

void FloatingWindow::SetNormalGeometry(const QRect& geometry)
{
    m_normalGeometry = geometry;
    m_filling = false;
    m_title->SetFilling(false);
    if (m_collapsed)
        setGeometry(QRect(geometry.topLeft(), QSize(geometry.width(), height())));
    else
        setGeometry(geometry);
}

void FloatingWindow::StartMove(const QPoint& pointer)
{
    const QPoint offset(qMin(120, width() / 2), FloatingTitleBar::HEIGHT / 2);
    m_moving = true;
    move(pointer - offset);
    m_title->StartDrag(offset);
}

void FloatingWindow::LeaveFilling()
{
    if (!m_filling)
        return;
    m_filling = false;
    m_title->SetFilling(false);
    resize(m_normalGeometry.size());
}

void FloatingWindow::OnDragged(const QPoint& pointer, const QPoint& offset, bool dropped)
{
    m_moving = !dropped;
    if (!dropped) {
        LeaveFilling();
        move(pointer - QPoint(qMin(offset.x(), width() - 1), offset.y()));
    }
    Q_EMIT Dragged(pointer, dropped);
    // Dropped onto a dock it is empty by now, and keeps the place it had.
    if (dropped && m_area->Count() > 0)
        NoteGeometry();
}

void FloatingWindow::NoteGeometry()
{
    if (!m_moving)
        Q_EMIT GeometryChanged();
}

void FloatingWindow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), EDGE_COLOR);
}

void FloatingWindow::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    NoteGeometry();
}

void FloatingWindow::moveEvent(QMoveEvent* event)
{
    QWidget::moveEvent(event);
    NoteGeometry();
}

void FloatingWindow::closeEvent(QCloseEvent* event)
{
    // The panels decide what becomes of them.
    event->ignore();
    Q_EMIT CloseRequested();
}

} // namespace host::ui
