#include "settings/pages/ColorRoleList.h"

#include "settings/pages/MarkedText.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/Theme.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>

namespace {

// Design pixels.
constexpr int ROW_HEIGHT = 24;
constexpr int PADDING = 8;
constexpr int SWATCH_WIDTH = 22;
constexpr int SWATCH_HEIGHT = 16;
constexpr int SWATCH_RADIUS = 3;
constexpr int DOT = 6;

using Part = ColorScheme::Part;
using R = Theme::Role;

enum ItemRole {
    FORMAT = Qt::UserRole,
    IS_MODIFIED,
};

class ColorRoleDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString match; ///< text that is shown on a ground of its own; empty for none

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
        const QModelIndex& index) const override
    {
        const bool isSelected = option.state & QStyle::State_Selected;
        const bool isModified = index.data(IS_MODIFIED).toBool();
        painter->save();
        if (isSelected || option.state & QStyle::State_MouseOver)
            painter->fillRect(option.rect, Theme::Color(isSelected ? R::Row : R::Hover));
        const int padding = Theme::Dp(PADDING);
        QRect swatch(
            option.rect.left() + padding, 0, Theme::Dp(SWATCH_WIDTH), Theme::Dp(SWATCH_HEIGHT));
        swatch.moveTop(option.rect.top() + (option.rect.height() - swatch.height()) / 2);
        PaintSwatch(*painter, option, swatch, index);
        QRect label = option.rect.adjusted(2 * padding + swatch.width(), 0, -padding, 0);
        if (isModified) {
            PaintDot(*painter, label);
            label.setRight(label.right() - Theme::Dp(DOT) - padding / 2);
        }
        painter->setPen(Theme::Color(isModified ? R::LakeText : R::Text));
        painter->setFont(option.font);
        DrawMarkedText(*painter, label, index.data().toString(), match);
        painter->restore();
        const auto byKey = QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;
        if ((option.state & byKey) == byKey)
            Theme::DrawFocusEdge(*painter, option.rect, 0);
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override
    {
        return {0, qMax(Theme::Dp(ROW_HEIGHT), option.fontMetrics.height())};
    }

private:
    /// A letter as the role would show it.
    static void PaintSwatch(QPainter& painter, const QStyleOptionViewItem& option,
        const QRect& area, const QModelIndex& index)
    {
        const auto format = index.data(FORMAT).value<QTextFormat>().toCharFormat();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Theme::Color(R::ButtonEdge), Theme::Hairline()));
        painter.setBrush(format.hasProperty(QTextFormat::BackgroundBrush)
                ? format.background()
                : QBrush(Theme::Color(R::Canvas)));
        const double half = Theme::Hairline() / 2.0;
        painter.drawRoundedRect(QRectF(area).adjusted(half, half, -half, -half),
            Theme::Dp(SWATCH_RADIUS), Theme::Dp(SWATCH_RADIUS));
        if (!format.hasProperty(QTextFormat::ForegroundBrush))
            return;
        QFont font = Theme::SmallFont(option.font);
        font.setWeight(format.fontWeight());
        font.setItalic(format.fontItalic());
        font.setUnderline(format.fontUnderline());
        painter.setFont(font);
        painter.setPen(format.foreground().color());
        painter.drawText(area, Qt::AlignCenter, QStringLiteral("a"));
    }

    static void PaintDot(QPainter& painter, const QRect& label)
    {
        const int extent = Theme::Dp(DOT);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(Theme::Color(R::Lake));
        painter.drawEllipse(QRect(label.right() + 1 - extent,
            label.top() + (label.height() - extent) / 2, extent, extent));
    }
};

} // namespace

ColorRoleList::ColorRoleList(const ColorScheme* scheme, ColorRole::Surface surface, QWidget* parent)
    : QListWidget(parent)
    , m_scheme(scheme)
    , m_surface(surface)
{
    setItemDelegate(new ColorRoleDelegate(this));
    setUniformItemSizes(true);
    setMouseTracking(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    for (const QString& key : ColorScheme::GetKeys(surface)) {
        auto* item = new QListWidgetItem(scheme->GetLabel({surface, key}), this);
        item->setData(Qt::ToolTipRole, key);
    }
    UpdateRoles();
    connect(this, &QListWidget::itemSelectionChanged, this, &ColorRoleList::OnSelectionChanged);
    FollowLook(this, [this] { scheduleDelayedItemsLayout(); });
}

ColorRole ColorRoleList::GetRole(int row) const
{
    return {m_surface, ColorScheme::GetKeys(m_surface).value(row)};
}

void ColorRoleList::ShowRole(const ColorRole& role)
{
    const QSignalBlocker blocker(this);
    if (role.surface == m_surface)
        setCurrentRow(ColorScheme::GetKeys(m_surface).indexOf(role.key));
    else
        clearSelection();
}

void ColorRoleList::UpdateRoles()
{
    for (int row = 0; row < count(); ++row) {
        const ColorRole role = GetRole(row);
        const bool isModified = m_scheme->IsModified(role);
        item(row)->setData(FORMAT, QVariant::fromValue<QTextFormat>(m_scheme->GetFormat(role)));
        item(row)->setData(IS_MODIFIED, isModified);
        item(row)->setData(Qt::AccessibleTextRole,
            isModified ? tr("%1, changed").arg(item(row)->text()) : item(row)->text());
    }
}

int ColorRoleList::MarkMatches(const QString& text)
{
    static_cast<ColorRoleDelegate*>(itemDelegate())->match = text;
    viewport()->update();
    m_firstMatch = -1;
    int matches = 0;
    for (int row = 0; row < count() && !text.isEmpty(); ++row) {
        const bool isMatch = item(row)->text().contains(text, Qt::CaseInsensitive)
            || GetRole(row).key.contains(text, Qt::CaseInsensitive);
        if (isMatch && matches++ == 0)
            m_firstMatch = row;
    }
    return matches;
}

void ColorRoleList::OnSelectionChanged()
{
    if (!selectedItems().isEmpty())
        Q_EMIT RoleChosen(GetRole(currentRow()));
}

/// A list without the chosen role has a current row all the same, and that comes first.
void ColorRoleList::keyPressEvent(QKeyEvent* event)
{
    const bool isNavigation = event->key() == Qt::Key_Down || event->key() == Qt::Key_Up;
    if (isNavigation && selectedItems().isEmpty())
        setCurrentRow(qMax(0, currentRow()), QItemSelectionModel::ClearAndSelect);
    else
        QListWidget::keyPressEvent(event);
}
