#include "views/SideBarRows.h"

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
#include <QTreeView>

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

constexpr int PICTURE_PADDING = 10;
constexpr int PICTURE_RADIUS = 4;

constexpr double DROP_ALPHA = 0.17;
constexpr double PICTURE_OPACITY = 0.92;

/// All rows are equally high; the rest of the painting is the tree's own.
class RowHeightDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override
    {
        return {0, SideBarRows::RowHeight()};
    }
};

int LevelOf(const QModelIndex& index)
{
    int level = 0;
    for (QModelIndex parent = index.parent(); parent.isValid(); parent = parent.parent())
        ++level;
    return level;
}

} // namespace

SideBarRows::SideBarRows(QTreeView& view)
    : m_view(view)
{
    view.setFrameShape(QFrame::NoFrame);
    view.setHeaderHidden(true);
    view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    MakeRowsEquallyHigh(view);
    view.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    view.setMinimumSize(0, 0);
    view.header()->setMinimumSectionSize(0);
    view.viewport()->setAutoFillBackground(false);
    view.viewport()->setAttribute(Qt::WA_Hover);
    FollowLook(&view, [&view] {
        view.setIndentation(Theme::Dp(LEVEL_STEP));
        view.doItemsLayout();
    });
}

void SideBarRows::FollowModel()
{
    // Rows are painted over their whole width, of which the toolkit knows their text alone.
    const auto repaint = [this] { m_view.viewport()->update(); };
    QObject::connect(
        m_view.selectionModel(), &QItemSelectionModel::selectionChanged, &m_view, repaint);
    QObject::connect(m_view.model(), &QAbstractItemModel::dataChanged, &m_view, repaint);
}

bool SideBarRows::IsOwnKey(const QKeyEvent& event)
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

int SideBarRows::RowHeight()
{
    return Theme::Dp(ROW_HEIGHT);
}

void SideBarRows::MakeRowsEquallyHigh(QTreeView& view)
{
    view.setUniformRowHeights(true);
    view.setItemDelegate(new RowHeightDelegate(&view));
}

QRect SideBarRows::MarkBox(const QRect& row) const
{
    const int extent = Theme::Dp(MARK_BOX);
    return {row.right() + 1 - Theme::Dp(MARK_MARGIN) - extent,
        row.top() + (row.height() - extent) / 2, extent, extent};
}

SideBarRows::RowLook SideBarRows::LookOf(const QModelIndex& index, const QRect& row) const
{
    RowLook look;
    look.index = index;
    look.row = row;
    look.level = LevelOf(index);
    look.current = m_view.selectionModel()->isSelected(index) || index.data(MarkedRole).toBool();
    look.hovered = m_view.viewport()->underMouse() && !index.data(HeadingRole).toBool()
        && row.contains(m_view.viewport()->mapFromGlobal(QCursor::pos()));
    return look;
}

void SideBarRows::DrawRow(QPainter* painter, const QRect& area, const QModelIndex& index) const
{
    const QRect row(0, area.top(), m_view.viewport()->width(), area.height());
    const RowLook look = LookOf(index, row);
    if (look.current)
        painter->fillRect(row, Theme::Color(Theme::Role::Row));
    else if (look.hovered)
        painter->fillRect(row, Theme::Color(Theme::Role::Hover));
    PaintBranch(*painter, look);
    PaintLabel(*painter, look);
    PaintMark(*painter, look);
    if (m_dropTarget == index)
        painter->fillRect(row, Theme::WithAlpha(Theme::Role::Lake, DROP_ALPHA));
    if (m_view.hasFocus() && m_focusByKey && index == m_view.currentIndex())
        Theme::DrawFocusEdge(*painter, row, 0);
}

void SideBarRows::PaintBranch(QPainter& painter, const RowLook& look) const
{
    const int step = Theme::Dp(LEVEL_STEP);
    const int left = Theme::Dp(ARROW_LEFT);
    const int size = Theme::Dp(ARROW_SIZE);
    for (int level = 0; level < look.level; ++level) {
        painter.fillRect(left + level * step + size / 2 - Theme::Hairline(), look.row.top(),
            Theme::Hairline(), look.row.height(), Theme::Color(Theme::Role::ToolHover));
    }
    if (!m_view.model()->hasChildren(look.index))
        return;
    const QString name = m_view.isExpanded(look.index) ? QStringLiteral("view_expanded")
                                                       : QStringLiteral("view_collapsed");
    painter.drawPixmap(QRect(left + look.level * step,
                           look.row.top() + (look.row.height() - size) / 2, size, size),
        Theme::Pixmap(name, ARROW_SIZE, m_view.devicePixelRatioF()));
}

void SideBarRows::PaintLabel(QPainter& painter, const RowLook& look) const
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
    QFont labelFont = heading ? Theme::SmallFont(m_view.font()) : m_view.font();
    labelFont.setBold(look.index.data(Qt::FontRole).value<QFont>().bold());
    const Theme::Role quiet = look.current ? Theme::Role::Soft : Theme::Role::Faint;
    const Theme::Role label = absent ? Theme::Role::Disabled
        : heading                    ? Theme::Role::Faint
                                     : Theme::Role::Text;
    draw(labelFont, label, Qt::ElideRight, look.index.data().toString());
    area.setLeft(qMin(area.right(), area.left() + Theme::Dp(DETAIL_GAP)));
    draw(Theme::SmallFont(m_view.font()), quiet, Qt::ElideMiddle,
        look.index.data(DetailRole).toString());
}

void SideBarRows::PaintMark(QPainter& painter, const RowLook& look) const
{
    const QRect box = MarkBox(look.row);
    const bool pointed
        = look.hovered && box.contains(m_view.viewport()->mapFromGlobal(QCursor::pos()));
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
                m_view.devicePixelRatioF()));
    } else if (modified) {
        const int size = Theme::Dp(DOT_SIZE);
        painter.setBrush(Theme::Color(Theme::Role::Text));
        painter.drawEllipse(
            QRect(box.center().x() - size / 2, box.center().y() - size / 2, size, size));
    }
    painter.restore();
}

bool SideBarRows::IsElided(const QModelIndex& index) const
{
    const bool hasMark = index.data(ClosableRole).toBool() || index.data(ModifiedRole).toBool();
    const int right = hasMark ? MarkBox(QRect(0, 0, m_view.viewport()->width(), RowHeight())).left()
                              : m_view.viewport()->width() - Theme::Dp(RIGHT_MARGIN);
    QFont font = m_view.font();
    font.setBold(index.data(Qt::FontRole).value<QFont>().bold());
    return QFontMetrics(font).horizontalAdvance(index.data().toString()) > right - LabelLeft(index);
}

QString SideBarRows::ToolTipOf(const QModelIndex& index) const
{
    const QString text = index.data(Qt::ToolTipRole).toString();
    if (!text.isEmpty() || !IsElided(index))
        return text;
    return index.data().toString();
}

bool SideBarRows::HandleEvent(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && IsOwnKey(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    const bool isMenu = event->type() == QEvent::ContextMenu
        && static_cast<QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Keyboard;
    if (!isMenu || m_view.contextMenuPolicy() != Qt::CustomContextMenu)
        return false;
    // The toolkit would take whatever row is in the middle.
    m_view.scrollTo(m_view.currentIndex());
    const QRect row = m_view.visualRect(m_view.currentIndex());
    Q_EMIT m_view.customContextMenuRequested(
        row.isValid() ? QPoint(LabelLeft(m_view.currentIndex()), row.bottom()) : QPoint());
    event->accept();
    return true;
}

bool SideBarRows::HandleViewportEvent(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto& help = static_cast<const QHelpEvent&>(*event);
        const QModelIndex index = m_view.indexAt(help.pos());
        ShowPlainToolTip(m_view, index, help.globalPos(), ToolTipOf(index));
        return true;
    }
    // The cross under the pointer looks different.
    if (event->type() == QEvent::HoverMove)
        m_view.viewport()->update();
    return false;
}

bool SideBarRows::HandleArrowPress(const QMouseEvent& event)
{
    m_focusByKey = false;
    const QModelIndex index = m_view.indexAt(event.pos());
    const int left = LevelOf(index) * Theme::Dp(LEVEL_STEP);
    const int right = left + Theme::Dp(ARROW_LEFT) + Theme::Dp(ARROW_SIZE);
    if (event.button() != Qt::LeftButton || !index.isValid() || !m_view.model()->hasChildren(index)
        || event.x() < left || event.x() >= right)
        return false;
    m_view.setExpanded(index, !m_view.isExpanded(index));
    return true;
}

bool SideBarRows::IsAtMark(const QPoint& point) const
{
    const QRect rect = m_view.visualRect(m_view.indexAt(point));
    return MarkBox(QRect(0, rect.top(), m_view.viewport()->width(), rect.height())).contains(point);
}

int SideBarRows::LabelLeft(const QModelIndex& index)
{
    const bool small = index.data(LanguageIconRole).toBool();
    return Theme::Dp(ICON_LEFT) + LevelOf(index) * Theme::Dp(LEVEL_STEP)
        + Theme::Dp(small ? LANGUAGE_ICON_SIZE : ICON_SIZE) + Theme::Dp(ICON_GAP);
}

void SideBarRows::NoteFocus(const QFocusEvent& event)
{
    // Coming back from a menu or another window changes nothing.
    const bool isBack
        = event.reason() == Qt::PopupFocusReason || event.reason() == Qt::ActiveWindowFocusReason;
    if (event.gotFocus() && !isBack)
        m_focusByKey = IsKeyboardFocus(event.reason());
    m_view.viewport()->update();
}

void SideBarRows::SetDropTarget(const QModelIndex& index)
{
    if (m_dropTarget == index)
        return;
    m_dropTarget = index;
    m_view.viewport()->update();
}

QPixmap SideBarRows::DragPicture(const QString& label) const
{
    const QFontMetrics metrics = m_view.fontMetrics();
    const QString text = metrics.elidedText(label, Qt::ElideMiddle, m_view.viewport()->width());
    const QSize size(metrics.horizontalAdvance(text) + 2 * Theme::Dp(PICTURE_PADDING), RowHeight());
    QPixmap picture(size * m_view.devicePixelRatioF());
    picture.setDevicePixelRatio(m_view.devicePixelRatioF());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setOpacity(PICTURE_OPACITY);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(m_view.font());
    const double inset = Theme::Hairline() / 2.0;
    painter.setPen(QPen(Theme::Color(Theme::Role::RaiseEdge), Theme::Hairline()));
    painter.setBrush(Theme::Color(Theme::Role::Raise));
    painter.drawRoundedRect(QRectF(QPoint(), size).adjusted(inset, inset, -inset, -inset),
        Theme::Dp(PICTURE_RADIUS), Theme::Dp(PICTURE_RADIUS));
    painter.setPen(Theme::Color(Theme::Role::Strong));
    painter.drawText(QRect(QPoint(), size), Qt::AlignCenter | Qt::TextSingleLine, text);
    return picture;
}
