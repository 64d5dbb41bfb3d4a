#pragma once

#include "ui/window/SceneWires.h"

#include <QPointF>
#include <QVector3D>
#include <QWidget>

namespace host::ui {

/// The scene as lines, with a grid and the axes, seen by a camera of its own. Alt with the left
/// button orbits, with the middle one pans, with the right one or the wheel moves in and out.
class Viewport : public QWidget
{
    Q_OBJECT
public:
    explicit Viewport(QWidget* parent = nullptr);
    ~Viewport() override;

    /// Draws the scene anew whenever it changes; the commands have to be there.
    void FollowScene();

    bool IsGridVisible() const { return m_gridVisible; }
    bool IsAxisVisible() const { return m_axisVisible; }

public Q_SLOTS:
    void SetGridVisible(bool visible);
    void SetAxisVisible(bool visible);
    /// The camera's first place.
    void ResetView();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    struct Camera
    {
        double yaw = 0; ///< radians round the vertical axis
        double pitch = 0.105; ///< radians above the ground
        double distance = 25.4;
        QVector3D target{0, 3.4f, 0};
    };

    /// Right, up and towards the eye.
    void GetAxes(QVector3D& right, QVector3D& up, QVector3D& back) const;
    QVector3D ToEye(const QVector3D& point) const;
    void DrawLine(QPainter& painter, const QVector3D& from, const QVector3D& to) const;
    void DrawGrid(QPainter& painter) const;
    void DrawScene(QPainter& painter);
    void DrawAxis(QPainter& painter) const;
    void DrawHeadsUp(QPainter& painter) const;
    void Dolly(double steps);

    SceneWires m_wires;
    Camera m_camera;
    QPoint m_lastPosition;
    bool m_followsScene = false;
    bool m_gridVisible = true;
    bool m_axisVisible = true;
};

} // namespace host::ui
