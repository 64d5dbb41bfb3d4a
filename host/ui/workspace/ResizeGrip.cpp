#include "ui/workspace/ResizeGrip.h"

#include <QMouseEvent>

namespace host::ui {

namespace {

constexpr int THICKNESS = 4;
constexpr int CORNER = 12;

Qt::CursorShape CursorFor(Qt::Edges edges)
{
    if (edges == (Qt::LeftEdge | Qt::TopEdge) || edges == (Qt::RightEdge | Qt::BottomEdge))
        return Qt::SizeFDiagCursor;
    if (edges == (Qt::RightEdge | Qt::TopEdge) || edges == (Qt::LeftEdge | Qt::BottomEdge))
        return Qt::SizeBDiagCursor;
    return edges & (Qt::LeftEdge | Qt::RightEdge) ? Qt::SizeHorCursor : Qt::SizeVerCursor;
}

} // namespace

void ResizeGrip::AddTo(QWidget* window)
{
    const Qt::Edges ALL[] = {Qt::LeftEdge, Qt::RightEdge, Qt::TopEdge, Qt::BottomEdge,
        Qt::LeftEdge | Qt::TopEdge, Qt::RightEdge | Qt::TopEdge, Qt::LeftEdge | Qt::BottomEdge,
        Qt::RightEdge | Qt::BottomEdge};
    for (const Qt::Edges edges : ALL)
        new ResizeGrip(window, edges);
}

ResizeGrip::ResizeGrip(QWidget* window, Qt::Edges edges)
    : QWidget(window)
    , m_edges(edges)
{
    setCursor(CursorFor(edges));
    window->installEventFilter(this);
    UpdatePlace();
}

void ResizeGrip::UpdatePlace()
{
    const QRect all = parentWidget()->rect();
    const bool corner = m_edges != Qt::LeftEdge && m_edges != Qt::RightEdge
        && m_edges != Qt::TopEdge && m_edges != Qt::BottomEdge;
    QRect place = all;
    if (corner) {
        place.setSize({THICKNESS + 2, THICKNESS + 2});
        place.moveLeft(m_edges & Qt::LeftEdge ? 0 : all.width() - place.width());
        place.moveTop(m_edges & Qt::TopEdge ? 0 : all.height() - place.height());
    } else if (m_edges & (Qt::LeftEdge | Qt::RightEdge)) {
        place = all.adjusted(0, CORNER, 0, -CORNER);
        place.setWidth(THICKNESS);
        place.moveLeft(m_edges & Qt::LeftEdge ? 0 : all.width() - THICKNESS);
    } else {
        place = all.adjusted(CORNER, 0, -CORNER, 0);
        place.setHeight(THICKNESS);
        place.moveTop(m_edges & Qt::TopEdge ? 0 : all.height() - THICKNESS);
    }
    setGeometry(place);
    raise();
}

bool ResizeGrip::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::Show)
        UpdatePlace();
    return false;
}

void ResizeGrip::mousePressEvent(QMouseEvent* event)
{
    m_pressPosition = event->globalPos();
    m_pressGeometry = window()->geometry();
}

void ResizeGrip::mouseMoveEvent(QMouseEvent* event)
{
    if (!(event->buttons() & Qt::LeftButton))
        return;
    const QPoint moved = event->globalPos() - m_pressPosition;
    const QSize least = window()->minimumSize().expandedTo(window()->minimumSizeHint());
    QRect geometry = m_pressGeometry;
    if (m_edges & Qt::LeftEdge)
        geometry.setLeft(qMin(geometry.left() + moved.x(), geometry.right() - least.width() + 1));
    if (m_edges & Qt::RightEdge)
        geometry.setRight(qMax(geometry.right() + moved.x(), geometry.left() + least.width() - 1));
    if (m_edges & Qt::TopEdge)
        geometry.setTop(qMin(geometry.top() + moved.y(), geometry.bottom() - least.height() + 1));
    if (m_edges & Qt::BottomEdge)
        geometry.setBottom(
            qMax(geometry.bottom() + moved.y(), geometry.top() + least.height() - 1));
    window()->setGeometry(geometry);
}

} // namespace host::ui
