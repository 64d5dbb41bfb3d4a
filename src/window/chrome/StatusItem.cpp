#include "window/chrome/StatusItem.h"

#include "window/chrome/Theme.h"

#include <QFocusEvent>
#include <QPainter>
#include <QtMath>

#include <algorithm>

namespace {

// Design pixels.
constexpr int HEIGHT = 20;
constexpr int SIDE_PADDING = 8;
constexpr int ICON_SIZE = 14;
constexpr int ICON_SPACING = 4;
constexpr int PART_SPACING = 10;
constexpr int RADIUS = 4;

constexpr int REMEMBERED_WIDTHS = 16;

/// Rounded up: in a pixel less than it takes the text would be elided.
int TextWidth(const QFont& font, const QString& text)
{
    return qCeil(QFontMetricsF(font).horizontalAdvance(text));
}

} // namespace

StatusItem::StatusItem(QWidget* parent)
    : QAbstractButton(parent)
{
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void StatusItem::SetParts(const QVector<Part>& parts, const QString& sentence)
{
    m_parts = parts;
    setAccessibleName(sentence);
    m_lastWidths.append(ContentWidth());
    if (m_lastWidths.size() > REMEMBERED_WIDTHS)
        m_lastWidths.removeFirst();
    updateGeometry();
    update();
}

void StatusItem::SetText(const QString& text, const QColor& color, const QString& sentence)
{
    SetParts({{QString(), text, color, false}}, sentence);
}

QString StatusItem::GetText() const
{
    QStringList texts;
    for (const Part& part : m_parts)
        texts.append(part.text);
    return texts.join(QLatin1Char(' '));
}

void StatusItem::SetPressable(bool pressable)
{
    m_pressable = pressable;
    setFocusPolicy(pressable ? Qt::TabFocus : Qt::NoFocus);
    // Presses on what goes nowhere belong to the bar.
    setAttribute(Qt::WA_TransparentForMouseEvents, !pressable);
    update();
}

void StatusItem::SetWidthKept(bool kept)
{
    m_widthKept = kept;
}

void StatusItem::ForgetWidths()
{
    m_lastWidths.clear();
}

int StatusItem::ContentWidth() const
{
    int width = 0;
    for (const Part& part : m_parts) {
        if (width > 0)
            width += Theme::Dp(PART_SPACING);
        if (!part.icon.isEmpty())
            width += Theme::Dp(ICON_SIZE);
        if (!part.icon.isEmpty() && !part.text.isEmpty())
            width += Theme::Dp(ICON_SPACING);
        width += TextWidth(font(), part.text);
    }
    return width;
}

QSize StatusItem::sizeHint() const
{
    int width = ContentWidth();
    if (m_widthKept && !m_lastWidths.isEmpty())
        width = qMax(width, *std::max_element(m_lastWidths.cbegin(), m_lastWidths.cend()));
    return {width + 2 * Theme::Dp(SIDE_PADDING), Theme::Dp(HEIGHT)};
}

QSize StatusItem::minimumSizeHint() const
{
    const bool shrinks = sizePolicy().horizontalPolicy() == QSizePolicy::Maximum;
    return shrinks ? QSize(0, Theme::Dp(HEIGHT)) : sizeHint();
}

void StatusItem::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_pressable && (isDown() || underMouse())) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(Theme::Color(isDown() ? Theme::Role::Pressed : Theme::Role::ToolHover));
        painter.drawRoundedRect(rect(), Theme::Dp(RADIUS), Theme::Dp(RADIUS));
    }
    PaintParts(painter);
    if (hasFocus() && m_focusByKey)
        Theme::DrawFocusEdge(painter, rect(), RADIUS);
}

/// At the right end of a field that kept its width: what stands behind it stays where it is.
void StatusItem::PaintParts(QPainter& painter) const
{
    const int padding = Theme::Dp(SIDE_PADDING);
    const int right = width() - padding;
    int left = m_widthKept ? qMax(padding, right - ContentWidth()) : padding;
    const int icon = Theme::Dp(ICON_SIZE);
    for (const Part& part : m_parts) {
        if (!part.icon.isEmpty()) {
            const QRect area(left, (height() - icon) / 2, icon, icon);
            const qreal ratio = devicePixelRatioF();
            painter.drawPixmap(area,
                part.tinted ? Theme::TintedPixmap(part.icon, ICON_SIZE, part.color, ratio)
                            : Theme::Pixmap(part.icon, ICON_SIZE, ratio));
            left += icon + (part.text.isEmpty() ? 0 : Theme::Dp(ICON_SPACING));
        }
        painter.setPen(part.color);
        const QString text
            = fontMetrics().elidedText(part.text, Qt::ElideRight, qMax(0, right - left));
        painter.drawText(QRect(left, 0, qMax(0, right - left), height()),
            Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
        left += TextWidth(font(), text) + Theme::Dp(PART_SPACING);
    }
}

void StatusItem::enterEvent(QEvent* event)
{
    QAbstractButton::enterEvent(event);
    update();
}

void StatusItem::leaveEvent(QEvent* event)
{
    QAbstractButton::leaveEvent(event);
    update();
}

void StatusItem::focusInEvent(QFocusEvent* event)
{
    m_focusByKey = event->reason() == Qt::TabFocusReason
        || event->reason() == Qt::BacktabFocusReason || event->reason() == Qt::ShortcutFocusReason;
    QAbstractButton::focusInEvent(event);
}

void StatusItem::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::FontChange)
        ForgetWidths();
    QAbstractButton::changeEvent(event);
}
