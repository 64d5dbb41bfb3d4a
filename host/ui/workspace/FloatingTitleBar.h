#pragma once

#include <QWidget>

class QToolButton;

namespace host::ui {

/// The drawn title of a floating window: label, collapse, maximise and close. The label is the
/// window's title.
class FloatingTitleBar : public QWidget
{
    Q_OBJECT
public:
    explicit FloatingTitleBar(QWidget* window);

    static constexpr int HEIGHT = 30;

    void SetCollapsed(bool collapsed);
    void SetFilling(bool filling);
    /// Follows the pointer from now on, with the mouse button already down.
    void StartDrag(const QPoint& offset);

Q_SIGNALS:
    /// `offset`: where in the window the pointer took hold of it.
    void Dragged(const QPoint& pointer, const QPoint& offset, bool dropped);
    void DoubleClicked();
    void MenuRequested(const QPoint& place);
    void CollapseClicked();
    void FillClicked();
    void CloseClicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    QToolButton* AddButton(const char* name, const QString& icon, const QString& tip,
        void (FloatingTitleBar::*clicked)());

    enum class Drag { None, Pressed, Moving };

    QToolButton* m_collapseButton = nullptr;
    QToolButton* m_fillButton = nullptr;
    QToolButton* m_closeButton = nullptr;
    Drag m_drag = Drag::None;
    QPoint m_offset;
    QPoint m_pressPosition;
};

} // namespace host::ui
