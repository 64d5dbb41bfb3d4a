#pragma once

#include <QAccessibleWidget>

#include <map>
#include <memory>

class CustomTabBar;

/// One tab of a bar, by its place: screen readers hear its name, and "modified" when it is, and can
/// make it current. Owned by the bar's interface; interface thread only.
class AccessibleTab : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    AccessibleTab(CustomTabBar* bar, int index);

    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text, const QString&) override { }
    QRect rect() const override;
    QAccessible::Role role() const override { return QAccessible::PageTab; }
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    CustomTabBar* m_bar; ///< not owned; outlives this
    int m_index;
};

/// A tab bar as a list of its tabs. Owned by the toolkit, which deletes it with the bar.
class AccessibleTabBar : public QAccessibleWidget
{
public:
    explicit AccessibleTabBar(CustomTabBar* bar);
    ~AccessibleTabBar() override;

    /// Makes the toolkit find these interfaces, from the first bar to the last.
    static void Install();
    static void Uninstall();

    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    int childCount() const override;
    int indexOfChild(const QAccessibleInterface* child) const override;

private:
    CustomTabBar* GetBar() const;

    mutable std::map<int, QAccessible::Id> m_tabs; ///< made when they are asked for
};
