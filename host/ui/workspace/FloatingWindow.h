#pragma once

#include <QPointer>
#include <QWidget>

namespace host::ui {

class DockArea;
class FloatingTitleBar;

/// A window of its own for one panel, or for several as tabs. It draws its own title bar, and moves
/// and resizes itself, so that it works the same with and without a window manager. Owned by the
/// main window; deletes itself when its last panel has left.
class FloatingWindow : public QWidget
{
    Q_OBJECT
public:
    explicit FloatingWindow(QWidget* mainWindow);

    DockArea* GetArea() const { return m_area; }

    /// Collapsed, only the title bar is left.
    bool IsCollapsed() const { return m_collapsed; }
    void SetCollapsed(bool collapsed);
    bool IsFilling() const { return m_filling; }
    /// Fills the screen, or goes back to where it was.
    void SetFilling(bool filling);
    /// Where it is when neither collapsed nor filling the screen.
    QRect NormalGeometry() const;
    void SetNormalGeometry(const QRect& geometry);
    /// Goes on moving with the mouse button that is down already; the pointer is put onto the
    /// title.
    void StartMove(const QPoint& pointer);

    /// The window that holds the area; null for an area of the main window.
    static FloatingWindow* Of(const DockArea* area);

Q_SIGNALS:
    /// The person closed the window.
    void CloseRequested();
    void DockRequested();
    void MenuRequested(const QPoint& place);
    /// While the title is dragged; `dropped` when the button is released.
    void Dragged(const QPoint& pointer, bool dropped);
    void GeometryChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void UpdateTitle();
    void OnDragged(const QPoint& pointer, const QPoint& offset, bool dropped);
    void LeaveFilling();
    void NoteGeometry();

    FloatingTitleBar* m_title = nullptr;
    DockArea* m_area = nullptr;
    QRect m_normalGeometry;
    bool m_moving = false; ///< by hand; its places on the way do not count
    bool m_collapsed = false;
    bool m_filling = false;
};

} // namespace host::ui
