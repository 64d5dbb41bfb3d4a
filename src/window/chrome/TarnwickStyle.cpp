#include "window/chrome/TarnwickStyle.h"

#include "window/chrome/ComboRowDelegate.h"
#include "window/chrome/FocusHalo.h"
#include "window/chrome/MenuLook.h"
#include "window/chrome/Theme.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFocusEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QSplitterHandle>
#include <QStyleOption>
#include <QTimer>

namespace {

constexpr int TOOL_TIP_DELAY = 350; // ms
constexpr int REST_DELAY = 250; // ms that the pointer stays on a handle before it is shown
constexpr double DISABLED_ICON_ALPHA = 0.4;

// Design pixels.
constexpr int RING = 2;
constexpr int RING_GAP = 1;
constexpr int RADIUS = 4;
constexpr int BUTTON_SPACING = 8;
constexpr int MESSAGE_ICON_SIZE = 28;

// Dynamic properties of watched widgets.
constexpr char FOCUS_BY_KEY[] = "te2FocusByKey";
constexpr char POINTER_INSIDE[] = "te2PointerInside";
constexpr char POINTER_RESTS[] = "te2PointerRests";

bool IsKeyReason(Qt::FocusReason reason)
{
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason
        || reason == Qt::ShortcutFocusReason;
}

/// What is framed as a field: the editable part of a box belongs to the box.
bool IsField(const QWidget* widget)
{
    return qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QComboBox*>(widget)
        || qobject_cast<const QAbstractSpinBox*>(widget);
}

QWidget* FramedField(QWidget* widget)
{
    QWidget* const parent = widget->parentWidget();
    return IsField(parent) ? parent : IsField(widget) ? widget : nullptr;
}

bool IsWatched(const QWidget* widget)
{
    if (IsField(widget))
        return true;
    return qobject_cast<const QSplitterHandle*>(widget) || qobject_cast<const QPushButton*>(widget)
        || qobject_cast<const QCheckBox*>(widget);
}

/// The handle that is painted: options name its splitter only.
const QWidget* PaintedWidget(const QPainter& painter)
{
    const QPaintDevice* const device = painter.device();
    return device && device->devType() == QInternal::Widget ? static_cast<const QWidget*>(device)
                                                            : nullptr;
}

void DrawSplitter(const QStyleOption& option, QPainter& painter)
{
    const QWidget* const handle = PaintedWidget(painter);
    const bool lit = option.state & QStyle::State_Sunken
        || (handle && handle->property(POINTER_RESTS).toBool());
    const QColor color = Theme::Color(lit ? Theme::Role::Lake : Theme::Role::Groove);
    const int hairline = Theme::Hairline();
    QRect groove = option.rect;
    // A horizontal splitter has upright handles.
    if (option.state & QStyle::State_Horizontal) {
        groove.setLeft(groove.left() + (groove.width() - hairline) / 2);
        groove.setWidth(hairline);
    } else {
        groove.setTop(groove.top() + (groove.height() - hairline) / 2);
        groove.setHeight(hairline);
    }
    painter.fillRect(option.rect, Theme::Color(Theme::Role::Panel));
    painter.fillRect(groove, color);
}

QString MessageIcon(QStyle::StandardPixmap icon)
{
    switch (icon) {
    case QStyle::SP_MessageBoxQuestion: return QStringLiteral("question");
    case QStyle::SP_MessageBoxWarning: return QStringLiteral("status_warning");
    case QStyle::SP_MessageBoxCritical: return QStringLiteral("critical");
    case QStyle::SP_MessageBoxInformation: return QStringLiteral("status_info");
    default: return {};
    }
}

} // namespace

TarnwickStyle::TarnwickStyle()
    : QProxyStyle(QStringLiteral("Fusion"))
{ }

void TarnwickStyle::polish(QWidget* widget)
{
    QProxyStyle::polish(widget);
    auto* const combo = qobject_cast<QComboBox*>(widget);
    if (combo && !qobject_cast<ComboRowDelegate*>(combo->itemDelegate()))
        combo->setItemDelegate(new ComboRowDelegate(combo));
    if (!IsWatched(widget))
        return;
    widget->setAttribute(Qt::WA_Hover);
    widget->removeEventFilter(this);
    widget->installEventFilter(this);
}

void TarnwickStyle::unpolish(QWidget* widget)
{
    widget->removeEventFilter(this);
    QProxyStyle::unpolish(widget);
}

bool TarnwickStyle::eventFilter(QObject* watched, QEvent* event)
{
    auto* const widget = qobject_cast<QWidget*>(watched);
    if (!widget)
        return false;
    if (event->type() == QEvent::PaletteChange) {
        ColorPlaceholder(*widget);
    } else if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        OnFocusEvent(widget, *static_cast<QFocusEvent*>(event));
    } else if (event->type() == QEvent::HoverLeave) {
        widget->setProperty(POINTER_INSIDE, false);
        widget->setProperty(POINTER_RESTS, false);
    } else if (event->type() == QEvent::HoverEnter && qobject_cast<QSplitterHandle*>(widget)) {
        widget->setProperty(POINTER_INSIDE, true);
        QTimer::singleShot(REST_DELAY, widget, [widget] {
            widget->setProperty(POINTER_RESTS, widget->property(POINTER_INSIDE));
            widget->update();
        });
    }
    return false;
}

/// A style sheet gives placeholders the colour of the text.
void TarnwickStyle::ColorPlaceholder(QWidget& widget)
{
    const QColor faint = Theme::Color(Theme::Role::Faint);
    QPalette colors = widget.palette();
    if (!qobject_cast<QLineEdit*>(&widget) || colors.color(QPalette::PlaceholderText) == faint)
        return;
    colors.setColor(QPalette::PlaceholderText, faint);
    widget.setPalette(colors);
}

void TarnwickStyle::OnFocusEvent(QWidget* widget, const QFocusEvent& event)
{
    if (event.gotFocus())
        widget->setProperty(FOCUS_BY_KEY, IsKeyReason(event.reason()));
    QWidget* const field = FramedField(widget);
    if (!field)
        return;
    delete m_halo;
    if (event.gotFocus() && field->parentWidget())
        m_halo = new FocusHalo(field);
}

/// Round a button, or round the box of a check box: at a distance, and only when the focus came by
/// a key.
void TarnwickStyle::DrawFocusRing(
    const QStyleOption& option, QPainter& painter, const QWidget* widget) const
{
    const bool isButton = qobject_cast<const QPushButton*>(widget);
    const bool isCheck = qobject_cast<const QCheckBox*>(widget);
    const bool byKey = isButton || isCheck ? widget->property(FOCUS_BY_KEY).toBool()
                                           : option.state & State_KeyboardFocusChange;
    // In a list that pops up the current row says it all.
    const bool isPopup = widget && widget->window()->windowType() == Qt::Popup;
    if (!byKey || isPopup)
        return;
    const double thickness = isButton || isCheck ? Theme::Dp(RING) : Theme::Hairline();
    QRectF ring = option.rect;
    if (isButton) {
        ring = widget->rect();
    } else if (isCheck) {
        // The option is the label's. The margin of the box is the room for its ring.
        QStyleOptionButton box;
        box.initFrom(widget);
        ring = widget->style()->subElementRect(SE_CheckBoxIndicator, &box, widget);
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Theme::Color(Theme::Role::Lake), thickness));
    const double half = thickness / 2;
    const bool isRow = qobject_cast<const QAbstractItemView*>(widget);
    const double radius = isRow ? 0 : Theme::Dp(RADIUS) + (isButton || isCheck ? half : 0);
    painter.drawRoundedRect(ring.adjusted(half, half, -half, -half), radius, radius);
    painter.restore();
}

void TarnwickStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
    QPainter* painter, const QWidget* widget) const
{
    switch (element) {
    case PE_FrameFocusRect: DrawFocusRing(*option, *painter, widget); break;
    case PE_PanelMenu: MenuLook::DrawPanel(option->rect, *painter); break;
    case PE_FrameMenu: break; // drawn with the panel
    default: QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void TarnwickStyle::drawControl(ControlElement element, const QStyleOption* option,
    QPainter* painter, const QWidget* widget) const
{
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element == CE_Splitter)
        DrawSplitter(*option, *painter);
    else if (element == CE_MenuItem && item)
        MenuLook::DrawItem(*item, *painter);
    else if (element == CE_MenuTearoff)
        MenuLook::DrawTearOff(*option, *painter);
    else if (element != CE_MenuEmptyArea)
        QProxyStyle::drawControl(element, option, painter, widget);
}

QSize TarnwickStyle::sizeFromContents(
    ContentsType type, const QStyleOption* option, const QSize& size, const QWidget* widget) const
{
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (type == CT_MenuItem && item)
        return MenuLook::ItemSize(*item, size);
    return QProxyStyle::sizeFromContents(type, option, size, widget);
}

int TarnwickStyle::pixelMetric(
    PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    switch (metric) {
    case PM_SplitterWidth: return Theme::Dp(4);
    case PM_SmallIconSize:
    case PM_ButtonIconSize:
    case PM_ToolBarIconSize: return Theme::Dp(16);
    case PM_MessageBoxIconSize: return Theme::Dp(MESSAGE_ICON_SIZE);
    case PM_TextCursorWidth: return Theme::Dp(2);
    case PM_ScrollBarExtent: return Theme::Dp(12);
    case PM_MenuTearoffHeight: return Theme::Dp(9);
    case PM_MenuPanelWidth: return Theme::Hairline();
    case PM_MenuVMargin: return Theme::Dp(4);
    case PM_MenuHMargin: return 0;
    case PM_SubMenuOverlap: return 0;
    case PM_LayoutHorizontalSpacing:
        // The buttons bring the room for their rings along.
        if (qobject_cast<const QDialogButtonBox*>(widget))
            return Theme::Dp(BUTTON_SPACING - 2 * (RING + RING_GAP));
        return QProxyStyle::pixelMetric(metric, option, widget);
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
    case SH_ComboBox_Popup:
    case SH_UnderlineShortcut:
    case SH_DialogButtonBox_ButtonsHaveIcons: return 0;
    default: return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
}

QIcon TarnwickStyle::standardIcon(
    StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const
{
    const QString name = MessageIcon(icon);
    return name.isEmpty() ? QProxyStyle::standardIcon(icon, option, widget) : Theme::Icon(name);
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
