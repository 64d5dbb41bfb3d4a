#include "ui/window/HostStyle.h"

#include "ui/window/HostColors.h"
#include "ui/window/HostIcons.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFrame>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOptionMenuItem>

namespace host::ui {

using namespace colors;

namespace {

constexpr int FONT_SIZE = 12;
constexpr int RADIUS = 4;
constexpr int MENU_ROW_HEIGHT = 24;
constexpr int MENU_SEPARATOR_HEIGHT = 9;
constexpr int MENU_TEXT_LEFT = 30;
constexpr int MENU_ICON_LEFT = 8;
constexpr int MENU_ICON_SIZE = 14;
constexpr int MENU_RIGHT = 24;
constexpr int SHORTCUT_GAP = 26;
constexpr int TEAR_OFF_HEIGHT = 9;
constexpr int MENU_MARGIN = 5;
constexpr int MENU_BAR_ITEM_PADDING = 9;
constexpr int TAB_FONT_SIZE = 11;
constexpr int TAB_HEIGHT = 22;
constexpr int TAB_TOP = 2;
constexpr int TABS_LEFT = 8;
constexpr int TAB_PADDING = 10;
constexpr int TIP_DELAY_MS = 350;

QFont ApplicationFont()
{
    const QStringList installed = QFontDatabase().families();
    QFont font;
    for (const char* family : {"Inter", "Noto Sans", "Liberation Sans"}) {
        if (installed.contains(QLatin1String(family))) {
            font.setFamily(QLatin1String(family));
            break;
        }
    }
    font.setPixelSize(qRound(FONT_SIZE * HostStyle::GetScale()));
    return font;
}

QPalette HostPalette()
{
    QPalette palette(CHROME);
    // clang-format off
    const std::pair<QPalette::ColorRole, QColor> ROLES[] = {
        {QPalette::Window,          CHROME},
        {QPalette::WindowText,      TEXT},
        {QPalette::Base,            FIELD},
        {QPalette::AlternateBase,   DOCK_STRIP},
        {QPalette::Text,            TEXT},
        {QPalette::Button,          BUTTON},
        {QPalette::ButtonText,      TEXT},
        {QPalette::BrightText,      TEXT_STRONG},
        {QPalette::Highlight,       HIGHLIGHT},
        {QPalette::HighlightedText, Qt::white},
        {QPalette::ToolTipBase,     TIP},
        {QPalette::ToolTipText,     QColor(0xe6, 0xe6, 0xe6)},
        {QPalette::PlaceholderText, QColor(0x94, 0x94, 0x94)},
        {QPalette::Link,            LAKE_TEXT},
        {QPalette::LinkVisited,     LAKE},
    };
    // clang-format on
    for (const auto& [role, color] : ROLES)
        palette.setColor(role, color);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, TEXT_DISABLED);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, BUTTON);
    return palette;
}

void FillRounded(QPainter* painter, const QRect& rect, const QColor& fill, const QColor& edge = {})
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(edge.isValid() ? QPen(edge) : QPen(Qt::NoPen));
    painter->setBrush(fill);
    const QRectF inner = edge.isValid() ? QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5) : rect;
    painter->drawRoundedRect(inner, RADIUS, RADIUS);
    painter->restore();
}

QColor ButtonFill(QStyle::State state)
{
    if (!(state & QStyle::State_Enabled))
        return CHROME;
    if (state & (QStyle::State_Sunken | QStyle::State_On))
        return BUTTON_PRESSED;
    return state & QStyle::State_MouseOver ? BUTTON_HOVER : BUTTON;
}

/// Of a button that a script gave a colour.
QColor OwnFill(const QColor& color, QStyle::State state)
{
    if (state & (QStyle::State_Sunken | QStyle::State_On))
        return color.darker(125);
    return state & QStyle::State_MouseOver ? color.lighter(115) : color;
}

void DrawMark(
    const QStyleOptionMenuItem& item, const QStyle& style, QPainter* painter, const QWidget* widget)
{
    const QRect place(item.rect.left() + MENU_ICON_LEFT,
        item.rect.center().y() - MENU_ICON_SIZE / 2 + 1, MENU_ICON_SIZE, MENU_ICON_SIZE);
    if (item.checkType == QStyleOptionMenuItem::Exclusive) {
        QStyleOption dot(item);
        dot.rect = place;
        dot.state.setFlag(QStyle::State_On, item.checked);
        style.drawPrimitive(QStyle::PE_IndicatorRadioButton, &dot, painter, widget);
        return;
    }
    const QIcon::Mode mode = item.state & QStyle::State_Enabled ? QIcon::Normal : QIcon::Disabled;
    if (item.checkType == QStyleOptionMenuItem::NonExclusive) {
        if (item.checked)
            HostIcon(QStringLiteral("host_check")).paint(painter, place, Qt::AlignCenter, mode);
        return;
    }
    item.icon.paint(painter, place, Qt::AlignCenter, mode);
}

} // namespace

HostStyle::HostStyle()
    : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion")))
{ }

void HostStyle::Apply(QApplication& application, double scale)
{
    s_scale = scale;
    application.setStyle(new HostStyle);
    application.setPalette(HostPalette());
    application.setFont(ApplicationFont());
}

void HostStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
    QPainter* painter, const QWidget* widget) const
{
    switch (element) {
    case PE_PanelMenu: painter->fillRect(option->rect, MENU); return;
    case PE_FrameMenu:
        painter->setPen(MENU_EDGE);
        painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
        return;
    case PE_PanelMenuBar:
    case PE_FrameStatusBarItem:
    case PE_FrameTabBarBase: return;
    case PE_PanelButtonTool: DrawToolButton(option, painter); return;
    case PE_PanelButtonCommand: DrawButton(option, painter); return;
    case PE_PanelLineEdit: DrawField(option, painter); return;
    default: QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void HostStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
    const QWidget* widget) const
{
    switch (element) {
    case CE_MenuBarEmptyArea: painter->fillRect(option->rect, CHROME); return;
    case CE_MenuBarItem: DrawMenuBarItem(option, painter); return;
    case CE_MenuItem: DrawMenuItem(option, painter, widget); return;
    case CE_MenuTearoff: DrawTearOff(option, painter); return;
    case CE_ShapedFrame:
        if (!DrawLine(option, painter))
            QProxyStyle::drawControl(element, option, painter, widget);
        return;
    case CE_TabBarTabShape: DrawTab(option, painter); return;
    case CE_TabBarTabLabel: DrawTabLabel(option, painter); return;
    default: QProxyStyle::drawControl(element, option, painter, widget);
    }
}

void HostStyle::DrawMenuBarItem(const QStyleOption* option, QPainter* painter) const
{
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (!item)
        return;
    painter->fillRect(item->rect, CHROME);
    const bool open = (item->state & State_Selected) && (item->state & State_Enabled);
    if (open)
        FillRounded(painter, item->rect.adjusted(0, 3, 0, -3), BUTTON_HOVER);
    const bool enabled = item->state & State_Enabled;
    painter->setPen(!enabled ? TEXT_DISABLED : open ? TEXT_STRONG : TEXT);
    painter->drawText(
        item->rect, Qt::AlignCenter | Qt::TextShowMnemonic | Qt::TextSingleLine, item->text);
}

void HostStyle::DrawMenuItem(
    const QStyleOption* option, QPainter* painter, const QWidget* widget) const
{
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (!item)
        return;
    const QRect rect = item->rect;
    painter->fillRect(rect, MENU);
    if (item->menuItemType == QStyleOptionMenuItem::Separator) {
        painter->fillRect(rect.left() - MENU_MARGIN, rect.center().y(),
            rect.width() + 2 * MENU_MARGIN, 1, MENU_EDGE);
        return;
    }
    const bool enabled = item->state & State_Enabled;
    const bool selected = enabled && (item->state & State_Selected);
    if (selected)
        FillRounded(painter, rect, MENU_ROW);
    DrawMark(*item, *this, painter, widget);
    painter->save();
    painter->setFont(item->font);
    painter->setPen(!enabled ? TEXT_DISABLED : selected ? QColor(Qt::white) : TEXT);
    const QRect textRect = rect.adjusted(MENU_TEXT_LEFT, 0, -MENU_RIGHT, 0);
    const QStringList parts = item->text.split(QLatin1Char('\t'));
    painter->drawText(textRect,
        Qt::AlignVCenter | Qt::AlignLeft | Qt::TextShowMnemonic | Qt::TextSingleLine,
        parts.first());
    if (parts.size() > 1)
        painter->drawText(
            textRect.adjusted(0, 0, 12, 0), Qt::AlignVCenter | Qt::AlignRight, parts.at(1));
    painter->restore();
    if (item->menuItemType == QStyleOptionMenuItem::SubMenu) {
        const QRect arrow(rect.right() - MENU_RIGHT + 4, rect.center().y() - MENU_ICON_SIZE / 2 + 1,
            MENU_ICON_SIZE, MENU_ICON_SIZE);
        HostIcon(QStringLiteral("host_submenu"))
            .paint(painter, arrow, Qt::AlignCenter, enabled ? QIcon::Normal : QIcon::Disabled);
    }
}

void HostStyle::DrawTearOff(const QStyleOption* option, QPainter* painter) const
{
    const bool selected = option->state & State_Selected;
    const int middle = option->rect.center().y();
    for (int x = option->rect.left() + 6; x < option->rect.right() - 6; x += 4)
        painter->fillRect(x, middle, 2, 1, selected ? LAKE : TEXT_DISABLED);
}

bool HostStyle::DrawLine(const QStyleOption* option, QPainter* painter) const
{
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
    if (!frame)
        return false;
    const QRect rect = frame->rect;
    if (frame->frameShape == QFrame::HLine)
        painter->fillRect(rect.left(), rect.center().y(), rect.width(), 1, BUTTON_EDGE);
    else if (frame->frameShape == QFrame::VLine)
        painter->fillRect(rect.center().x(), rect.top(), 1, rect.height(), BUTTON_EDGE);
    else
        return false;
    return true;
}

void HostStyle::DrawTab(const QStyleOption* option, QPainter* painter) const
{
    const bool selected = option->state & State_Selected;
    const bool hovered = option->state & State_MouseOver;
    if (!selected && !hovered)
        return;
    const QRect shape = option->rect.adjusted(0, TAB_TOP, -1, 0);
    painter->save();
    painter->setClipRect(shape);
    FillRounded(painter, shape.adjusted(0, 0, 0, RADIUS), selected ? SHELF : DOCK_TAB);
    painter->restore();
    if (option->state & State_HasFocus)
        FillRounded(painter, shape, Qt::transparent, LAKE);
}

void HostStyle::DrawTabLabel(const QStyleOption* option, QPainter* painter) const
{
    const auto* tab = qstyleoption_cast<const QStyleOptionTab*>(option);
    if (!tab)
        return;
    const bool selected = tab->state & State_Selected;
    const bool enabled = tab->state & State_Enabled;
    painter->setPen(!enabled ? TEXT_DISABLED : selected ? TEXT_STRONG : TEXT_SOFT);
    painter->drawText(tab->rect.adjusted(0, TAB_TOP, -1, 0),
        Qt::AlignCenter | Qt::TextShowMnemonic | Qt::TextSingleLine, tab->text);
}

void HostStyle::DrawToolButton(const QStyleOption* option, QPainter* painter) const
{
    const QStyle::State state = option->state;
    const bool enabled = state & State_Enabled;
    if (state & State_On)
        FillRounded(painter, option->rect, DOCK_STRIP, BUTTON_EDGE);
    else if (enabled && (state & State_Sunken))
        FillRounded(painter, option->rect, BUTTON_PRESSED);
    else if (enabled && (state & State_MouseOver))
        FillRounded(painter, option->rect, BUTTON_HOVER);
    if (state & State_HasFocus && state & State_KeyboardFocusChange)
        FillRounded(painter, option->rect, Qt::transparent, LAKE);
}

void HostStyle::polish(QWidget* widget)
{
    QProxyStyle::polish(widget);
    // Of tab widgets only: other tab bars paint themselves.
    const QWidget* parent = widget->parentWidget();
    const bool isTabWidget = widget->inherits("QTabWidget");
    const bool isTabBar = widget->inherits("QTabBar") && parent && parent->inherits("QTabWidget");
    const bool isPageStack = widget->objectName() == QLatin1String("qt_tabwidget_stackedwidget");
    if (!isTabWidget && !isTabBar && !isPageStack)
        return;
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Window, isPageStack ? SHELF : SHELF_TABS);
    widget->setPalette(palette);
    if (isTabBar) {
        QFont font = widget->font();
        font.setPixelSize(TAB_FONT_SIZE);
        widget->setFont(font);
    }
    widget->setAutoFillBackground(true);
}

QRect HostStyle::subElementRect(
    SubElement element, const QStyleOption* option, const QWidget* widget) const
{
    if (element == SE_TabWidgetTabBar)
        return QProxyStyle::subElementRect(element, option, widget).adjusted(TABS_LEFT, 0, 0, 0);
    return QProxyStyle::subElementRect(element, option, widget);
}

void HostStyle::DrawButton(const QStyleOption* option, QPainter* painter) const
{
    QColor fill = ButtonFill(option->state);
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    const bool isDefault = button && (button->features & QStyleOptionButton::DefaultButton)
        && (option->state & State_Enabled);
    if (isDefault)
        fill = option->state & State_Sunken ? DEFAULT_BUTTON.darker(130) : DEFAULT_BUTTON;
    const QVariant own
        = option->styleObject ? option->styleObject->property("ownColor") : QVariant();
    if (own.isValid() && (option->state & State_Enabled))
        fill = OwnFill(own.value<QColor>(), option->state);
    QColor edge = isDefault ? DEFAULT_BUTTON.lighter(120) : BUTTON_EDGE;
    if (option->state & State_HasFocus)
        edge = LAKE;
    const QObject* widget = option->styleObject;
    const bool borderless = widget && widget->property("borderless").toBool();
    if (borderless && !(option->state & State_HasFocus))
        edge = QColor();
    FillRounded(painter, option->rect, fill, edge);
}

void HostStyle::DrawField(const QStyleOption* option, QPainter* painter) const
{
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
    const bool framed = frame && frame->lineWidth > 0;
    const bool focused = (option->state & State_HasFocus) && (option->state & State_Enabled);
    if (!framed) {
        painter->fillRect(option->rect, option->palette.brush(QPalette::Base));
        return;
    }
    FillRounded(
        painter, option->rect, option->palette.color(QPalette::Base), focused ? LAKE : BUTTON_EDGE);
}

QSize HostStyle::sizeFromContents(
    ContentsType type, const QStyleOption* option, const QSize& size, const QWidget* widget) const
{
    if (type == CT_MenuBarItem)
        return {size.width() + 2 * MENU_BAR_ITEM_PADDING, 26};
    if (type == CT_TabBarTab) {
        const auto* tab = qstyleoption_cast<const QStyleOptionTab*>(option);
        const int text = tab ? tab->fontMetrics.horizontalAdvance(tab->text) : size.width();
        return {text + 2 * TAB_PADDING, TAB_HEIGHT};
    }
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (type != CT_MenuItem || !item)
        return QProxyStyle::sizeFromContents(type, option, size, widget);
    if (item->menuItemType == QStyleOptionMenuItem::Separator)
        return {10, MENU_SEPARATOR_HEIGHT};
    const bool hasShortcut = item->text.contains(QLatin1Char('\t'));
    const int gap = hasShortcut ? SHORTCUT_GAP : 0;
    return {MENU_TEXT_LEFT + size.width() + item->tabWidth + gap + MENU_RIGHT, MENU_ROW_HEIGHT};
}

int HostStyle::pixelMetric(
    PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    switch (metric) {
    case PM_MenuPanelWidth: return 1;
    case PM_MenuHMargin:
    case PM_MenuVMargin: return MENU_MARGIN;
    case PM_MenuTearoffHeight: return TEAR_OFF_HEIGHT;
    case PM_MenuBarPanelWidth:
    case PM_MenuBarVMargin:
    case PM_MenuBarItemSpacing: return 0;
    case PM_MenuBarHMargin: return 6;
    case PM_TabBarTabShiftVertical:
    case PM_TabBarTabShiftHorizontal:
    case PM_TabBarTabOverlap:
    case PM_TabBarBaseOverlap: return 0;
    case PM_SplitterWidth: return 4;
    default: return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int HostStyle::styleHint(
    StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* data) const
{
    switch (hint) {
    case SH_EtchDisabledText:
    case SH_MenuBar_AltKeyNavigation: return 0;
    case SH_ToolTip_WakeUpDelay: return TIP_DELAY_MS;
    default: return QProxyStyle::styleHint(hint, option, widget, data);
    }
}

} // namespace host::ui
