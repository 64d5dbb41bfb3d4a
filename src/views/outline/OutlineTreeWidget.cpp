#include "views/outline/OutlineTreeWidget.h"

#include "window/chrome/Theme.h"

#include <QMouseEvent>
#include <QPainter>

namespace {

constexpr int MARGIN = 12; // design pixels

/// The height that the text took.
int DrawLines(QPainter& painter, const QRect& area, Theme::Role role, const QString& text)
{
    QRect drawn;
    painter.setPen(Theme::Color(role));
    painter.drawText(area, Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, text, &drawn);
    return drawn.height();
}

} // namespace

void OutlineTreeWidget::SetEmptyText(const QString& text, const QString& hint)
{
    if (text == m_emptyText && hint == m_emptyHint)
        return;
    m_emptyText = text;
    m_emptyHint = hint;
    setAccessibleDescription(QStringLiteral("%1 %2").arg(text, hint).trimmed());
    viewport()->update();
}

void OutlineTreeWidget::mousePressEvent(QMouseEvent* event)
{
    // The menu is about the whole outline; nobody wants to go anywhere.
    if (event->button() != Qt::RightButton)
        SideBarTree::mousePressEvent(event);
}

void OutlineTreeWidget::focusOutEvent(QFocusEvent* event)
{
    SideBarTree::focusOutEvent(event);
    Q_EMIT FocusOutClearSelection();
}

void OutlineTreeWidget::paintEvent(QPaintEvent* event)
{
    SideBarTree::paintEvent(event);
    if (m_emptyText.isEmpty())
        return;
    QPainter painter(viewport());
    const int margin = Theme::Dp(MARGIN);
    QRect area = viewport()->rect().adjusted(margin, margin, -margin, 0);
    area.setTop(area.top() + DrawLines(painter, area, Theme::Role::Soft, m_emptyText) + margin / 2);
    painter.setFont(Theme::SmallFont(font()));
    DrawLines(painter, area, Theme::Role::Faint, m_emptyHint);
}
