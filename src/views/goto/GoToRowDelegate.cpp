#include "views/goto/GoToRowDelegate.h"

#include "views/PlainToolTip.h"
#include "views/goto/GoToModel.h"
#include "window/chrome/Theme.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>

namespace {

// Design pixels.
constexpr int ROW_HEIGHT = 26;
constexpr int SIDE_PADDING = 10;
constexpr int RADIUS = 3;
constexpr int ICON_BOX = 16;
constexpr int LANGUAGE_ICON = 14;
constexpr int ICON_GAP = 8;
constexpr int DETAIL_GAP = 10;
constexpr int LEVEL_STEP = 14;

constexpr int MINIMUM_DETAIL = 40; ///< design pixels that a name leaves, or the detail is left out

using Hits = QVector<int>;

/// A part of a row's text, in which the letters at some places are emphasised.
struct Piece
{
    QString text;
    Hits hits; ///< in the piece
    QFont font;
    QColor color;
};

/// The hits from `from` to before `to`, counted from `from`.
Hits HitsWithin(const Hits& hits, int from, int to)
{
    Hits within;
    for (const int hit : hits) {
        if (hit >= from && hit < to)
            within.append(hit - from);
    }
    return within;
}

QFont HitFont(const QFont& base)
{
    QFont font = base;
    font.setWeight(QFont::Bold);
    return font;
}

/// Calls `run(text, isHit)` for each stretch of equal emphasis.
template <typename Run>
void ForEachRun(const QString& text, const Hits& hits, const Run& run)
{
    int start = 0;
    while (start < text.size()) {
        const bool isHit = hits.contains(start);
        int end = start + 1;
        while (end < text.size() && hits.contains(end) == isHit)
            ++end;
        run(text.mid(start, end - start), isHit);
        start = end;
    }
}

int WidthOf(const Piece& piece)
{
    int width = 0;
    ForEachRun(piece.text, piece.hits, [&](const QString& run, bool isHit) {
        width += QFontMetrics(isHit ? HitFont(piece.font) : piece.font).horizontalAdvance(run);
    });
    return width;
}

/// The piece with no more than `kept` characters of it, at the end or in the middle.
Piece Shortened(const Piece& whole, Qt::TextElideMode mode, int kept)
{
    static const QChar ELLIPSIS(0x2026);
    const int head = mode == Qt::ElideMiddle ? kept / 2 : kept;
    const int cut = whole.text.size() - kept;
    Piece piece = whole;
    piece.text = whole.text.left(head) + ELLIPSIS + whole.text.right(kept - head);
    piece.hits = HitsWithin(whole.hits, 0, head);
    for (const int hit : HitsWithin(whole.hits, head + cut, whole.text.size()))
        piece.hits.append(hit + head + 1);
    return piece;
}

/// As much of the piece as fits.
Piece Elided(const Piece& whole, Qt::TextElideMode mode, int width)
{
    if (WidthOf(whole) <= width)
        return whole;
    int fits = 0;
    int tooMuch = whole.text.size();
    while (fits + 1 < tooMuch) {
        const int kept = (fits + tooMuch) / 2;
        (WidthOf(Shortened(whole, mode, kept)) <= width ? fits : tooMuch) = kept;
    }
    return Shortened(whole, mode, fits);
}

/// From the left edge of `area`, which then begins behind the text.
void Draw(QPainter& painter, QRect& area, const Piece& piece)
{
    ForEachRun(piece.text, piece.hits, [&](const QString& run, bool isHit) {
        painter.setFont(isHit ? HitFont(piece.font) : piece.font);
        painter.setPen(isHit ? Theme::Color(Theme::Role::LakeText) : piece.color);
        painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, run);
        area.setLeft(area.left() + painter.fontMetrics().horizontalAdvance(run));
    });
}

Piece NamePiece(const GoToModel::Row& row, const QFont& font)
{
    const GoToEntry& entry = row.entry;
    return {entry.text.mid(entry.nameStart),
        HitsWithin(row.hits, entry.nameStart, entry.text.size()), font,
        Theme::Color(Theme::Role::Text)};
}

/// The folder, or else the detail.
Piece QuietPiece(const GoToModel::Row& row, const QFont& font, bool isCurrent)
{
    const GoToEntry& entry = row.entry;
    const int folderLength = entry.nameStart > 1 ? entry.nameStart - 1 : entry.nameStart;
    const bool hasFolder = folderLength > 0;
    return {hasFolder ? entry.text.left(folderLength) : entry.detail,
        hasFolder ? HitsWithin(row.hits, 0, folderLength) : Hits(), Theme::SmallFont(font),
        Theme::Color(isCurrent ? Theme::Role::Soft : Theme::Role::Faint)};
}

void DrawIcon(QPainter& painter, const QRect& row, int left, const GoToEntry& entry)
{
    const int designed = entry.isLanguageIcon ? LANGUAGE_ICON : ICON_BOX;
    const int size = Theme::Dp(designed);
    const int box = Theme::Dp(ICON_BOX);
    painter.drawPixmap(
        QRect(left + (box - size) / 2, row.top() + (row.height() - size) / 2, size, size),
        Theme::Pixmap(entry.icon, designed, painter.device()->devicePixelRatioF()));
}

} // namespace

int GoToRowDelegate::RowHeight()
{
    return Theme::Dp(ROW_HEIGHT);
}

QSize GoToRowDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const
{
    return {0, RowHeight()};
}

/// Where the text goes.
QRect GoToRowDelegate::ContentArea(const QRect& row, const GoToEntry& entry) const
{
    const int indent = m_isIndented ? entry.level * Theme::Dp(LEVEL_STEP) : 0;
    const int icon = entry.icon.size() > 0 ? Theme::Dp(ICON_BOX) + Theme::Dp(ICON_GAP) : 0;
    const int padding = Theme::Dp(SIDE_PADDING);
    // Deep levels leave half of the width to the names.
    return row.adjusted(padding + qMin(indent, row.width() / 2) + icon, 0, -padding, 0);
}

void GoToRowDelegate::paint(
    QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    using R = Theme::Role;
    const auto row = index.data(GoToModel::RowRole).value<GoToModel::Row>();
    const bool isCurrent = option.state & QStyle::State_Selected;
    const bool isHovered = option.state & QStyle::State_MouseOver;
    painter->save();
    if (!row.isNote && (isCurrent || isHovered)) {
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(Qt::NoPen);
        painter->setBrush(Theme::Color(isCurrent ? R::Row : R::Hover));
        painter->drawRoundedRect(option.rect, Theme::Dp(RADIUS), Theme::Dp(RADIUS));
    }
    QRect area = ContentArea(option.rect, row.entry);
    if (row.isNote) {
        const Piece note
            = {row.entry.text, {}, Theme::SmallFont(option.font), Theme::Color(R::Faint)};
        Draw(*painter, area, Elided(note, Qt::ElideRight, area.width()));
        painter->restore();
        return;
    }
    if (row.entry.icon.size() > 0)
        DrawIcon(*painter, option.rect, area.left() - Theme::Dp(ICON_BOX) - Theme::Dp(ICON_GAP),
            row.entry);
    const QColor quiet = Theme::Color(isCurrent ? R::Soft : R::Faint);
    if (!row.entry.shortcut.isEmpty()) {
        painter->setFont(Theme::SmallFont(option.font));
        painter->setPen(quiet);
        painter->drawText(area, Qt::AlignRight | Qt::AlignVCenter, row.entry.shortcut);
        area.setRight(area.right() - Theme::Dp(DETAIL_GAP)
            - painter->fontMetrics().horizontalAdvance(row.entry.shortcut));
    }
    Draw(*painter, area, Elided(NamePiece(row, option.font), Qt::ElideRight, area.width()));
    area.setLeft(area.left() + Theme::Dp(DETAIL_GAP));
    const Piece detail = QuietPiece(row, option.font, isCurrent);
    if (area.width() >= qMin(Theme::Dp(MINIMUM_DETAIL), WidthOf(detail)))
        Draw(*painter, area, Elided(detail, Qt::ElideMiddle, area.width()));
    painter->restore();
}

bool GoToRowDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
    const QStyleOptionViewItem& option, const QModelIndex& index)
{
    if (!index.isValid())
        return false;
    const auto row = index.data(GoToModel::RowRole).value<GoToModel::Row>();
    const QRect area = ContentArea(option.rect, row.entry);
    const int width = WidthOf(NamePiece(row, option.font)) + Theme::Dp(DETAIL_GAP)
        + WidthOf(QuietPiece(row, option.font, false));
    const GoToEntry& entry = row.entry;
    const bool isPath = !row.isNote && entry.nameStart > 0;
    const QString whole = isPath ? entry.target
        : entry.detail.isEmpty() ? entry.text
                                 : entry.text + QLatin1String("  ") + entry.detail;
    ShowPlainToolTip(
        *view, index, event->globalPos(), width > area.width() || isPath ? whole : QString());
    return true;
}
