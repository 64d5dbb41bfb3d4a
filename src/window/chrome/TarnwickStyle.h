#pragma once

#include <QProxyStyle>

/// What the style sheet cannot say: focus rings, splitter grooves, disabled icons, sizes and hints.
/// Owned by the window, set on it before its sheet; the window's children get both.
class TarnwickStyle : public QProxyStyle
{
    Q_OBJECT

public:
    TarnwickStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
        const QWidget* widget = nullptr) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
        const QWidget* widget = nullptr) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option = nullptr,
        const QWidget* widget = nullptr) const override;
    int styleHint(StyleHint hint, const QStyleOption* option = nullptr,
        const QWidget* widget = nullptr, QStyleHintReturn* returnData = nullptr) const override;
    QPixmap generatedIconPixmap(
        QIcon::Mode mode, const QPixmap& pixmap, const QStyleOption* option) const override;
};
