#include "output/HighlightRowDelegate.h"

#include "output/ConsoleColors.h"
#include "window/chrome/Theme.h"

#include <QPainter>

namespace {

// Design pixels.
constexpr int ROW_HEIGHT = 26;
constexpr int TEXT_MARGIN = 3;

/// The colour of a brush that the row was given; invalid without one.
QColor ColorOf(const QModelIndex& index, Qt::ItemDataRole role)
{
    const QVariant brush = index.data(role);
    return brush.isValid() ? brush.value<QBrush>().color() : QColor();
}

} // namespace

void HighlightRowDelegate::paint(
    QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    using R = Theme::Role;
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    const QStyle* const style = row.widget->style();
    const QRect check
        = style->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &row, row.widget);
    const QRect text = style->subElementRect(QStyle::SE_ItemViewItemText, &row, row.widget);
    painter->save();
    if (row.state & QStyle::State_Selected)
        painter->fillRect(row.rect, Theme::Color(R::Row));
    else if (row.state & QStyle::State_MouseOver)
        painter->fillRect(row.rect, Theme::Color(R::Hover));
    else
        painter->fillRect(row.rect, ConsoleBackground());
    QStyleOptionViewItem box = row;
    box.rect = check;
    box.state &= ~(QStyle::State_On | QStyle::State_Off | QStyle::State_HasFocus);
    box.state |= row.checkState == Qt::Checked ? QStyle::State_On : QStyle::State_Off;
    style->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, painter, row.widget);
    painter->setFont(ConsoleFont());
    const QFontMetrics metrics = painter->fontMetrics();
    const int margin = Theme::Dp(TEXT_MARGIN);
    const QString name = metrics.elidedText(row.text, Qt::ElideRight, text.width() - 2 * margin);
    const QColor background = ColorOf(index, Qt::BackgroundRole);
    if (background.isValid()) {
        QRect behind(
            text.left(), 0, metrics.horizontalAdvance(name) + 2 * margin, metrics.height());
        behind.moveTop(text.center().y() - behind.height() / 2);
        painter->fillRect(behind, background);
    }
    painter->setPen(ConsoleForeground(ColorOf(index, Qt::ForegroundRole)));
    painter->drawText(text.adjusted(margin, 0, -margin, 0),
        Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, name);
    painter->restore();
    if (row.state & QStyle::State_HasFocus && row.state & QStyle::State_KeyboardFocusChange)
        Theme::DrawFocusEdge(*painter, row.rect, 0);
}

QSize HighlightRowDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const
{
    const int textHeight = QFontMetrics(ConsoleFont()).height();
    return {0, qMax(Theme::Dp(ROW_HEIGHT), textHeight + 2 * Theme::Dp(TEXT_MARGIN))};
}
