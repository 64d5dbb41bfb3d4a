#include "window/chrome/CustomTabBarAccessibility.h"

#include "window/chrome/CustomTabBar.h"

namespace {

QAccessibleInterface* MakeInterface(const QString& className, QObject* object)
{
    // Derived bars are asked for by their own names first, and then by this one.
    auto* const bar = qobject_cast<CustomTabBar*>(object);
    return bar && className == QLatin1String("CustomTabBar") ? new AccessibleTabBar(bar) : nullptr;
}

} // namespace

AccessibleTab::AccessibleTab(CustomTabBar* bar, int index)
    : m_bar(bar)
    , m_index(index)
{ }

bool AccessibleTab::isValid() const
{
    return m_index < m_bar->GetCount();
}

QAccessibleInterface* AccessibleTab::parent() const
{
    return QAccessible::queryAccessibleInterface(m_bar);
}

QString AccessibleTab::text(QAccessible::Text kind) const
{
    switch (kind) {
    case QAccessible::Name: return m_bar->GetTabAccessibleName(m_index);
    case QAccessible::Description: return m_bar->GetTabToolTip(m_index);
    default: return {};
    }
}

QRect AccessibleTab::rect() const
{
    const QRect tab = m_bar->GetTabRect(m_index);
    return {m_bar->viewport()->mapToGlobal(tab.topLeft()), tab.size()};
}

QAccessible::State AccessibleTab::state() const
{
    QAccessible::State state;
    state.invalid = !isValid();
    state.selectable = true;
    state.selected = m_index == m_bar->GetCurrentIndex();
    state.focusable = true;
    state.focused = state.selected && m_bar->hasFocus();
    state.offscreen = !m_bar->viewport()->rect().intersects(m_bar->GetTabRect(m_index));
    return state;
}

void* AccessibleTab::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                : nullptr;
}

QStringList AccessibleTab::actionNames() const
{
    return {pressAction()};
}

void AccessibleTab::doAction(const QString& name)
{
    if (name != pressAction() || !isValid())
        return;
    m_bar->SetCurrentIndex(m_index);
    Q_EMIT m_bar->Activated();
}

AccessibleTabBar::AccessibleTabBar(CustomTabBar* bar)
    : QAccessibleWidget(bar, QAccessible::PageTabList)
{ }

AccessibleTabBar::~AccessibleTabBar()
{
    for (const auto& [index, id] : m_tabs)
        QAccessible::deleteAccessibleInterface(id);
}

void AccessibleTabBar::Install()
{
    QAccessible::installFactory(MakeInterface);
}

void AccessibleTabBar::Uninstall()
{
    QAccessible::removeFactory(MakeInterface);
}

CustomTabBar* AccessibleTabBar::GetBar() const
{
    return qobject_cast<CustomTabBar*>(object());
}

QAccessibleInterface* AccessibleTabBar::child(int index) const
{
    if (index < 0 || index >= childCount())
        return nullptr;
    auto known = m_tabs.find(index);
    if (known == m_tabs.end()) {
        auto* const tab = new AccessibleTab(GetBar(), index);
        known = m_tabs.emplace(index, QAccessible::registerAccessibleInterface(tab)).first;
    }
    return QAccessible::accessibleInterface(known->second);
}

QAccessibleInterface* AccessibleTabBar::childAt(int x, int y) const
{
    return child(GetBar()->GetTabAt(GetBar()->viewport()->mapFromGlobal({x, y})));
}

int AccessibleTabBar::childCount() const
{
    return GetBar()->GetCount();
}

int AccessibleTabBar::indexOfChild(const QAccessibleInterface* child) const
{
    for (const auto& [index, id] : m_tabs) {
        if (QAccessible::accessibleInterface(id) == child)
            return index;
    }
    return -1;
}
