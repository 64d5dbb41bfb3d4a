#include "ui/window/Viewport.h"

#include "engine/Engine.h"
#include "scene/Scene.h"
#include "ui/model/InterfaceModel.h"
#include "ui/window/HeadsUp.h"
#include "ui/window/HostColors.h"

#include <QMouseEvent>
#include <QPainter>

#include <cmath>

namespace host::ui {

namespace {

constexpr int GRID_HALF = 12; ///< units from the middle to the edge
constexpr double NEAR_PLANE = 0.1;
constexpr double FIELD_OF_VIEW = 1.23; ///< of the width, radians
constexpr double RADIANS_PER_PIXEL = 0.008;
constexpr double STEPS_PER_PIXEL = 0.05;
constexpr double MINIMUM_DISTANCE = 1.5;
constexpr double MAXIMUM_DISTANCE = 400;
constexpr double MAXIMUM_PITCH = 1.55;
constexpr int AXIS_LENGTH = 26;
const QPoint AXIS_PLACE(38, 40); ///< from the lower left corner

} // namespace

Viewport::Viewport(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("viewport"));
    setAccessibleName(tr("Viewport"));
    setStatusTip(tr("Alt and a mouse button turn, shift and zoom the view"));
    setMinimumSize(120, 80);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

Viewport::~Viewport()
{
    if (m_followsScene && Engine::Exists() && Engine::Current().commandState)
        scene::Scene::Current().watches.sceneChanged = nullptr;
}

void Viewport::FollowScene()
{
    m_followsScene = true;
    scene::Scene::Current().watches.sceneChanged = [this] {
        m_wires.Invalidate();
        update();
    };
    connect(&HeadsUp::Current(), &HeadsUp::Changed, this, QOverload<>::of(&Viewport::update));
}

void Viewport::SetGridVisible(bool visible)
{
    m_gridVisible = visible;
    update();
}

void Viewport::SetAxisVisible(bool visible)
{
    m_axisVisible = visible;
    update();
}

void Viewport::ResetView()
{
    m_camera = {};
    update();
}

void Viewport::GetAxes(QVector3D& right, QVector3D& up, QVector3D& back) const
{
    const float sinYaw = std::sin(m_camera.yaw);
    const float cosYaw = std::cos(m_camera.yaw);
    const float sinPitch = std::sin(m_camera.pitch);
    const float cosPitch = std::cos(m_camera.pitch);
    back = {cosPitch * sinYaw, sinPitch, cosPitch * cosYaw};
    right = {cosYaw, 0, -sinYaw};
    up = QVector3D::crossProduct(back, right);
}

QVector3D Viewport::ToEye(const QVector3D& point) const
{
    QVector3D right;
    QVector3D up;
    QVector3D back;
    GetAxes(right, up, back);
    const QVector3D eye = m_camera.target + back * static_cast<float>(m_camera.distance);
    const QVector3D relative = point - eye;
    return {QVector3D::dotProduct(relative, right), QVector3D::dotProduct(relative, up),
        -QVector3D::dotProduct(relative, back)};
}

void Viewport::DrawLine(QPainter& painter, const QVector3D& from, const QVector3D& to) const
{
    QVector3D start = ToEye(from);
    QVector3D end = ToEye(to);
    if (start.z() < NEAR_PLANE && end.z() < NEAR_PLANE)
        return;
    // What lies behind the eye would come out mirrored.
    if (start.z() < NEAR_PLANE)
        std::swap(start, end);
    if (end.z() < NEAR_PLANE)
        end = start + (end - start) * ((start.z() - NEAR_PLANE) / (start.z() - end.z()));
    const double focal = width() / 2.0 / std::tan(FIELD_OF_VIEW / 2);
    const auto project = [&](const QVector3D& point) {
        return QPointF(width() / 2.0 + point.x() / point.z() * focal,
            height() / 2.0 - point.y() / point.z() * focal);
    };
    painter.drawLine(project(start), project(end));
}

void Viewport::DrawGrid(QPainter& painter) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    for (int i = -GRID_HALF; i <= GRID_HALF; ++i) {
        painter.setPen(i == 0 ? QPen(colors::GRID.darker(160), 1.2) : QPen(colors::GRID, 1));
        DrawLine(painter, QVector3D(i, 0, -GRID_HALF), QVector3D(i, 0, GRID_HALF));
        DrawLine(painter, QVector3D(-GRID_HALF, 0, i), QVector3D(GRID_HALF, 0, i));
    }
}

void Viewport::DrawScene(QPainter& painter)
{
    painter.setRenderHint(QPainter::Antialiasing);
    for (const SceneWires::Line& line : m_wires.GetLines()) {
        painter.setPen(QPen(line.isSelected ? colors::WIRE_SELECTED : colors::WIRE, 1.2));
        DrawLine(painter, line.from, line.to);
    }
}

void Viewport::DrawAxis(QPainter& painter) const
{
    QVector3D right;
    QVector3D up;
    QVector3D back;
    GetAxes(right, up, back);
    const std::pair<QVector3D, QColor> ARMS[] = {
        {{0, 0, 1}, QColor(0x6a, 0xa5, 0xdc)},
        {{1, 0, 0}, QColor(0xd9, 0x6d, 0x66)},
        {{0, 1, 0}, QColor(0x7f, 0xc0, 0x67)},
    };
    const QPointF origin(AXIS_PLACE.x(), height() - AXIS_PLACE.y());
    painter.setRenderHint(QPainter::Antialiasing);
    for (const auto& [arm, color] : ARMS) {
        // A view straight from the front would hide the axis that points to the eye.
        const QPointF tip(
            QVector3D::dotProduct(arm, right) - 0.45 * QVector3D::dotProduct(arm, back),
            QVector3D::dotProduct(arm, up) - 0.1 * QVector3D::dotProduct(arm, back));
        painter.setPen(QPen(color, 2));
        painter.drawLine(origin, origin + QPointF(tip.x(), -tip.y()) * AXIS_LENGTH);
    }
}

/// Five columns at the top and five at the bottom; the outer ones stand at the edges.
void Viewport::DrawHeadsUp(QPainter& painter) const
{
    constexpr int COLUMNS = HeadsUp::SECTIONS / 2;
    constexpr int MARGIN = 8;
    const int lineHeight = painter.fontMetrics().height();
    const int lowest = height() - MARGIN - lineHeight; // the camera's name stands there
    for (const HeadsUp::Entry& entry : HeadsUp::Current().Entries()) {
        if (!entry.isVisible)
            continue;
        const int column = entry.section % COLUMNS;
        const int y = entry.section < COLUMNS ? MARGIN + entry.block * lineHeight
                                              : lowest - (entry.block + 1) * lineHeight;
        const int columnWidth = (width() - 2 * MARGIN) / COLUMNS;
        const QRect place(MARGIN + column * columnWidth, y, columnWidth, lineHeight);
        const int alignment = column == 0 ? Qt::AlignLeft
            : column == COLUMNS - 1       ? Qt::AlignRight
                                          : Qt::AlignHCenter;
        painter.drawText(place, alignment | Qt::AlignVCenter | Qt::TextDontClip,
            QStringLiteral("%1  %2").arg(entry.label, entry.data).trimmed());
    }
}

void Viewport::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    QLinearGradient sky(0, 0, 0, height());
    sky.setColorAt(0, colors::VIEWPORT_TOP);
    sky.setColorAt(1, colors::VIEWPORT_FLOOR);
    painter.fillRect(rect(), sky);
    if (m_gridVisible)
        DrawGrid(painter);
    DrawScene(painter);
    if (m_axisVisible)
        DrawAxis(painter);
    painter.setPen(colors::TEXT);
    if (m_followsScene && InterfaceModel::Exists())
        DrawHeadsUp(painter);
    painter.drawText(
        rect().adjusted(0, 0, 0, -8), Qt::AlignHCenter | Qt::AlignBottom, QStringLiteral("persp"));
}

void Viewport::mousePressEvent(QMouseEvent* event)
{
    m_lastPosition = event->pos();
    if (event->modifiers() & Qt::AltModifier)
        setCursor(Qt::SizeAllCursor);
}

void Viewport::mouseReleaseEvent(QMouseEvent*)
{
    unsetCursor();
}

void Viewport::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint moved = event->pos() - m_lastPosition;
    m_lastPosition = event->pos();
    if (!(event->modifiers() & Qt::AltModifier))
        return;
    if (event->buttons() & Qt::LeftButton) {
        m_camera.yaw -= moved.x() * RADIANS_PER_PIXEL;
        m_camera.pitch
            = qBound(-MAXIMUM_PITCH, m_camera.pitch + moved.y() * RADIANS_PER_PIXEL, MAXIMUM_PITCH);
    } else if (event->buttons() & Qt::MiddleButton) {
        QVector3D right;
        QVector3D up;
        QVector3D back;
        GetAxes(right, up, back);
        const float unit = m_camera.distance / width();
        m_camera.target += (right * -moved.x() + up * moved.y()) * unit;
    } else if (event->buttons() & Qt::RightButton) {
        Dolly((moved.x() + moved.y()) * STEPS_PER_PIXEL);
    }
    update();
}

void Viewport::wheelEvent(QWheelEvent* event)
{
    Dolly(event->angleDelta().y() / 120.0);
    event->accept();
}

void Viewport::Dolly(double steps)
{
    m_camera.distance
        = qBound(MINIMUM_DISTANCE, m_camera.distance * std::pow(0.9, steps), MAXIMUM_DISTANCE);
    update();
}

} // namespace host::ui
