// What the rows of the results tree look like.

#include "settings/ColorSettings.h"
#include "settings/Settings.h"
#include "views/search/SearchResultsModel.h"
#include "views/search/SearchResultsView.h"
#include "window/chrome/TextLook.h"
#include "window/chrome/Theme.h"

#include <QMouseEvent>
#include <QPainter>

namespace {

// Design pixels.
constexpr int ARROW_LEFT = 6;
constexpr int ARROW_SIZE = 16;
constexpr int ICON_LEFT = 22;
constexpr int ICON_SIZE = 14;
constexpr int ICON_GAP = 6;
constexpr int DETAIL_GAP = 8;
constexpr int HIT_LEFT = 36;
constexpr int RIGHT_MARGIN = 8;
constexpr int BADGE_HEIGHT = 16;
constexpr int BADGE_PADDING = 5;

/// How much of a line stands before the hit where the line does not fit.
constexpr int CHARACTERS_BEFORE = 12;
/// More than fits into any side bar.
constexpr int MOST_CHARACTERS = 400;

QString IconName(const QString& fileName)
{
    if (fileName.endsWith(QLatin1String(".mel"), Qt::CaseInsensitive))
        return QStringLiteral("lang_mel");
    if (fileName.endsWith(QLatin1String(".py"), Qt::CaseInsensitive)
        || fileName.endsWith(QLatin1String(".pyw"), Qt::CaseInsensitive))
        return QStringLiteral("lang_python");
    return QStringLiteral("lang_text");
}

QFont HitFont()
{
    int noZoom = 0;
    return TextLook::ZoomedFont(Settings::codeEditorFont, noZoom);
}

/// A line as far as it is painted, with the hit in view.
struct ShownLine
{
    QString text;
    int start = 0; ///< of the hit
    int end = 0;
};

ShownLine Shown(const SearchResult& hit, const QFontMetrics& metrics, int width)
{
    ShownLine line;
    const int length = hit.lineText.size();
    const int start = qBound(0, hit.column, length);
    const int end = qBound(start, hit.column + hit.length, length);
    const QChar dots(0x2026);
    const int space = qMax(1, width / qMax(1, metrics.horizontalAdvance(QLatin1Char('m'))));
    const int cut = end > space ? qMax(0, start - CHARACTERS_BEFORE) : 0;
    QString text = hit.lineText.mid(cut, MOST_CHARACTERS);
    // Tabs and the like have no width of their own here.
    for (QChar& character : text) {
        if (character.isSpace())
            character = QLatin1Char(' ');
    }
    line.text = cut > 0 ? dots + text : text;
    line.start = start - cut + (cut > 0);
    line.end = qMin(end - cut + (cut > 0), line.text.size());
    return line;
}

} // namespace

void SearchResultsView::drawRow(
    QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const QRect row(0, option.rect.top(), viewport()->width(), option.rect.height());
    const bool hovered
        = viewport()->underMouse() && row.contains(viewport()->mapFromGlobal(QCursor::pos()));
    if (selectionModel()->isSelected(index))
        painter->fillRect(row, Theme::Color(Theme::Role::Row));
    else if (hovered)
        painter->fillRect(row, Theme::Color(Theme::Role::Hover));
    painter->save();
    if (m_model->IsHit(index))
        PaintHit(*painter, row, index);
    else
        PaintFile(*painter, row, index);
    painter->restore();
    if (hasFocus() && m_focusByKey && index == currentIndex())
        Theme::DrawFocusEdge(*painter, row, 0);
}

void SearchResultsView::PaintFile(
    QPainter& painter, const QRect& row, const QModelIndex& index) const
{
    const SearchResultsModel::File& file = m_model->GetFile(index);
    const auto picture = [&](const QString& name, int left, int size) {
        const int extent = Theme::Dp(size);
        painter.drawPixmap(QRect(left, row.top() + (row.height() - extent) / 2, extent, extent),
            Theme::Pixmap(name, size, devicePixelRatioF()));
    };
    picture(isExpanded(index) ? QStringLiteral("view_expanded") : QStringLiteral("view_collapsed"),
        Theme::Dp(ARROW_LEFT), ARROW_SIZE);
    picture(IconName(file.path), Theme::Dp(ICON_LEFT), ICON_SIZE);

    const QFont small = Theme::SmallFont(font());
    const QString count = QString::number(file.hits.size());
    const int badgeHeight = Theme::Dp(BADGE_HEIGHT);
    const int badgeWidth = qMax(
        badgeHeight, QFontMetrics(small).horizontalAdvance(count) + 2 * Theme::Dp(BADGE_PADDING));
    const QRect badge(row.right() + 1 - Theme::Dp(RIGHT_MARGIN) - badgeWidth,
        row.top() + (row.height() - badgeHeight) / 2, badgeWidth, badgeHeight);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme::Color(Theme::Role::ToolHover));
    painter.drawRoundedRect(badge, badgeHeight / 2.0, badgeHeight / 2.0);
    painter.setFont(small);
    painter.setPen(Theme::Color(Theme::Role::Text));
    painter.drawText(badge, Qt::AlignCenter, count);

    int left = Theme::Dp(ICON_LEFT) + Theme::Dp(ICON_SIZE) + Theme::Dp(ICON_GAP);
    const int right = badge.left() - Theme::Dp(RIGHT_MARGIN);
    const auto draw
        = [&](const QFont& used, Theme::Role role, Qt::TextElideMode mode, const QString& text) {
              const QFontMetrics metrics(used);
              const QString shown = metrics.elidedText(text, mode, qMax(0, right - left));
              painter.setFont(used);
              painter.setPen(Theme::Color(role));
              painter.drawText(QRect(left, row.top(), right - left, row.height()),
                  Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
              left += metrics.horizontalAdvance(shown) + Theme::Dp(DETAIL_GAP);
          };
    const bool current = selectionModel()->isSelected(index);
    draw(font(), Theme::Role::Text, Qt::ElideRight, file.name);
    if (left < right)
        draw(small, current ? Theme::Role::Soft : Theme::Role::Faint, Qt::ElideMiddle, file.detail);
}

void SearchResultsView::PaintHit(
    QPainter& painter, const QRect& row, const QModelIndex& index) const
{
    painter.setFont(HitFont());
    const QFontMetrics metrics = painter.fontMetrics();
    const int left = Theme::Dp(HIT_LEFT);
    const QRect area(
        left, row.top(), qMax(0, row.right() - Theme::Dp(RIGHT_MARGIN) - left), row.height());
    const ShownLine line = Shown(m_model->GetHit(index), metrics, area.width());
    const QString shown = metrics.elidedText(line.text, Qt::ElideRight, area.width());
    const int end = qMin(line.end, shown.size());
    if (line.start < end) {
        const int from = metrics.horizontalAdvance(shown.left(line.start));
        const int to = metrics.horizontalAdvance(shown.left(end));
        const int top = row.top() + (row.height() - metrics.height()) / 2;
        painter.fillRect(left + from, top, to - from, metrics.height(),
            ColorSettings::GetCodeEditorFormat(ColorSettings::FIND_REPLACE_MATCHING, false)
                .background());
    }
    painter.setPen(Theme::Color(Theme::Role::Text));
    painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
}

QString SearchResultsView::ToolTipOf(const QModelIndex& index) const
{
    if (!index.isValid())
        return {};
    if (!m_model->IsHit(index))
        return m_model->GetFile(index).path;
    const QString& line = m_model->GetHit(index).lineText;
    const int width = viewport()->width() - Theme::Dp(HIT_LEFT) - Theme::Dp(RIGHT_MARGIN);
    const bool fits
        = QFontMetrics(HitFont()).horizontalAdvance(line.left(MOST_CHARACTERS)) <= width;
    return fits ? QString() : line.left(MOST_CHARACTERS);
}

bool SearchResultsView::HandleArrowPress(const QModelIndex& index, const QPoint& point)
{
    const bool onArrow = point.x() < Theme::Dp(ARROW_LEFT) + Theme::Dp(ARROW_SIZE);
    if (!index.isValid() || m_model->IsHit(index) || !onArrow)
        return false;
    setExpanded(index, !isExpanded(index));
    return true;
}
