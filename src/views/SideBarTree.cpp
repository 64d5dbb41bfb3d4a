#include "views/SideBarTree.h"

#include "views/FocusReason.h"
#include "views/PlainToolTip.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/Theme.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QHelpEvent>
#include <QPainter>
#include <QStyledItemDelegate>

namespace {

// Design pixels.
constexpr int ROW_HEIGHT = 22;
constexpr int LEVEL_STEP = 14;
constexpr int ARROW_LEFT = 6;
constexpr int ARROW_SIZE = 16;
constexpr int ICON_LEFT = 22;
constexpr int ICON_SIZE = 16;
constexpr int LANGUAGE_ICON_SIZE = 14;
constexpr int ICON_GAP = 6;
constexpr int DETAIL_GAP = 8;
constexpr int HEADING_LEFT = 28;
constexpr int RIGHT_MARGIN = 8;
constexpr int MARK_MARGIN = 7; ///< right of the box
constexpr int MARK_BOX = 20;
constexpr int DOT_SIZE = 7;
constexpr int CROSS_SIZE = 14;

/// All rows are equally high; the rest of the painting is the tree's own.
class RowHeightDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override
    {
        return {0, SideBarTree::RowHeight()};
    }
};

int LevelOf(const QModelIndex& index)
{
    int level = 0;
    for (QModelIndex parent = index.parent(); parent.isValid(); parent = parent.parent())
        ++level;
    return level;
}

int CountRows(const QTreeWidgetItem& parent)
{
    int rows = 0;
    for (int i = 0; i < parent.childCount(); ++i) {
        const QTreeWidgetItem* const item = parent.child(i);
        if (!item->isHidden())
            rows += 1 + (item->isExpanded() ? CountRows(*item) : 0);
    }
    return rows;
}

bool IsOwnKey(const QKeyEvent& event)
{
    if (event.matches(QKeySequence::Copy))
        return true;
    if (event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier))
        return false;
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Delete:
    case Qt::Key_Space: return true;
    default: return !event.text().isEmpty() && event.text().at(0).isPrint();
    }
}

} // namespace

SideBarTree::SideBarTree(QWidget* parent)
    : QTreeWidget(parent)
{
    setFrameShape(QFrame::NoFrame);
    setHeaderHidden(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    setUniformRowHeights(true);
    setItemDelegate(new RowHeightDelegate(this));
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    setMinimumSize(0, 0);
    header()->setMinimumSectionSize(0);
    viewport()->setAutoFillBackground(false);
    viewport()->setAttribute(Qt::WA_Hover);
    FollowLook(this, [this] {
        setIndentation(Theme::Dp(LEVEL_STEP));
        scheduleDelayedItemsLayout();
    });
    // Rows are painted over their whole width, of which the toolkit knows their text alone.
    const auto repaint = [this] { viewport()->update(); };
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, repaint);
    connect(model(), &QAbstractItemModel::dataChanged, this, repaint);
}

int SideBarTree::RowHeight()
{
    return Theme::Dp(ROW_HEIGHT);
}

int SideBarTree::GetRowsHeight() const
{
    return CountRows(*invisibleRootItem()) * RowHeight();
}

QRect SideBarTree::MarkBox(const QRect& row) const
{
    const int extent = Theme::Dp(MARK_BOX);
    return {row.right() + 1 - Theme::Dp(MARK_MARGIN) - extent,
        row.top() + (row.height() - extent) / 2, extent, extent};
}

SideBarTree::RowLook SideBarTree::LookOf(const QModelIndex& index, const QRect& row) const
{
    RowLook look;
    look.index = index;
    look.row = row;
    look.level = LevelOf(index);
    look.current = selectionModel()->isSelected(index) || index.data(MarkedRole).toBool();
    look.hovered = viewport()->underMouse() && !index.data(HeadingRole).toBool()
        && row.contains(viewport()->mapFromGlobal(QCursor::pos()));
    return look;
}

void SideBarTree::drawRow(
    QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const QRect row(0, option.rect.top(), viewport()->width(), option.rect.height());
    const RowLook look = LookOf(index, row);
    if (look.current)
        painter->fillRect(row, Theme::Color(Theme::Role::Row));
    else if (look.hovered)
        painter->fillRect(row, Theme::Color(Theme::Role::Hover));
    PaintBranch(*painter, look);
    PaintLabel(*painter, look);
    PaintMark(*painter, look);
    if (hasFocus() && m_focusByKey && index == currentIndex())
        Theme::DrawFocusEdge(*painter, row, 0);
}

void SideBarTree::PaintBranch(QPainter& painter, const RowLook& look) const
{
    const int step = Theme::Dp(LEVEL_STEP);
    const int left = Theme::Dp(ARROW_LEFT);
    const int size = Theme::Dp(ARROW_SIZE);
    for (int level = 0; level < look.level; ++level) {
        painter.fillRect(left + level * step + size / 2 - Theme::Hairline(), look.row.top(),
            Theme::Hairline(), look.row.height(), Theme::Color(Theme::Role::ToolHover));
    }
    if (!model()->hasChildren(look.index))
        return;
    const QString name = isExpanded(look.index) ? QStringLiteral("view_expanded")
                                                : QStringLiteral("view_collapsed");
    painter.drawPixmap(QRect(left + look.level * step,
                           look.row.top() + (look.row.height() - size) / 2, size, size),
        Theme::Pixmap(name, ARROW_SIZE, devicePixelRatioF()));
}

void SideBarTree::PaintLabel(QPainter& painter, const RowLook& look) const
{
    const bool heading = look.index.data(HeadingRole).toBool();
    const bool absent = look.index.data(AbsentRole).toBool();
    int left = heading ? Theme::Dp(HEADING_LEFT)
                       : Theme::Dp(ICON_LEFT) + look.level * Theme::Dp(LEVEL_STEP);
    const QIcon icon = look.index.data(Qt::DecorationRole).value<QIcon>();
    if (!icon.isNull()) {
        const int size = Theme::Dp(
            look.index.data(LanguageIconRole).toBool() ? LANGUAGE_ICON_SIZE : ICON_SIZE);
        icon.paint(&painter,
            QRect(left, look.row.top() + (look.row.height() - size) / 2, size, size),
            Qt::AlignCenter, absent ? QIcon::Disabled : QIcon::Normal);
        left += size + Theme::Dp(ICON_GAP);
    }
    const bool hasMark
        = look.index.data(ClosableRole).toBool() || look.index.data(ModifiedRole).toBool();
    const int right
        = hasMark ? MarkBox(look.row).left() : look.row.right() - Theme::Dp(RIGHT_MARGIN);
    QRect area(left, look.row.top(), qMax(0, right - left), look.row.height());

    const auto draw
        = [&](const QFont& font, Theme::Role role, Qt::TextElideMode mode, const QString& text) {
              painter.setFont(font);
              painter.setPen(Theme::Color(role));
              const QString shown = painter.fontMetrics().elidedText(text, mode, area.width());
              // Half a pixel that is over goes below the text.
              const int over = (area.height() - painter.fontMetrics().height()) % 2;
              painter.drawText(area.adjusted(0, 0, 0, -over),
                  Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
              area.setLeft(area.left() + painter.fontMetrics().horizontalAdvance(shown));
          };
    QFont labelFont = heading ? Theme::SmallFont(font()) : font();
    labelFont.setBold(look.index.data(Qt::FontRole).value<QFont>().bold());
    const Theme::Role quiet = look.current ? Theme::Role::Soft : Theme::Role::Faint;
    const Theme::Role label = absent ? Theme::Role::Disabled
        : heading                    ? Theme::Role::Faint
                                     : Theme::Role::Text;
    draw(labelFont, label, Qt::ElideRight, look.index.data().toString());
    area.setLeft(qMin(area.right(), area.left() + Theme::Dp(DETAIL_GAP)));
    draw(Theme::SmallFont(font()), quiet, Qt::ElideMiddle, look.index.data(DetailRole).toString());
}

void SideBarTree::PaintMark(QPainter& painter, const RowLook& look) const
{
    const QRect box = MarkBox(look.row);
    const bool pointed = look.hovered && box.contains(viewport()->mapFromGlobal(QCursor::pos()));
    const bool modified = look.index.data(ModifiedRole).toBool();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    if (look.index.data(ClosableRole).toBool() && look.hovered && (pointed || !modified)) {
        if (pointed) {
            painter.setBrush(Theme::Color(Theme::Role::ToolHover));
            painter.drawRoundedRect(box, Theme::Dp(4), Theme::Dp(4));
        }
        QRect cross(0, 0, Theme::Dp(CROSS_SIZE), Theme::Dp(CROSS_SIZE));
        cross.moveCenter(box.center());
        painter.drawPixmap(cross,
            Theme::TintedPixmap(QStringLiteral("close"), CROSS_SIZE,
                Theme::Color(pointed ? Theme::Role::Strong : Theme::Role::Icon),
                devicePixelRatioF()));
    } else if (modified) {
        const int size = Theme::Dp(DOT_SIZE);
        painter.setBrush(Theme::Color(Theme::Role::Text));
        painter.drawEllipse(
            QRect(box.center().x() - size / 2, box.center().y() - size / 2, size, size));
    }
    painter.restore();
}

bool SideBarTree::IsElided(const QModelIndex& index) const
{
    const int left = Theme::Dp(ICON_LEFT) + LevelOf(index) * Theme::Dp(LEVEL_STEP)
        + Theme::Dp(ICON_SIZE) + Theme::Dp(ICON_GAP);
    const int right = index.data(ClosableRole).toBool()
        ? MarkBox(QRect(0, 0, viewport()->width(), RowHeight())).left()
        : viewport()->width() - Theme::Dp(RIGHT_MARGIN);
    return fontMetrics().horizontalAdvance(index.data().toString()) > right - left;
}

QString SideBarTree::ToolTipOf(const QModelIndex& index) const
{
    const QString text = index.data(Qt::ToolTipRole).toString();
    if (!text.isEmpty() || !IsElided(index))
        return text;
    return index.data().toString();
}

bool SideBarTree::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && IsOwnKey(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    return QTreeWidget::event(event);
}

bool SideBarTree::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto& help = static_cast<const QHelpEvent&>(*event);
        const QModelIndex index = indexAt(help.pos());
        ShowPlainToolTip(*this, index, help.globalPos(), ToolTipOf(index));
        return true;
    }
    // The cross under the pointer looks different.
    if (event->type() == QEvent::HoverMove)
        viewport()->update();
    return QTreeWidget::viewportEvent(event);
}

bool SideBarTree::HandleArrowPress(const QPoint& point)
{
    const QModelIndex index = indexAt(point);
    const int left = LevelOf(index) * Theme::Dp(LEVEL_STEP);
    const int right = left + Theme::Dp(ARROW_LEFT) + Theme::Dp(ARROW_SIZE);
    if (!index.isValid() || !model()->hasChildren(index) || point.x() < left || point.x() >= right)
        return false;
    setExpanded(index, !isExpanded(index));
    return true;
}

void SideBarTree::mousePressEvent(QMouseEvent* event)
{
    m_focusByKey = false;
    const QModelIndex index = indexAt(event->pos());
    const QRect rect = visualRect(index);
    const QRect row(0, rect.top(), viewport()->width(), rect.height());
    m_pressedMark = QModelIndex();
    const bool closes = event->button() == Qt::MiddleButton
        || (event->button() == Qt::LeftButton && MarkBox(row).contains(event->pos()));
    if (index.data(ClosableRole).toBool() && closes) {
        m_pressedMark = index;
        return;
    }
    if (event->button() == Qt::LeftButton && HandleArrowPress(event->pos()))
        return;
    QTreeWidget::mousePressEvent(event);
}

void SideBarTree::mouseReleaseEvent(QMouseEvent* event)
{
    const QPersistentModelIndex pressed = m_pressedMark;
    m_pressedMark = QModelIndex();
    if (!pressed.isValid()) {
        QTreeWidget::mouseReleaseEvent(event);
        return;
    }
    if (indexAt(event->pos()) == pressed)
        Q_EMIT CloseRequested(itemFromIndex(pressed));
}

void SideBarTree::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && HandleArrowPress(event->pos()))
        return;
    QTreeWidget::mouseDoubleClickEvent(event);
}

void SideBarTree::keyPressEvent(QKeyEvent* event)
{
    QTreeWidgetItem* const item = currentItem();
    const bool deletes = event->key() == Qt::Key_Delete && event->modifiers() == Qt::NoModifier;
    if (deletes && item && item->data(0, ClosableRole).toBool())
        Q_EMIT CloseRequested(item);
    else if (event->matches(QKeySequence::Copy) && item)
        CopyItem(*item);
    else
        QTreeWidget::keyPressEvent(event);
}

void SideBarTree::CopyItem(const QTreeWidgetItem& item) const
{
    const QString text = item.data(0, CopyRole).toString();
    QApplication::clipboard()->setText(text.isEmpty() ? item.text(0) : text);
}

void SideBarTree::focusInEvent(QFocusEvent* event)
{
    m_focusByKey = IsKeyboardFocus(event->reason());
    QTreeWidget::focusInEvent(event);
    viewport()->update();
}

void SideBarTree::focusOutEvent(QFocusEvent* event)
{
    QTreeWidget::focusOutEvent(event);
    viewport()->update();
}
