#include "settings/pages/KeyBindingDelegate.h"

#include "settings/pages/KeyBindingsModel.h"
#include "settings/pages/MarkedText.h"
#include "window/chrome/Theme.h"

#include <QPainter>
#include <QTreeView>

namespace {

// Design pixels.
constexpr int ROW_HEIGHT = 24;
constexpr int PADDING = 10; ///< left of the text of a cell
constexpr int KEY_PADDING = 3; ///< round a key that is the current one
constexpr int KEY_RADIUS = 3;

using M = KeyBindingsModel;
using R = Theme::Role;

const KeyBindingsModel& ModelOf(const QModelIndex& index)
{
    return *static_cast<const KeyBindingsModel*>(index.model());
}

R ColorOf(const QModelIndex& index)
{
    const bool isFixed = ModelOf(index).IsFixed(index.row());
    switch (index.column()) {
    case M::COMMAND: return isFixed ? R::Faint : R::Text;
    case M::SHORTCUT:
        return index.data(M::IS_CHANGED).toBool()                           ? R::LakeText
            : isFixed || ModelOf(index).GetSequences(index.row()).isEmpty() ? R::Faint
                                                                            : R::Soft;
    default:
        return index.data(M::IS_LOSING).toBool() ? R::StatusWarning
            : index.data(M::IS_CHANGED).toBool() ? R::LakeText
                                                 : R::Faint;
    }
}

bool IsCurrentRow(const QStyleOptionViewItem& option, const QModelIndex& index)
{
    const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
    return view && view->currentIndex().row() == index.row();
}

} // namespace

KeyBindingDelegate::KeyBindingDelegate(QObject* parent)
    : QStyledItemDelegate(parent)
{ }

void KeyBindingDelegate::SetEdited(int row, int place, int left)
{
    m_editedRow = row;
    m_editedPlace = place;
    m_editedLeft = left;
}

QVector<QRect> KeyBindingDelegate::PlaceKeys(
    const QRect& cell, const QFont& font, const QModelIndex& index) const
{
    const QFontMetrics metrics(font);
    const int separator = metrics.horizontalAdvance(QStringLiteral(", "));
    QVector<QRect> places;
    int left = cell.left() + Theme::Dp(PADDING);
    for (const QKeySequence& sequence : ModelOf(index).GetSequences(index.row())) {
        const int width = metrics.horizontalAdvance(M::ShownText(sequence));
        places.append(QRect(left, cell.top(), width, cell.height()));
        left += width + separator;
    }
    places.append(QRect(left, cell.top(), qMax(0, cell.right() + 1 - left), cell.height()));
    return places;
}

void KeyBindingDelegate::paint(
    QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const bool isCurrent = IsCurrentRow(option, index);
    const bool isHovered = option.state & QStyle::State_MouseOver;
    painter->save();
    if (isCurrent || isHovered)
        painter->fillRect(option.rect, Theme::Color(isCurrent ? R::Row : R::Hover));
    painter->setFont(index.column() == M::MARK ? Theme::SmallFont(option.font) : option.font);
    painter->setPen(Theme::Color(ColorOf(index)));
    const QRect area = option.rect.adjusted(Theme::Dp(PADDING), 0, 0, 0);
    if (index.column() == M::SHORTCUT && !ModelOf(index).GetSequences(index.row()).isEmpty())
        PaintKeys(*painter, option, index);
    else if (index.column() != M::SHORTCUT || index.row() != m_editedRow)
        DrawMarkedText(*painter, area, index.data().toString(), m_match);
    painter->restore();
}

void KeyBindingDelegate::PaintKeys(
    QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const auto& sequences = ModelOf(index).GetSequences(index.row());
    const QVector<QRect> places = PlaceKeys(option.rect, option.font, index);
    const bool hasPlace = sequences.size() > 1 && IsCurrentRow(option, index) && option.widget
        && option.widget->hasFocus();
    const bool isEdited = index.row() == m_editedRow;
    for (int i = 0; i < sequences.size(); ++i) {
        QRect area = places[i];
        area.setRight(isEdited ? m_editedLeft - 1 : option.rect.right());
        if (area.isEmpty() || (isEdited && i >= m_editedPlace))
            return;
        if (hasPlace && i == m_place && !isEdited) {
            const int padding = Theme::Dp(KEY_PADDING);
            const QRect key
                = places[i].adjusted(-padding, padding, padding, -padding).intersected(option.rect);
            Theme::DrawFocusEdge(painter, key, KEY_RADIUS);
        }
        DrawMarkedText(painter, area, M::ShownText(sequences[i]), m_match);
        if (i + 1 < sequences.size() && places[i].right() < area.right()) {
            painter.drawText(places[i].right() + 1, option.rect.top(), option.rect.width(),
                option.rect.height(), Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral(","));
        }
    }
}

QSize KeyBindingDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const
{
    const int margin = Theme::Dp(KEY_PADDING);
    return {0, qMax(Theme::Dp(ROW_HEIGHT), option.fontMetrics.height() + 2 * margin)};
}
