#pragma once

#include <QWidget>

namespace host::ui {

/// One invisible edge or corner by which a frameless window is resized. Keeps itself in place over
/// the window's content.
class ResizeGrip : public QWidget
{
    Q_OBJECT
public:
    /// Gives the window all eight of them.
    static void AddTo(QWidget* window);

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    ResizeGrip(QWidget* window, Qt::Edges edges);
    void UpdatePlace();

    Qt::Edges m_edges;
    QPoint m_pressPosition;
    QRect m_pressGeometry;
};

} // namespace host::ui
