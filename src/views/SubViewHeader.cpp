#include "views/SubViewHeader.h"

#include "views/FocusReason.h"
#include "window/chrome/FlatButton.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/Theme.h"

#include <QHBoxLayout>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>

namespace {

// Design pixels.
constexpr int HEIGHT = 26;
constexpr int ARROW_LEFT = 6;
constexpr int ARROW_SIZE = 16;
constexpr int TITLE_LEFT = 26;
constexpr int NOTE_GAP = 8;
constexpr int TOOLS_MARGIN = 6;

} // namespace

SubViewHeader::SubViewHeader(const QString& title, QWidget* parent)
    : QWidget(parent)
    , m_title(title)
    , m_layout(new QHBoxLayout(this))
{
    setFocusPolicy(Qt::TabFocus);
    setAccessibleName(title);
    m_layout->setSpacing(0);
    m_layout->addStretch(1);
    FollowLook(this, [this] { UpdateLook(); });
    SetExpanded(true);
}

int SubViewHeader::Height()
{
    return Theme::Dp(HEIGHT);
}

void SubViewHeader::SetTitle(const QString& title)
{
    m_title = title;
    UpdateAccessibleName();
    update();
}

void SubViewHeader::UpdateAccessibleName()
{
    setAccessibleName(m_note.isEmpty() ? m_title : QStringLiteral("%1, %2").arg(m_title, m_note));
}

void SubViewHeader::SetNote(const QString& note)
{
    m_note = note;
    UpdateAccessibleName();
    update();
}

void SubViewHeader::SetExpanded(bool expanded)
{
    m_expanded = expanded;
    setAccessibleDescription(expanded ? tr("expanded") : tr("collapsed"));
    update();
}

void SubViewHeader::AddTool(FlatButton* button)
{
    button->setParent(this);
    QSizePolicy policy = button->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    button->setSizePolicy(policy);
    m_layout->addWidget(button);
    m_tools.append(button);
    connect(button, &QAbstractButton::toggled, this, &SubViewHeader::UpdateTools);
    UpdateTools();
}

void SubViewHeader::SetToolsRevealed(bool revealed)
{
    if (m_revealed == revealed)
        return;
    m_revealed = revealed;
    UpdateTools();
}

void SubViewHeader::UpdateTools()
{
    for (FlatButton* tool : qAsConst(m_tools))
        tool->setVisible(m_revealed || tool->isChecked());
}

void SubViewHeader::UpdateLook()
{
    setFixedHeight(Height());
    m_layout->setContentsMargins(0, 0, Theme::Dp(TOOLS_MARGIN), 0);
    m_captionFont = Theme::CaptionFont(font());
    update();
}

/// What there is no room for is told whole.
bool SubViewHeader::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip || !toolTip().isEmpty() || !m_isElided)
        return QWidget::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), accessibleName(), this);
    return true;
}

void SubViewHeader::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRect arrow(Theme::Dp(ARROW_LEFT), (height() - Theme::Dp(ARROW_SIZE)) / 2,
        Theme::Dp(ARROW_SIZE), Theme::Dp(ARROW_SIZE));
    painter.drawPixmap(arrow,
        Theme::Pixmap(
            m_expanded ? QStringLiteral("view_expanded") : QStringLiteral("view_collapsed"),
            ARROW_SIZE, devicePixelRatioF()));

    const int left = Theme::Dp(TITLE_LEFT);
    const int right = m_tools.isEmpty() ? width() - Theme::Dp(TOOLS_MARGIN)
                                        : m_tools.first()->geometry().left();
    QRect area(left, 0, right - left, height());
    painter.setFont(m_captionFont);
    painter.setPen(Theme::Color(Theme::Role::Soft));
    const QFontMetrics metrics(m_captionFont);
    const QString title = metrics.elidedText(m_title.toUpper(), Qt::ElideRight, area.width());
    painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, title);
    area.setLeft(area.left() + metrics.horizontalAdvance(title) + Theme::Dp(NOTE_GAP));
    painter.setFont(Theme::SmallFont(font()));
    painter.setPen(Theme::Color(Theme::Role::Faint));
    const QString note
        = painter.fontMetrics().elidedText(m_note, Qt::ElideRight, qMax(0, area.width()));
    painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, note);
    m_isElided = title != m_title.toUpper() || note != m_note;
    if (hasFocus() && m_focusByKey)
        Theme::DrawFocusEdge(painter, rect(), 0);
}

void SubViewHeader::mousePressEvent(QMouseEvent* event)
{
    m_pressed = event->button() == Qt::LeftButton;
}

void SubViewHeader::mouseReleaseEvent(QMouseEvent* event)
{
    const bool clicked = m_pressed && rect().contains(event->pos());
    m_pressed = false;
    if (clicked)
        Q_EMIT Toggled();
}

void SubViewHeader::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter: Q_EMIT Toggled(); break;
    case Qt::Key_Left: Q_EMIT ExpandRequested(false); break;
    case Qt::Key_Right: Q_EMIT ExpandRequested(true); break;
    case Qt::Key_Up: Q_EMIT StepRequested(-1); break;
    case Qt::Key_Down: Q_EMIT StepRequested(1); break;
    default: QWidget::keyPressEvent(event);
    }
}

void SubViewHeader::focusInEvent(QFocusEvent* event)
{
    m_focusByKey = IsKeyboardFocus(event->reason());
    QWidget::focusInEvent(event);
    update();
}
