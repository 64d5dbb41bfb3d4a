#include "window/chrome/TarnwickStyle.h"

#include "window/chrome/Theme.h"

#include <QPainter>
#include <QStyleOption>

namespace {

constexpr int TOOL_TIP_DELAY = 350; // ms
constexpr double DISABLED_ICON_ALPHA = 0.4;

void DrawSplitter(const QStyleOption& option, QPainter& painter)
{
    painter.fillRect(option.rect, Theme::Color(Theme::Role::Panel));
    const bool dragged = option.state & QStyle::State_Sunken;
    const QColor color = Theme::Color(dragged ? Theme::Role::Lake : Theme::Role::Groove);
    const int hairline = Theme::Hairline();
    QRect groove = option.rect;
    // A horizontal splitter has upright handles.
    if (option.state & QStyle::State_Horizontal) {
        groove.setLeft(groove.center().x());
        groove.setWidth(hairline);
    } else {
        groove.setTop(groove.center().y());
        groove.setHeight(hairline);
    }
    painter.fillRect(groove, color);
}

void DrawFocusRing(const QStyleOption& option, QPainter& painter)
{
    if (!(option.state & QStyle::State_KeyboardFocusChange))
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Theme::Color(Theme::Role::Lake), Theme::Hairline()));
    painter.drawRoundedRect(
        QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5), Theme::Dp(4), Theme::Dp(4));
    painter.restore();
}

} // namespace

TarnwickStyle::TarnwickStyle()
    : QProxyStyle(QStringLiteral("Fusion"))
{ }

void TarnwickStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
    QPainter* painter, const QWidget* widget) const
{
    if (element == PE_FrameFocusRect)
        DrawFocusRing(*option, *painter);
    else
        QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void TarnwickStyle::drawControl(ControlElement element, const QStyleOption* option,
    QPainter* painter, const QWidget* widget) const
{
    if (element == CE_Splitter)
        DrawSplitter(*option, *painter);
    else
        QProxyStyle::drawControl(element, option, painter, widget);
}

int TarnwickStyle::pixelMetric(
    PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    switch (metric) {
    case PM_SplitterWidth: return Theme::Dp(4);
    case PM_SmallIconSize:
    case PM_ButtonIconSize:
    case PM_ToolBarIconSize: return Theme::Dp(16);
    case PM_TextCursorWidth: return Theme::Dp(2);
    case PM_ScrollBarExtent: return Theme::Dp(12);
    case PM_MenuTearoffHeight: return Theme::Dp(9);
    default: return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int TarnwickStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
    QStyleHintReturn* returnData) const
{
    switch (hint) {
    case SH_ToolTip_WakeUpDelay: return TOOL_TIP_DELAY;
    case SH_EtchDisabledText:
    case SH_DitherDisabledText: return 0;
    case SH_ComboBox_Popup: return 0;
    default: return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
}

QPixmap TarnwickStyle::generatedIconPixmap(
    QIcon::Mode mode, const QPixmap& pixmap, const QStyleOption* option) const
{
    if (mode != QIcon::Disabled)
        return QProxyStyle::generatedIconPixmap(mode, pixmap, option);
    QPixmap faded(pixmap.size());
    faded.setDevicePixelRatio(pixmap.devicePixelRatio());
    faded.fill(Qt::transparent);
    QPainter painter(&faded);
    painter.setOpacity(DISABLED_ICON_ALPHA);
    painter.drawPixmap(0, 0, pixmap);
    return faded;
}
