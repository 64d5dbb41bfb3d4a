#include "window/chrome/ToolLineEdit.h"

#include "window/chrome/FlatButton.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/Theme.h"

#include <QKeyEvent>
#include <QStyle>
#include <QToolTip>

#include <algorithm>

namespace {

// Design pixels.
constexpr int TOOL_EXTENT = 20;
constexpr int TOOLS_MARGIN = 7;
constexpr int TEXT_SHIFT = -1; ///< against the toolkit's own margin

} // namespace

ToolLineEdit::ToolLineEdit(QWidget* parent)
    : QLineEdit(parent)
{
    FollowLook(this, [this] { PlaceTools(); });
}

void ToolLineEdit::AddTool(FlatButton* button)
{
    button->setParent(this);
    button->SetExtent(TOOL_EXTENT);
    button->setCursor(Qt::ArrowCursor);
    m_tools.append(button);
    PlaceTools();
}

void ToolLineEdit::PlaceTools()
{
    const int extent = Theme::Dp(TOOL_EXTENT);
    setTextMargins(TEXT_SHIFT, 0, extent * m_tools.size(), 0);
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

/// What a tool has no use for comes here as to its parent; it is not for the text.
void ToolLineEdit::keyPressEvent(QKeyEvent* event)
{
    const auto hasFocus = [](const FlatButton* tool) { return tool->hasFocus(); };
    if (std::any_of(m_tools.cbegin(), m_tools.cend(), hasFocus))
        event->ignore();
    else
        QLineEdit::keyPressEvent(event);
}

void ToolLineEdit::resizeEvent(QResizeEvent* event)
{
    QLineEdit::resizeEvent(event);
    PlaceTools();
}
