#pragma once

#include "engine/Script.h"

#include <QAction>
#include <QHash>
#include <QMenu>
#include <QObject>
#include <QPointer>
#include <QVector>
#include <QWidget>

#include <functional>

namespace host::ui {

/// The sorts of elements that commands tell apart. Bits, so that a search can name several.
enum ElementKind {
    WindowKind = 1,
    LayoutKind = 2,
    ControlKind = 4,
    MenuKind = 8, ///< menus of a menu bar, pop-up menus
    MenuItemKind = 16, ///< a sub-menu is an item that takes items
    CollectionKind = 32, ///< a group of radio items; has no widget
    TemplateKind = 64, ///< flags that new elements begin with; has no widget
};

constexpr int ANY_KIND = 0xff;
/// What `control -exists` and the API call a control: layouts are controls too.
constexpr int ANY_CONTROL = LayoutKind | ControlKind;
constexpr int ANY_PARENT = WindowKind | LayoutKind;

/// One named part of the interface as scripts see it. Made and owned by the InterfaceModel; lives
/// on the main thread. The widget belongs to its Qt parent; the element goes when its widget does.
/// Connect to widgets with the element as the receiver, so that nothing is called after its end.
class Element : public QObject
{
    Q_OBJECT
public:
    /// The command that made it, such as "button" or "workspaceControl".
    QString GetType() const { return m_type; }
    ElementKind GetKind() const { return m_kind; }
    /// Unique among the children of the same parent.
    QString GetName() const { return m_name; }
    /// Null for windows and others that stand alone.
    Element* GetParent() const { return m_parent; }
    /// In the order in which they are shown.
    const QVector<Element*>& GetChildren() const { return m_children; }
    /// "window|layout|control" or "window|menu|item".
    QString FullName() const;
    /// The element itself or one of its parents, whose kind is among `kinds`; null when there is
    /// none.
    Element* Nearest(int kinds);
    bool IsInside(const Element* ancestor) const;
    int IndexInParent() const;

    /// The whole control; null for menus and their items.
    QWidget* GetWidget() const { return m_widget; }
    /// Where children are put; null when the element takes no widgets.
    QWidget* GetContent() const { return m_content; }
    QMenu* GetMenu() const { return m_menu; }
    QAction* GetAction() const { return m_action; }

    /// Gives the element its control. The widget gets the element's name and is placed in the
    /// parent; the element vanishes with it. `content` null: no widgets can be put into it.
    void SetWidget(QWidget* widget, QWidget* content = nullptr);
    /// The same for a menu (of a menu bar, or opened by an item) and for a menu item.
    void SetMenu(QMenu* menu);
    void SetAction(QAction* action);

    /// Keeps a callback under the long name of its flag; an empty one removes it.
    void SetCallback(const QString& flag, const Script& script);
    Script GetCallback(const QString& flag) const { return m_callbacks.value(flag); }
    bool HasCallback(const QString& flag) const { return m_callbacks.contains(flag); }
    /// Runs a callback, if there is one, with the values that stand for #1, #2 ... The element may
    /// be gone when this returns. Errors have been shown.
    void RunCallback(const QString& flag, const QVector<Value>& arguments = {}) const;

    /// Values of flags by long name, for what the widget itself does not remember.
    QHash<QString, Value> values;

    /// Puts the widget of a new child (its kind is Layout or Control) into `content`. Unset: the
    /// content's own layout takes it, or it fills the content.
    std::function<void(Element& child)> placeChild;
    /// Called when children came, went or changed their label.
    std::function<void()> childrenChanged;
    /// Called before a callback runs, whether or not there is one, with the long name of its flag.
    std::function<void(const QString& flag)> calling;
    /// Called before the element goes; its widget may be gone already.
    std::function<void()> aboutToGo;

private:
    friend class InterfaceModel;

    Element(ElementKind kind, const QString& type, const QString& name, Element* parent);
    void Place(Element& child);
    void Forget(const QObject* object);

    ElementKind m_kind;
    QString m_type;
    QString m_name;
    Element* m_parent = nullptr;
    QVector<Element*> m_children;
    /// Widget, menu or action without which there is no element. Compared only, never used.
    const QObject* m_body = nullptr;
    QPointer<QWidget> m_widget;
    QPointer<QWidget> m_content;
    QPointer<QMenu> m_menu;
    QPointer<QAction> m_action;
    QHash<QString, Script> m_callbacks;
};

} // namespace host::ui
