// Tabs of the tab bar and where they are; see CustomTabBarPainting.cpp for what they look like and
// CustomTabBarInput.cpp for what is done with them.

#include "window/chrome/CustomTabBar.h"

#include "window/chrome/CustomTabBarAccessibility.h"
#include "window/chrome/CustomTabBarMetrics.h"
#include "window/chrome/Theme.h"
#include "window/chrome/ToolTipText.h"

#include <QHelpEvent>
#include <QScrollBar>
#include <QTimer>
#include <QToolTip>

#include <algorithm>

namespace {

constexpr int SCROLL_STEP = 40; // design pixels

/// Every bar of the process, as a dragged tab names its group by number.
QVector<CustomTabBar*>& Bars()
{
    static QVector<CustomTabBar*> bars;
    return bars;
}

} // namespace

CustomTabBar::CustomTabBar(QWidget* parent)
    : QAbstractScrollArea(parent)
    , m_dragScrollTimer(new QTimer(this))
{
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    setAcceptDrops(true);
    viewport()->setMouseTracking(true);
    UpdateScrollStep();
    connect(
        horizontalScrollBar(), &QScrollBar::rangeChanged, this, &CustomTabBar::ScrollRangeChanged);
    connect(
        horizontalScrollBar(), &QScrollBar::valueChanged, this, &CustomTabBar::ScrollRangeChanged);
    connect(m_dragScrollTimer, &QTimer::timeout, this, &CustomTabBar::ScrollWhileDragging);
    if (Bars().isEmpty())
        AccessibleTabBar::Install();
    Bars().append(this);
}

CustomTabBar::~CustomTabBar()
{
    Bars().removeOne(this);
    if (Bars().isEmpty())
        AccessibleTabBar::Uninstall();
}

bool CustomTabBar::TabExists(const DraggedTab& tab)
{
    const QVector<CustomTabBar*>& bars = Bars();
    return std::any_of(bars.cbegin(), bars.cend(), [&tab](const CustomTabBar* bar) {
        return bar->m_groupId >= 0 && bar->m_groupId == tab.groupId && bar->IsValid(tab.index);
    });
}

void CustomTabBar::SetGroupId(int id)
{
    m_groupId = id;
}

QSize CustomTabBar::sizeHint() const
{
    return {Theme::Dp(TabMetrics::MAXIMUM_TAB), Theme::Dp(TabMetrics::BAR_HEIGHT)};
}

QSize CustomTabBar::minimumSizeHint() const
{
    return {Theme::Dp(TabMetrics::MINIMUM_TAB), Theme::Dp(TabMetrics::BAR_HEIGHT)};
}

void CustomTabBar::SetCurrentIndex(int index)
{
    if (!IsValid(index) || index == m_currentIndex)
        return;
    m_currentIndex = index;
    EnsureVisible(index);
    UpdateAccessibleDescription();
    NotifyAccessibility(hasFocus() ? QAccessible::Focus : QAccessible::Selection, index);
    viewport()->update();
    Q_EMIT CurrentChanged(index);
}

int CustomTabBar::InsertTab(int index, const QString& label)
{
    const int place = index < 0 || index > m_tabs.size() ? m_tabs.size() : index;
    Tab tab;
    tab.text = label;
    UpdateWidth(tab);
    m_tabs.insert(place, tab);
    UpdateGeometry();
    if (m_currentIndex < 0)
        SetCurrentIndex(0);
    else if (place <= m_currentIndex)
        ++m_currentIndex;
    UpdateAccessibleDescription();
    return place;
}

void CustomTabBar::RemoveTab(int index)
{
    if (!IsValid(index))
        return;
    m_tabs.remove(index);
    m_draggedIndex = -1;
    m_pressedIndex = -1;
    UpdateGeometry();
    RefreshHovered();
    if (index < m_currentIndex)
        --m_currentIndex;
    else if (index == m_currentIndex)
        ReplaceCurrent(index);
    UpdateAccessibleDescription();
}

/// After the current tab has gone from that place.
void CustomTabBar::ReplaceCurrent(int place)
{
    m_currentIndex = -1;
    if (m_tabs.isEmpty())
        Q_EMIT CurrentChanged(-1);
    else
        SetCurrentIndex(qMin(place, m_tabs.size() - 1));
}

void CustomTabBar::MoveTab(int from, int to)
{
    if (!IsValid(from) || !IsValid(to) || from == to)
        return;
    m_tabs.move(from, to);
    if (m_currentIndex == from)
        m_currentIndex = to;
    else if (from < m_currentIndex && m_currentIndex <= to)
        --m_currentIndex;
    else if (to <= m_currentIndex && m_currentIndex < from)
        ++m_currentIndex;
    m_draggedIndex = -1;
    UpdateGeometry();
    EnsureVisible(to);
    UpdateAccessibleDescription();
}

QString CustomTabBar::GetTabText(int index) const
{
    return IsValid(index) ? m_tabs[index].text : QString();
}

void CustomTabBar::SetTabText(int index, const QString& text)
{
    if (!IsValid(index) || m_tabs[index].text == text)
        return;
    m_tabs[index].text = text;
    UpdateWidth(m_tabs[index]);
    UpdateGeometry();
}

void CustomTabBar::SetTabIcon(int index, const QString& iconName)
{
    if (IsValid(index))
        m_tabs[index].iconName = iconName;
    viewport()->update();
}

void CustomTabBar::SetTabToolTip(int index, const QString& toolTip)
{
    if (IsValid(index))
        m_tabs[index].toolTip = toolTip;
}

QString CustomTabBar::GetTabToolTip(int index) const
{
    if (!IsValid(index))
        return {};
    const Tab& tab = m_tabs[index];
    // A path says it all.
    return tab.toolTip == tab.text ? GetTabDescription(index) : tab.toolTip;
}

void CustomTabBar::SetTabDetail(int index, const QString& detail)
{
    if (IsValid(index))
        m_tabs[index].detail = detail;
}

QString CustomTabBar::GetTabDescription(int index) const
{
    if (!IsValid(index))
        return {};
    const Tab& tab = m_tabs[index];
    const auto sameText = [&tab](const Tab& other) { return other.text == tab.text; };
    const bool alone = std::count_if(m_tabs.cbegin(), m_tabs.cend(), sameText) == 1;
    return alone || tab.detail.isEmpty() ? tab.text
                                         : QStringLiteral("%1 - %2").arg(tab.text, tab.detail);
}

QString CustomTabBar::GetTabAccessibleName(int index) const
{
    if (!IsValid(index))
        return {};
    const Tab& tab = m_tabs[index];
    return tab.modified ? tr("%1, modified").arg(tab.text) : tab.text;
}

void CustomTabBar::SetTabData(int index, int value)
{
    if (IsValid(index))
        m_tabs[index].data = value;
}

int CustomTabBar::GetTabData(int index) const
{
    return IsValid(index) ? m_tabs[index].data : 0;
}

void CustomTabBar::SetTabModified(int index, bool modified)
{
    if (!IsValid(index) || m_tabs[index].modified == modified)
        return;
    m_tabs[index].modified = modified;
    UpdateAccessibleDescription();
    NotifyAccessibility(QAccessible::NameChanged, index);
    viewport()->update();
}

void CustomTabBar::SetActive(bool active)
{
    if (m_active == active)
        return;
    m_active = active;
    viewport()->update();
}

int CustomTabBar::GetScrollValue() const
{
    return m_restoredScrollValue >= 0 && !isVisible() ? m_restoredScrollValue
                                                      : horizontalScrollBar()->value();
}

void CustomTabBar::SetScrollValue(int value)
{
    horizontalScrollBar()->setValue(value);
    // There is no range before the bar has its width.
    m_restoredScrollValue = isVisible() ? -1 : value;
}

bool CustomTabBar::CanScroll(int direction) const
{
    const QScrollBar* bar = horizontalScrollBar();
    return direction < 0 ? bar->value() > bar->minimum() : bar->value() < bar->maximum();
}

void CustomTabBar::ScrollBy(int direction)
{
    SetScrollValue(GetScrollValue() + direction * horizontalScrollBar()->singleStep());
}

QRect CustomTabBar::GetTabRect(int index) const
{
    if (!IsValid(index))
        return {};
    return {m_tabs[index].left - GetScrollValue(), 0, m_tabs[index].width, viewport()->height()};
}

QRect CustomTabBar::GetCloseRect(int index) const
{
    const QRect tab = GetTabRect(index);
    if (tab.isEmpty())
        return {};
    const int extent = Theme::Dp(TabMetrics::MARK_BOX);
    return {tab.right() + 1 - Theme::Dp(TabMetrics::PADDING_RIGHT) - extent,
        (tab.height() - extent) / 2, extent, extent};
}

int CustomTabBar::GetTabAt(const QPoint& position) const
{
    if (!viewport()->rect().contains(position))
        return -1;
    const int x = position.x() + GetScrollValue();
    const auto behind = std::upper_bound(m_tabs.cbegin(), m_tabs.cend(), x,
        [](int value, const Tab& tab) { return value < tab.left + tab.width; });
    return behind == m_tabs.cend() ? -1 : static_cast<int>(behind - m_tabs.cbegin());
}

void CustomTabBar::UpdateWidth(Tab& tab) const
{
    // Measured and elided text may differ by a rounded pixel.
    const int label = fontMetrics().horizontalAdvance(tab.text) + 1;
    const int least = Theme::Dp(TabMetrics::MINIMUM_TAB);
    // Rather a shortened label than a tab that is never seen whole.
    const int most = qBound(least, viewport()->width(), Theme::Dp(TabMetrics::MAXIMUM_TAB));
    tab.width
        = qBound(least, TabMetrics::LabelLeft() + label + TabMetrics::LabelRightMargin(), most);
}

void CustomTabBar::UpdateScrollStep()
{
    horizontalScrollBar()->setSingleStep(Theme::Dp(SCROLL_STEP));
}

void CustomTabBar::UpdateGeometry()
{
    int total = 0;
    for (Tab& tab : m_tabs) {
        tab.left = total;
        total += tab.width;
    }
    horizontalScrollBar()->setPageStep(viewport()->width());
    horizontalScrollBar()->setRange(0, qMax(0, total - viewport()->width()));
    viewport()->update();
}

/// Of the current tab, as what has the focus is the whole bar.
void CustomTabBar::UpdateAccessibleDescription()
{
    if (!IsValid(m_currentIndex)) {
        setAccessibleDescription(QString());
        return;
    }
    setAccessibleDescription(
        tr("%1, tab %2 of %3")
            .arg(GetTabAccessibleName(m_currentIndex), QString::number(m_currentIndex + 1),
                QString::number(m_tabs.size())));
}

void CustomTabBar::NotifyAccessibility(QAccessible::Event event, int index)
{
    if (!QAccessible::isActive())
        return;
    QAccessibleEvent notice(this, event);
    notice.setChild(index);
    QAccessible::updateAccessibility(&notice);
}

void CustomTabBar::EnsureVisible(int index)
{
    m_restoredScrollValue = -1;
    QScrollBar* const bar = horizontalScrollBar();
    const QRect tab = GetTabRect(index);
    if (tab.left() < 0)
        bar->setValue(bar->value() + tab.left());
    else if (tab.right() >= viewport()->width())
        bar->setValue(bar->value() + tab.right() + 1 - viewport()->width());
}

bool CustomTabBar::viewportEvent(QEvent* event)
{
    switch (event->type()) {
    case QEvent::Leave: ClearHovered(); break;
    case QEvent::ToolTip: {
        const auto* help = static_cast<QHelpEvent*>(event);
        QToolTip::showText(
            help->globalPos(), ToolTipText(GetTabToolTip(GetTabAt(help->pos()))), viewport());
        return true;
    }
    default: break;
    }
    return QAbstractScrollArea::viewportEvent(event);
}

void CustomTabBar::changeEvent(QEvent* event)
{
    QAbstractScrollArea::changeEvent(event);
    if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange)
        return;
    for (Tab& tab : m_tabs)
        UpdateWidth(tab);
    UpdateGeometry();
    UpdateScrollStep();
    updateGeometry(); // the height follows the interface scale
}

void CustomTabBar::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    for (Tab& tab : m_tabs)
        UpdateWidth(tab);
    UpdateGeometry();
    // While the window is laid out the bar passes through several widths.
    if (m_restoredScrollValue >= 0)
        horizontalScrollBar()->setValue(m_restoredScrollValue);
    else if (IsValid(m_currentIndex))
        EnsureVisible(m_currentIndex);
}

void CustomTabBar::scrollContentsBy(int, int)
{
    viewport()->update();
}
