#include "output/HighlightPreview.h"

#include "output/ConsoleColors.h"
#include "window/chrome/Theme.h"

#include <QPainter>

namespace {

// Design pixels.
constexpr int HEIGHT = 30;
constexpr int MARGIN = 10;

} // namespace

HighlightPreview::HighlightPreview(QWidget* parent)
    : QWidget(parent)
{
    setAccessibleName(tr("Preview"));
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void HighlightPreview::Show(const QString& text, const QColor& foreground, const QColor& background)
{
    m_text = text;
    m_foreground = ConsoleForeground(foreground);
    m_background = ConsoleBackground(background);
    setAccessibleDescription(tr("%1 on %2").arg(m_foreground.name(), m_background.name()));
    update();
}

QSize HighlightPreview::sizeHint() const
{
    const int textHeight = QFontMetrics(ConsoleFont()).height();
    return {Theme::Dp(MARGIN), qMax(Theme::Dp(HEIGHT), textHeight + Theme::Dp(MARGIN))};
}

QSize HighlightPreview::minimumSizeHint() const
{
    return sizeHint();
}

void HighlightPreview::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const int hairline = Theme::Hairline();
    const int margin = Theme::Dp(MARGIN);
    painter.fillRect(rect(), Theme::Color(Theme::Role::Groove));
    painter.fillRect(rect().adjusted(hairline, hairline, -hairline, -hairline), m_background);
    painter.setFont(ConsoleFont());
    painter.setPen(m_foreground);
    const QRect area = rect().adjusted(margin, 0, -margin, 0);
    painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
        painter.fontMetrics().elidedText(m_text, Qt::ElideRight, area.width()));
}
