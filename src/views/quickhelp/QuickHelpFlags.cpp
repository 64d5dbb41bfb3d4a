#include "views/quickhelp/QuickHelpFlags.h"

#include "editing/FlagText.h"
#include "settings/ColorSettings.h"
#include "settings/Settings.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/TextLook.h"
#include "window/chrome/Theme.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMimeData>
#include <QPainter>

namespace {

// Design pixels.
constexpr int LEFT = 14;
constexpr int COLUMN_GAP = 14;
constexpr int RIGHT_MARGIN = 8;

constexpr int LONG_NAME_ROLE = Qt::UserRole;
constexpr int SHORT_ROLE = Qt::UserRole + 1; ///< with its dash
constexpr int TYPE_ROLE = Qt::UserRole + 2;

QString Dashed(const QString& name)
{
    return name.isEmpty() ? name : QLatin1Char('-') + name;
}

} // namespace

QuickHelpFlags::QuickHelpFlags(QWidget* parent)
    : SideBarTree(parent)
{
    setRootIsDecorated(false);
    setDragEnabled(true);
    setDragDropMode(DragOnly);
    FollowLook(this, [this] { UpdateColumns(); });
    connect(this, &QTreeWidget::itemActivated, this, [this](const QTreeWidgetItem* item) {
        Q_EMIT FlagChosen(item->data(0, LONG_NAME_ROLE).toString());
    });
}

void QuickHelpFlags::SetFlags(const QVector<Flag>& flags)
{
    clear();
    for (const Flag& flag : flags) {
        auto* item = new QTreeWidgetItem(this);
        item->setText(0, Dashed(flag.longName));
        item->setData(0, LONG_NAME_ROLE, flag.longName);
        item->setData(0, SHORT_ROLE, Dashed(flag.shortName));
        item->setData(0, TYPE_ROLE, flag.type);
    }
    UpdateColumns();
}

int QuickHelpFlags::Filter(const QString& wanted)
{
    int shown = 0;
    for (int i = 0; i < topLevelItemCount(); ++i) {
        const bool matches = ToolTipOf(model()->index(i, 0)).contains(wanted, Qt::CaseInsensitive);
        topLevelItem(i)->setHidden(!matches);
        shown += matches ? 1 : 0;
    }
    return shown;
}

bool QuickHelpFlags::HasFlag(const QString& name) const
{
    const QString dashed = name.startsWith(QLatin1Char('-')) ? name : Dashed(name);
    for (int i = 0; i < topLevelItemCount(); ++i) {
        const QTreeWidgetItem* const item = topLevelItem(i);
        if (item->text(0) == dashed || item->data(0, SHORT_ROLE).toString() == dashed)
            return true;
    }
    return false;
}

void QuickHelpFlags::SelectFirst()
{
    if (currentItem() && !currentItem()->isHidden())
        return;
    for (int i = 0; i < topLevelItemCount(); ++i) {
        if (!topLevelItem(i)->isHidden()) {
            setCurrentItem(topLevelItem(i));
            return;
        }
    }
}

QStringList QuickHelpFlags::mimeTypes() const
{
    return {QLatin1String(FlagText::MIME_FORMAT), QStringLiteral("text/plain")};
}

/// The name for editors, the flag as it is shown for everything else.
QMimeData* QuickHelpFlags::mimeData(const QList<QTreeWidgetItem*> items) const
{
    if (items.isEmpty())
        return nullptr;
    auto* dragged = new QMimeData;
    dragged->setText(items[0]->text(0));
    dragged->setData(QLatin1String(FlagText::MIME_FORMAT),
        items[0]->data(0, LONG_NAME_ROLE).toString().toUtf8());
    return dragged;
}

void QuickHelpFlags::contextMenuEvent(QContextMenuEvent* event)
{
    const QTreeWidgetItem* const item
        = event->reason() == QContextMenuEvent::Mouse ? itemAt(event->pos()) : currentItem();
    if (!item) {
        event->ignore(); // the page has a menu of its own
        return;
    }
    const QString longName = item->data(0, LONG_NAME_ROLE).toString();
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(tr("Insert Flag"), this, [this, longName] { Q_EMIT FlagChosen(longName); });
    menu->addAction(
        tr("Copy"), this, [text = item->text(0)] { QApplication::clipboard()->setText(text); });
    const QRect row = visualItemRect(item);
    menu->popup(event->reason() == QContextMenuEvent::Mouse
            ? event->globalPos()
            : viewport()->mapToGlobal(row.bottomLeft()));
}

void QuickHelpFlags::UpdateColumns()
{
    int noZoom = 0;
    m_nameFont = TextLook::ZoomedFont(Settings::codeEditorFont, noZoom);
    const QFontMetrics metrics(m_nameFont);
    m_shortWidth = 0;
    m_longWidth = 0;
    for (int i = 0; i < topLevelItemCount(); ++i) {
        const QTreeWidgetItem* const item = topLevelItem(i);
        m_shortWidth
            = qMax(m_shortWidth, metrics.horizontalAdvance(item->data(0, SHORT_ROLE).toString()));
        m_longWidth = qMax(m_longWidth, metrics.horizontalAdvance(item->text(0)));
    }
    viewport()->update();
}

void QuickHelpFlags::PaintLabel(QPainter& painter, const RowLook& look) const
{
    const int end = look.row.right() + 1 - Theme::Dp(RIGHT_MARGIN);
    const int gap = Theme::Dp(COLUMN_GAP);
    int left = Theme::Dp(LEFT);
    const auto draw = [&](const QString& text, const QFont& font, const QColor& color, int width) {
        painter.setFont(font);
        painter.setPen(color);
        const QRect area(left, look.row.top(), qMax(0, qMin(width, end - left)), look.row.height());
        painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
            painter.fontMetrics().elidedText(text, Qt::ElideRight, area.width()));
        left += width + gap;
    };
    const QColor command = ColorSettings::GetCodeEditorFormat(ColorSettings::MEL_COMMANDS, false)
                               .foreground()
                               .color();
    draw(look.index.data(SHORT_ROLE).toString(), m_nameFont, command, m_shortWidth);
    draw(look.index.data().toString(), m_nameFont, Theme::Color(Theme::Role::Text), m_longWidth);
    draw(look.index.data(TYPE_ROLE).toString(), Theme::SmallFont(font()),
        Theme::Color(look.current ? Theme::Role::Soft : Theme::Role::Faint), end - left);
}

/// The whole row: any of its columns may be cut.
QString QuickHelpFlags::ToolTipOf(const QModelIndex& index) const
{
    return QStringLiteral("%1  %2  %3")
        .arg(index.data().toString(), index.data(SHORT_ROLE).toString(),
            index.data(TYPE_ROLE).toString())
        .trimmed();
}
