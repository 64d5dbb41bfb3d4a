#pragma once

#include "window/chrome/OverlayGhost.h"

#include <QPointer>
#include <QWidget>

class OverlayShadow;

/// A raised panel that floats over its parent: round corners, a hairline and a soft shadow. The
/// shadow is a sibling below the frame, so that the frame's geometry is what one sees as the frame
/// and what lies under the shadow still gets its clicks. Owned by the parent.
class OverlayFrame : public QWidget
{
    Q_OBJECT

public:
    explicit OverlayFrame(QWidget* parent);
    ~OverlayFrame() override;

    /// Shows the frame on top of its parent, sliding down and fading in where the style animates.
    /// It takes keys and clicks at once.
    void Appear();
    /// Hides the frame; where the style animates, its picture slides up and fades out.
    void Disappear();

protected:
    void SetMotion(int duration, int slide) { m_motion = {duration, slide}; }
    void paintEvent(QPaintEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool event(QEvent* event) override;

private:
    bool IsAnimated() const;
    QPixmap Picture();
    void PlaceShadow();

    OverlayGhost::Motion m_motion;
    QPointer<OverlayShadow> m_shadow; ///< the parent may delete it first
    QPointer<OverlayGhost> m_ghost; ///< while the frame comes or goes
};
