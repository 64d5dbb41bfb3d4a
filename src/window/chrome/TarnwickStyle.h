#pragma once

#include <QPointer>
#include <QProxyStyle>

class FocusHalo;
class QFocusEvent;

/// What the style sheet cannot say: focus rings and halos, splitter grooves, menus, disabled icons,
/// sizes and hints. Owned by the window, set on it before its sheet; the window's children get
/// both. Watches handles, buttons and fields for what their options do not tell: how the focus
/// came, how long the pointer rests.
class TarnwickStyle : public QProxyStyle
{
    Q_OBJECT

public:
    TarnwickStyle();

    void polish(QWidget* widget) override;
    void unpolish(QWidget* widget) override;
    // The other overloads stay visible.
    using QProxyStyle::polish;
    using QProxyStyle::unpolish;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
        const QWidget* widget = nullptr) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
        const QWidget* widget = nullptr) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
        const QWidget* widget = nullptr) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option = nullptr,
        const QWidget* widget = nullptr) const override;
    int styleHint(StyleHint hint, const QStyleOption* option = nullptr,
        const QWidget* widget = nullptr, QStyleHintReturn* returnData = nullptr) const override;
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option = nullptr,
        const QWidget* widget = nullptr) const override;
    QPixmap generatedIconPixmap(
        QIcon::Mode mode, const QPixmap& pixmap, const QStyleOption* option) const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static void ColorPlaceholder(QWidget& widget);
    void OnFocusEvent(QWidget* widget, const QFocusEvent& event);
    void DrawFocusRing(const QStyleOption& option, QPainter& painter, const QWidget* widget) const;

    QPointer<FocusHalo> m_halo; ///< of the field that has the focus
};
