#pragma once

#include <QProxyStyle>

class QApplication;

namespace host::ui {

/// The look of the host: flat, dark, without style sheets (those would reach into the panels of
/// plug-ins). Owned by the application once it is set.
class HostStyle : public QProxyStyle
{
    Q_OBJECT
public:
    HostStyle();

    /// Gives the application its style, palette and font; the text grows by `scale`.
    static void Apply(QApplication& application, double scale);
    static double GetScale() { return s_scale; }

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
        const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
        const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
        const QWidget* widget) const override;
    int pixelMetric(
        PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    QRect subElementRect(
        SubElement element, const QStyleOption* option, const QWidget* widget) const override;
    void polish(QWidget* widget) override;
    using QProxyStyle::polish;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
        QStyleHintReturn* data) const override;

private:
    inline static double s_scale = 1.0;

    void DrawMenuBarItem(const QStyleOption* option, QPainter* painter) const;
    void DrawMenuItem(const QStyleOption* option, QPainter* painter, const QWidget* widget) const;
    void DrawTearOff(const QStyleOption* option, QPainter* painter) const;
    /// False when it is a frame of another shape.
    bool DrawLine(const QStyleOption* option, QPainter* painter) const;
    void DrawTab(const QStyleOption* option, QPainter* painter) const;
    void DrawTabLabel(const QStyleOption* option, QPainter* painter) const;
    void DrawToolButton(const QStyleOption* option, QPainter* painter) const;
    void DrawButton(const QStyleOption* option, QPainter* painter) const;
    void DrawField(const QStyleOption* option, QPainter* painter) const;
};

} // namespace host::ui
