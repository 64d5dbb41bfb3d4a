#pragma once

#include "ui/model/Element.h"

namespace host::ui {

/// Everything that scripts have names for in the interface. There is one, made before the main
/// window and destroyed after it by whoever makes the window; main thread only.
/// Invariant: an element is listed as long as its widget, menu or action lives, and no longer.
class InterfaceModel : public QObject
{
    Q_OBJECT
public:
    explicit InterfaceModel(QObject* parent = nullptr);
    ~InterfaceModel() override;

    /// Undefined before it is made and after it is gone.
    static InterfaceModel& Current();
    static bool Exists();

    // Making and removing

    /// A new element at the end of `parent` (null: it stands alone). An empty `wantedName` gives
    /// the type with the next free number; blanks in a name become "_". Null when the parent has a
    /// child of that name already (see NotUnique). Give it its widget next.
    Element* Create(
        ElementKind kind, const QString& type, const QString& wantedName, Element* parent);
    /// Removes the element with all its children. Their widgets are hidden at once and deleted when
    /// the event loop is reached again, so that a control may delete itself in its own callback.
    void Delete(Element* element);
    /// False when the parent has a child of that name already.
    bool Rename(Element* element, const QString& name);
    /// Moves a child within its parent; for items in menus and tabs in layouts.
    void MoveChild(Element* element, int index);
    /// Puts a foreign widget under management as a control of `layout` (the widget or content of an
    /// element, or a widget inside one). Its object name becomes unique. Null when `layout` belongs
    /// to no element that takes widgets.
    Element* AddWidget(QWidget* control, QWidget* layout, const QString& type);
    static QString NotUnique(const QString& name);
    static QString NotFound(const QString& name);

    // Finding

    /// By short name, full path, or the last parts of a path. Null when there is none, or when
    /// several fit and none of them is the full path.
    Element* Find(const QString& name, int kinds = ANY_KIND) const;
    /// Every element that the name may mean, oldest first.
    QVector<Element*> FindAll(const QString& name, int kinds = ANY_KIND) const;
    /// The element that the widget, menu or action is, or is inside of; null for none.
    Element* FindByObject(const QObject* object) const;
    /// The element whose very own widget, content, menu or action this is.
    Element* FindExact(const QObject* object) const;
    /// All elements of the kinds whose type is `type` (empty: any), oldest first.
    QVector<Element*> List(int kinds, const QString& type = {}) const;

    // The current parents

    /// Window or layout into which the next control goes; null when there is none.
    Element* GetCurrentParent() const { return m_currentParent; }
    void SetCurrentParent(Element* element);
    /// Menu or sub-menu into which the next item goes; null when there is none.
    Element* GetCurrentMenu() const { return m_currentMenu; }
    void SetCurrentMenu(Element* element) { m_currentMenu = element; }

    // What the API and the interpreters ask (see engine/UserInterface.h)

    QWidget* FindControl(const QString& name, const QWidget* ancestor = nullptr) const;
    QWidget* FindLayout(const QString& name, const QWidget* ancestor = nullptr) const;
    QWidget* FindWindow(const QString& name) const;
    QAction* FindMenuItem(const QString& name) const;
    QString FullName(const QObject* object) const;
    /// Content of the current parent.
    QWidget* CurrentParent() const;
    QString AddWidgetNamed(QWidget* control, QWidget* layout, const QString& type);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// After the element was given its widget, menu or action.
    void ElementAdded(Element* element);
    /// Before the element goes; children go before their parent.
    void ElementRemoved(Element* element);

private:
    friend class Element;

    QString DefaultName(const QString& type, const Element* parent);
    QWidget* FindWidget(const QString& name, int kinds, const QWidget* ancestor) const;
    bool HasChildNamed(const Element* parent, const QString& name) const;
    QString FreeObjectName(const QWidget* control) const;
    void Watch(QObject* object, Element* element);
    void OnObjectDestroyed(QObject* object);
    /// Takes the element and its children off every list and deletes them; touches no widget.
    void Remove(Element* element);
    void SetParent(Element* element, Element* parent);

    /// In the order of their creation.
    QVector<Element*> m_elements;
    QHash<QString, QVector<Element*>> m_byName;
    QHash<const QObject*, Element*> m_byObject;
    QHash<QString, int> m_lastNumbers;
    QPointer<Element> m_currentParent;
    QPointer<Element> m_currentMenu;
};

/// Sets the current parents back to what they were.
class ParentScope
{
public:
    explicit ParentScope(InterfaceModel& model)
        : m_model(model)
        , m_parent(model.GetCurrentParent())
        , m_menu(model.GetCurrentMenu())
    { }
    ~ParentScope()
    {
        m_model.SetCurrentParent(m_parent);
        m_model.SetCurrentMenu(m_menu);
    }
    ParentScope(const ParentScope&) = delete;
    ParentScope& operator=(const ParentScope&) = delete;

private:
    InterfaceModel& m_model;
    QPointer<Element> m_parent;
    QPointer<Element> m_menu;
};

} // namespace host::ui
