#pragma once

#include <QVariantAnimation>
#include <QWidget>

/// Shows over its parent where something dragged would go. Owned by the parent, hidden at first;
/// takes neither mouse nor focus and is not read out, as it only repeats what the drag says.
class OverlayWidget : public QWidget
{
    Q_OBJECT

public:
    explicit OverlayWidget(QWidget* parent);

    /// In the parent's coordinates. An empty rectangle hides the overlay, any other shows it on
    /// top, gliding there when it was shown elsewhere.
    void SetRect(const QRect& rectangle);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Animate(QVariantAnimation& animation, int duration);

    QVariantAnimation m_fade; ///< opacity from 0 to 1
    QVariantAnimation m_glide; ///< geometry
};
