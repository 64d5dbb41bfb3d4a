#include "window/chrome/ActivityBar.h"

#include "window/chrome/ActivityButton.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/Theme.h"

#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>

namespace {

// Design pixels.
constexpr int WIDTH = 44;
constexpr int END_MARGIN = 4; ///< above the first and below the last entry

struct ItemRow
{
    const char* label;
    const char* icon;
    const char* objectName;
};

// clang-format off
constexpr ItemRow ITEMS[] = {
    {QT_TRANSLATE_NOOP("ActivityBar", "Explorer"),    "view_explorer",   "explorerButton"},
    {QT_TRANSLATE_NOOP("ActivityBar", "Search"),      "view_search",     "searchButton"},
    {QT_TRANSLATE_NOOP("ActivityBar", "Quick Help"),  "view_quick_help", "quickHelpButton"},
    {QT_TRANSLATE_NOOP("ActivityBar", "Preferences"), "preferences",     "preferencesButton"},
};
// clang-format on

} // namespace

ActivityBar::ActivityBar(QWidget* parent)
    : QWidget(parent)
{
    setAccessibleName(tr("Activity Bar"));
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(0);
    for (const ItemRow& row : ITEMS) {
        const Item item = static_cast<Item>(m_buttons.size());
        auto* button = new ActivityButton(QLatin1String(row.icon), tr(row.label), this);
        button->setObjectName(QLatin1String(row.objectName));
        button->setCheckable(item != Item::Preferences);
        connect(
            button, &QAbstractButton::clicked, this, [this, item] { Q_EMIT ItemPressed(item); });
        if (item == Item::Preferences)
            layout->addStretch(1);
        layout->addWidget(button);
        m_buttons.append(button);
        button->hide();
    }
    FollowLook(this, [this, layout] {
        layout->setContentsMargins(0, Theme::Dp(END_MARGIN), 0, Theme::Dp(END_MARGIN));
        setFixedWidth(Theme::Dp(WIDTH));
    });
}

ActivityButton* ActivityBar::GetButton(Item item) const
{
    return m_buttons[static_cast<int>(item)];
}

QString ActivityBar::GetLabel(Item item)
{
    return tr(ITEMS[static_cast<int>(item)].label);
}

void ActivityBar::SetItemShown(Item item, bool shown)
{
    GetButton(item)->setVisible(shown);
    UpdateFocusPolicies();
}

bool ActivityBar::IsItemShown(Item item) const
{
    return !GetButton(item)->isHidden();
}

void ActivityBar::SetCurrent(Item item)
{
    for (ActivityButton* button : qAsConst(m_buttons))
        button->setChecked(button == GetButton(item) && button->isCheckable());
    UpdateFocusPolicies();
}

void ActivityBar::ClearCurrent()
{
    for (ActivityButton* button : qAsConst(m_buttons))
        button->setChecked(false);
    UpdateFocusPolicies();
}

bool ActivityBar::IsCurrent(Item item) const
{
    return GetButton(item)->isChecked();
}

void ActivityBar::SetCount(Item item, int count)
{
    GetButton(item)->SetCount(count);
}

void ActivityBar::SetToolTip(Item item, const QString& toolTip)
{
    GetButton(item)->setToolTip(toolTip);
}

void ActivityBar::SetLeft(bool left)
{
    m_left = left;
    for (ActivityButton* button : qAsConst(m_buttons))
        button->SetWaterlineLeft(left);
    update();
}

QSize ActivityBar::sizeHint() const
{
    return {Theme::Dp(WIDTH), QWidget::sizeHint().height()};
}

/// Tab reaches one entry only: the current one, else the first.
void ActivityBar::UpdateFocusPolicies()
{
    ActivityButton* stop = nullptr;
    for (ActivityButton* button : qAsConst(m_buttons)) {
        if (!button->isHidden() && (!stop || button->isChecked()))
            stop = button;
    }
    for (ActivityButton* button : qAsConst(m_buttons))
        button->setFocusPolicy(button == stop ? Qt::TabFocus : Qt::NoFocus);
}

void ActivityBar::MoveFocus(int step)
{
    QVector<ActivityButton*> shown;
    int focused = -1;
    for (ActivityButton* button : qAsConst(m_buttons)) {
        if (button->isHidden())
            continue;
        if (button->hasFocus())
            focused = shown.size();
        shown.append(button);
    }
    if (focused >= 0)
        shown[qBound(0, focused + step, shown.size() - 1)]->setFocus(Qt::OtherFocusReason);
}

void ActivityBar::keyPressEvent(QKeyEvent* event)
{
    QWidget* const focused = focusWidget();
    switch (event->key()) {
    case Qt::Key_Up: MoveFocus(-1); break;
    case Qt::Key_Down: MoveFocus(1); break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        // Space is the buttons' own key.
        if (auto* button = qobject_cast<QAbstractButton*>(focused))
            button->click();
        break;
    default: QWidget::keyPressEvent(event);
    }
}

void ActivityBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Theme::Color(Theme::Role::Panel));
    const int hairline = Theme::Hairline();
    painter.fillRect(
        m_left ? width() - hairline : 0, 0, hairline, height(), Theme::Color(Theme::Role::Groove));
}
