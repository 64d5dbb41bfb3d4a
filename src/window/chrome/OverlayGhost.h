#pragma once

#include <QPixmap>
#include <QVariantAnimation>
#include <QWidget>

/// Pictures of an overlay that comes or goes, over the real one: it slides while it fades. Widgets
/// inside a window cannot be translucent as a whole, their pictures can. Takes no clicks and
/// deletes itself at the end.
class OverlayGhost : public QWidget
{
    Q_OBJECT

public:
    /// How an overlay comes and goes.
    struct Motion
    {
        int duration = 100; ///< ms
        int slide = 8; ///< design pixels, downwards when it comes
    };

    /// In the parent's coordinates. With a picture of what is `behind`, the overlay comes and that
    /// picture hides the real one until then; without, it goes.
    OverlayGhost(const QRect& area, const QPixmap& overlay, const QPixmap& behind, Motion motion,
        QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPixmap m_overlay;
    QPixmap m_behind;
    int m_slide; ///< design pixels
    QVariantAnimation m_presence; ///< of the overlay, 0 to 1
};
