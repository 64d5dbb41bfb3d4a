#include "window/chrome/CustomTabBar.h"

#include "window/chrome/Theme.h"

#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>

namespace {

// Design pixels.
constexpr int BAR_HEIGHT = 34;
constexpr int PADDING_LEFT = 11;
constexpr int PADDING_RIGHT = 5;
constexpr int ICON_SIZE = 14;
constexpr int ICON_GAP = 7;
constexpr int MARK_GAP = 6;
constexpr int MARK_BOX = 20;
constexpr int MARK_SIZE = 6;
constexpr int MINIMUM_TAB = 60;
constexpr int MAXIMUM_TAB = 240;
constexpr int WATERLINE = 2;
constexpr int WATERLINE_MARGIN = 3;
constexpr int SCROLL_STEP = 40;

int LabelLeft()
{
    return Theme::Dp(PADDING_LEFT) + Theme::Dp(ICON_SIZE) + Theme::Dp(ICON_GAP);
}

int LabelRightMargin()
{
    return Theme::Dp(MARK_GAP) + Theme::Dp(MARK_BOX) + Theme::Dp(PADDING_RIGHT);
}

} // namespace

CustomTabBar::CustomTabBar(QWidget* parent)
    : QAbstractScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    viewport()->setMouseTracking(true);
    horizontalScrollBar()->setSingleStep(Theme::Dp(SCROLL_STEP));
    connect(
        horizontalScrollBar(), &QScrollBar::rangeChanged, this, &CustomTabBar::ScrollRangeChanged);
    connect(
        horizontalScrollBar(), &QScrollBar::valueChanged, this, &CustomTabBar::ScrollRangeChanged);
}

QSize CustomTabBar::sizeHint() const
{
    return {Theme::Dp(MAXIMUM_TAB), Theme::Dp(BAR_HEIGHT)};
}

QSize CustomTabBar::minimumSizeHint() const
{
    return {Theme::Dp(MINIMUM_TAB), Theme::Dp(BAR_HEIGHT)};
}

void CustomTabBar::SetCurrentIndex(int index)
{
    if (!IsValid(index) || index == m_currentIndex)
        return;
    m_currentIndex = index;
    EnsureVisible(index);
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
    UpdateScrollRange();
    if (m_currentIndex < 0)
        SetCurrentIndex(0);
    else if (place <= m_currentIndex)
        ++m_currentIndex;
    viewport()->update();
    return place;
}

void CustomTabBar::RemoveTab(int index)
{
    if (!IsValid(index))
        return;
    m_tabs.remove(index);
    m_hoveredIndex = -1;
    UpdateScrollRange();
    viewport()->update();
    if (index > m_currentIndex)
        return;
    if (index < m_currentIndex) {
        --m_currentIndex;
        return;
    }
    m_currentIndex = -1;
    if (m_tabs.isEmpty())
        Q_EMIT CurrentChanged(-1);
    else
        SetCurrentIndex(qMin(index, m_tabs.size() - 1));
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
    viewport()->update();
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
    UpdateScrollRange();
    viewport()->update();
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
    return horizontalScrollBar()->value();
}

void CustomTabBar::SetScrollValue(int value)
{
    horizontalScrollBar()->setValue(value);
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

QRect CustomTabBar::TabRect(int index) const
{
    int left = -horizontalScrollBar()->value();
    for (int i = 0; i < index; ++i)
        left += m_tabs[i].width;
    return {left, 0, m_tabs[index].width, viewport()->height()};
}

int CustomTabBar::TabAt(const QPoint& position) const
{
    for (int i = 0; i < m_tabs.size(); ++i) {
        if (TabRect(i).contains(position))
            return i;
    }
    return -1;
}

void CustomTabBar::UpdateWidth(Tab& tab) const
{
    // Measured and elided text may differ by a rounded pixel.
    const int label = fontMetrics().horizontalAdvance(tab.text) + 1;
    tab.width = qBound(
        Theme::Dp(MINIMUM_TAB), LabelLeft() + label + LabelRightMargin(), Theme::Dp(MAXIMUM_TAB));
}

void CustomTabBar::UpdateScrollRange()
{
    int total = 0;
    for (const Tab& tab : qAsConst(m_tabs))
        total += tab.width;
    horizontalScrollBar()->setPageStep(viewport()->width());
    horizontalScrollBar()->setRange(0, qMax(0, total - viewport()->width()));
}

void CustomTabBar::EnsureVisible(int index)
{
    const QRect tab = TabRect(index);
    if (tab.left() < 0)
        SetScrollValue(GetScrollValue() + tab.left());
    else if (tab.right() >= viewport()->width())
        SetScrollValue(GetScrollValue() + tab.right() + 1 - viewport()->width());
}

void CustomTabBar::SetHovered(int index)
{
    if (m_hoveredIndex == index)
        return;
    m_hoveredIndex = index;
    viewport()->update();
}

bool CustomTabBar::viewportEvent(QEvent* event)
{
    switch (event->type()) {
    case QEvent::Leave: SetHovered(-1); break;
    case QEvent::ToolTip: {
        const auto* help = static_cast<QHelpEvent*>(event);
        const int index = TabAt(help->pos());
        if (IsValid(index))
            QToolTip::showText(
                help->globalPos(), m_tabs[index].toolTip.toHtmlEscaped(), viewport());
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
    UpdateScrollRange();
}

void CustomTabBar::paintEvent(QPaintEvent*)
{
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), Theme::Color(Theme::Role::Panel));
    for (int i = 0; i < m_tabs.size(); ++i)
        PaintTab(painter, i);
}

void CustomTabBar::PaintTab(QPainter& painter, int index) const
{
    const Tab& tab = m_tabs[index];
    const QRect area = TabRect(index);
    const bool current = index == m_currentIndex;
    if (current)
        painter.fillRect(area, Theme::Color(Theme::Role::Canvas));
    else if (index == m_hoveredIndex)
        painter.fillRect(area, Theme::Color(Theme::Role::TabHover));
    painter.fillRect(
        QRect(area.right() + 1 - Theme::Hairline(), area.top(), Theme::Hairline(), area.height()),
        Theme::Color(Theme::Role::TabSeparator));

    const int iconExtent = Theme::Dp(ICON_SIZE);
    const QRect icon(area.left() + Theme::Dp(PADDING_LEFT), (area.height() - iconExtent) / 2,
        iconExtent, iconExtent);
    painter.drawPixmap(icon, Theme::Pixmap(tab.iconName, ICON_SIZE, devicePixelRatioF()));

    const QRect label = area.adjusted(LabelLeft(), 0, -LabelRightMargin(), 0);
    const QString text = fontMetrics().elidedText(tab.text, Qt::ElideMiddle, label.width());
    painter.setPen(Theme::Color(current ? Theme::Role::Strong : Theme::Role::Soft));
    painter.drawText(label, Qt::AlignVCenter | Qt::AlignLeft, text);

    painter.setRenderHint(QPainter::Antialiasing);
    if (tab.modified) {
        const double radius = Theme::Dp(MARK_SIZE) / 2.0;
        const QRectF box(area.right() + 1 - Theme::Dp(PADDING_RIGHT) - Theme::Dp(MARK_BOX), 0,
            Theme::Dp(MARK_BOX), area.height());
        painter.setPen(Qt::NoPen);
        painter.setBrush(Theme::Color(Theme::Role::Text));
        painter.drawEllipse(box.center(), radius, radius);
    }
    if (current)
        PaintWaterline(painter,
            {icon.topLeft(),
                QSize(label.left() - icon.left() + fontMetrics().horizontalAdvance(text),
                    area.height())});
    if (current && hasFocus()) {
        painter.setPen(QPen(Theme::Color(Theme::Role::Lake), Theme::Hairline()));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(QRectF(area).adjusted(0.5, 0.5, -0.5, -0.5));
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
}

void CustomTabBar::PaintWaterline(QPainter& painter, const QRect& label) const
{
    const int height = Theme::Dp(WATERLINE);
    const QRectF line(label.left(), viewport()->height() - Theme::Dp(WATERLINE_MARGIN) - height,
        label.width(), height);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme::Color(m_active ? Theme::Role::Lake : Theme::Role::IdleWaterline));
    painter.drawRoundedRect(line, height / 2.0, height / 2.0);
}

void CustomTabBar::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    UpdateScrollRange();
    if (IsValid(m_currentIndex))
        EnsureVisible(m_currentIndex);
}

void CustomTabBar::mousePressEvent(QMouseEvent* event)
{
    const int index = TabAt(event->pos());
    if (event->button() != Qt::LeftButton || !IsValid(index)) {
        event->ignore();
        return;
    }
    SetCurrentIndex(index);
    Q_EMIT Activated();
}

void CustomTabBar::mouseMoveEvent(QMouseEvent* event)
{
    SetHovered(TabAt(event->pos()));
}

// Whether and how the wheel acts is the business of derived bars.
void CustomTabBar::wheelEvent(QWheelEvent* event)
{
    event->accept();
}

void CustomTabBar::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Left: SetCurrentIndex(m_currentIndex - 1); break;
    case Qt::Key_Right: SetCurrentIndex(m_currentIndex + 1); break;
    case Qt::Key_Home: SetCurrentIndex(0); break;
    case Qt::Key_End: SetCurrentIndex(m_tabs.size() - 1); break;
    case Qt::Key_Return:
    case Qt::Key_Space: Q_EMIT Activated(); break;
    default: event->ignore();
    }
}

void CustomTabBar::scrollContentsBy(int, int)
{
    viewport()->update();
}
