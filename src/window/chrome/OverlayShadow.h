#pragma once

#include <QPixmap>
#include <QWidget>

/// The soft shadow below an overlay: a sibling of what casts it, so that clicks go through it.
/// Owned by their parent.
class OverlayShadow : public QWidget
{
    Q_OBJECT

public:
    explicit OverlayShadow(QWidget* parent);

    /// Right below `caster` and as far around it as the shadow falls.
    void Place(QWidget& caster);
    /// Where the shadow of something falls, itself included.
    static QRect Around(const QRect& caster);
    /// The shadow, and nothing where its caster stands, with the size of Around.
    static QPixmap Picture(const QSize& caster, qreal ratio);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QSize m_caster;
    QPixmap m_picture; ///< null: to be made anew
};
