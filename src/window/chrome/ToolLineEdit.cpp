#include "window/chrome/ToolLineEdit.h"

#include "window/chrome/FlatButton.h"
#include "window/chrome/Theme.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace {

// Design pixels.
constexpr int TOOL_EXTENT = 20;
constexpr int TOOLS_MARGIN = 7;
constexpr int TEXT_SHIFT = -1; ///< against the toolkit's own margin
constexpr int HALO = 1;
constexpr int RADIUS = 4;
constexpr double HALO_ALPHA = 0.45;

} // namespace

ToolLineEdit::ToolLineEdit(QWidget* parent)
    : QLineEdit(parent)
{
    setTextMargins(TEXT_SHIFT, 0, 0, 0);
}

void ToolLineEdit::AddTool(FlatButton* button)
{
    button->setParent(this);
    button->SetExtent(TOOL_EXTENT);
    button->setCursor(Qt::ArrowCursor);
    m_tools.append(button);
    const int width = Theme::Dp(TOOL_EXTENT) * m_tools.size();
    setTextMargins(TEXT_SHIFT, 0, width, 0);
    PlaceTools();
}

void ToolLineEdit::PlaceTools()
{
    const int extent = Theme::Dp(TOOL_EXTENT);
    int left = width() - Theme::Hairline() - Theme::Dp(TOOLS_MARGIN) - extent * m_tools.size();
    for (FlatButton* tool : qAsConst(m_tools)) {
        tool->setGeometry(left, (height() - extent) / 2, extent, extent);
        left += extent;
    }
}

void ToolLineEdit::SetFault(const QString& fault)
{
    if (m_fault == fault)
        return;
    const bool looksOtherwise = m_fault.isEmpty() != fault.isEmpty();
    m_fault = fault;
    UpdateToolTip();
    // What is shown about the text before is wrong now.
    if (underMouse())
        QToolTip::hideText();
    if (!looksOtherwise)
        return;
    setProperty("invalid", !fault.isEmpty());
    style()->unpolish(this);
    style()->polish(this);
    UpdateHalo();
}

void ToolLineEdit::SetPlainToolTip(const QString& toolTip)
{
    m_plainToolTip = toolTip;
    UpdateToolTip();
}

void ToolLineEdit::UpdateToolTip()
{
    const QString text = m_fault.isEmpty() ? m_plainToolTip : m_fault;
    setToolTip(text);
    setAccessibleDescription(text);
}

void ToolLineEdit::PaintHalo(QPainter& painter) const
{
    if (!hasFocus() || !isVisible())
        return;
    const double halo = Theme::Dp(HALO);
    const double outset = halo / 2.0;
    const Theme::Role role = m_fault.isEmpty() ? Theme::Role::Lake : Theme::Role::NoResults;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Theme::WithAlpha(role, HALO_ALPHA), halo));
    painter.drawRoundedRect(QRectF(geometry()).adjusted(-outset, -outset, outset, outset),
        Theme::Dp(RADIUS) + outset, Theme::Dp(RADIUS) + outset);
}

void ToolLineEdit::UpdateHalo()
{
    const int halo = Theme::Dp(HALO);
    if (parentWidget())
        parentWidget()->update(geometry().adjusted(-halo, -halo, halo, halo));
}

bool ToolLineEdit::event(QEvent* event)
{
    const bool handled = QLineEdit::event(event);
    // A style sheet gives the placeholder the colour of the text.
    if (event->type() == QEvent::Polish || event->type() == QEvent::StyleChange) {
        QPalette colors = palette();
        colors.setColor(QPalette::PlaceholderText, Theme::Color(Theme::Role::Faint));
        setPalette(colors);
    }
    return handled;
}

void ToolLineEdit::resizeEvent(QResizeEvent* event)
{
    QLineEdit::resizeEvent(event);
    PlaceTools();
}

void ToolLineEdit::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    UpdateHalo();
}

void ToolLineEdit::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    UpdateHalo();
}
