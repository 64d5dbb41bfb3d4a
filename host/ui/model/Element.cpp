#include "ui/model/Element.h"

#include "ui/model/InterfaceModel.h"

#include <QLayout>
#include <QVBoxLayout>

namespace host::ui {

Element::Element(ElementKind kind, const QString& type, const QString& name, Element* parent)
    : m_kind(kind)
    , m_type(type)
    , m_name(name)
    , m_parent(parent)
{ }

QString Element::FullName() const
{
    return m_parent ? m_parent->FullName() + QLatin1Char('|') + m_name : m_name;
}

Element* Element::Nearest(int kinds)
{
    Element* element = this;
    while (element && !(element->m_kind & kinds))
        element = element->m_parent;
    return element;
}

bool Element::IsInside(const Element* ancestor) const
{
    const Element* element = this;
    while (element && element != ancestor)
        element = element->m_parent;
    return element != nullptr;
}

int Element::IndexInParent() const
{
    return m_parent ? m_parent->m_children.indexOf(const_cast<Element*>(this)) : -1;
}

void Element::SetWidget(QWidget* widget, QWidget* content)
{
    m_body = widget;
    m_widget = widget;
    m_content = content;
    widget->setObjectName(m_name);
    InterfaceModel& model = InterfaceModel::Current();
    model.Watch(widget, this);
    if (content && content != widget)
        model.Watch(content, this);
    // What other programs look at to tell the host's controls from plain widgets.
    widget->setProperty("hostControl", true);
    widget->setProperty("hostControlType", m_type);
    if (m_parent)
        m_parent->Place(*this);
    Q_EMIT model.ElementAdded(this);
}

void Element::SetMenu(QMenu* menu)
{
    m_body = menu;
    m_menu = menu;
    menu->setObjectName(m_name);
    InterfaceModel& model = InterfaceModel::Current();
    model.Watch(menu, this);
    m_action = menu->menuAction();
    model.Watch(m_action, this);
    m_action->setObjectName(m_name);
    Q_EMIT model.ElementAdded(this);
}

void Element::SetAction(QAction* action)
{
    m_body = action;
    m_action = action;
    action->setObjectName(m_name);
    InterfaceModel& model = InterfaceModel::Current();
    model.Watch(action, this);
    Q_EMIT model.ElementAdded(this);
}

void Element::SetCallback(const QString& flag, const Script& script)
{
    if (script.IsEmpty())
        m_callbacks.remove(flag);
    else
        m_callbacks.insert(flag, script);
}

void Element::RunCallback(const QString& flag, const QVector<Value>& arguments) const
{
    // A copy, as the callback may delete this element.
    const Script script = m_callbacks.value(flag);
    const auto before = calling;
    if (before)
        before(flag);
    script.Run(arguments);
}

/// Widgets tell of their end while pointers to them still look valid.
void Element::Forget(const QObject* object)
{
    if (m_widget == object)
        m_widget = nullptr;
    if (m_content == object)
        m_content = nullptr;
    if (m_menu == object)
        m_menu = nullptr;
    if (m_action == object)
        m_action = nullptr;
}

void Element::Place(Element& child)
{
    if (placeChild) {
        placeChild(child);
    } else if (m_content && child.m_widget) {
        if (!m_content->layout()) {
            auto* fill = new QVBoxLayout(m_content);
            fill->setContentsMargins(0, 0, 0, 0);
        }
        m_content->layout()->addWidget(child.m_widget);
    }
    if (childrenChanged)
        childrenChanged();
}

} // namespace host::ui
