#include "ui/model/InterfaceModel.h"

#include <QEvent>

#include <algorithm>

namespace host::ui {

namespace {

InterfaceModel* current = nullptr;

QString LastPart(const QString& path)
{
    return path.mid(path.lastIndexOf(QLatin1Char('|')) + 1);
}

/// True when `path` names the element: its whole path or the last parts of it.
bool Names(const QString& path, const Element& element)
{
    if (!path.contains(QLatin1Char('|')))
        return true;
    const QString fullName = element.FullName();
    const QString wanted = path.startsWith(QLatin1Char('|')) ? path.mid(1) : path;
    return fullName == wanted || fullName.endsWith(QLatin1Char('|') + wanted);
}

/// Takes the menu or item out of every menu and menu bar that shows it.
void TakeOut(QAction* action)
{
    const QList<QWidget*> places = action->associatedWidgets();
    for (QWidget* place : places)
        place->removeAction(action);
}

void Dispose(QWidget* widget, QMenu* menu, QAction* action)
{
    if (widget) {
        widget->hide();
        widget->setObjectName({});
        widget->deleteLater();
    }
    if (action)
        TakeOut(action);
    if (menu)
        menu->deleteLater(); // and its own action with it
    else if (action)
        action->deleteLater();
}

} // namespace

InterfaceModel::InterfaceModel(QObject* parent)
    : QObject(parent)
{
    Q_ASSERT_X(!current, "InterfaceModel", "there is one model per process");
    current = this;
}

InterfaceModel::~InterfaceModel()
{
    QVector<QPointer<QWidget>> topLevels;
    while (!m_elements.isEmpty()) {
        Element* element = m_elements.last();
        if (element->m_widget && !element->m_widget->parent())
            topLevels += element->m_widget;
        Remove(element);
    }
    for (const QPointer<QWidget>& widget : qAsConst(topLevels))
        delete widget;
    current = nullptr;
}

InterfaceModel& InterfaceModel::Current()
{
    Q_ASSERT(current);
    return *current;
}

bool InterfaceModel::Exists()
{
    return current != nullptr;
}

Element* InterfaceModel::Create(
    ElementKind kind, const QString& type, const QString& wantedName, Element* parent)
{
    QString name = wantedName;
    name.replace(QLatin1Char(' '), QLatin1Char('_'));
    if (name.isEmpty())
        name = DefaultName(type, parent);
    else if (HasChildNamed(parent, name))
        return nullptr;
    auto* element = new Element(kind, type, name, parent);
    m_elements += element;
    m_byName[name] += element;
    if (parent)
        parent->m_children += element;
    return element;
}

QString InterfaceModel::DefaultName(const QString& type, const Element* parent)
{
    QString name;
    do {
        name = type + QString::number(++m_lastNumbers[type]);
    } while (m_byName.contains(name) || HasChildNamed(parent, name));
    return name;
}

bool InterfaceModel::HasChildNamed(const Element* parent, const QString& name) const
{
    const QVector<Element*> sameName = m_byName.value(name);
    return std::any_of(sameName.begin(), sameName.end(),
        [parent](const Element* element) { return element->m_parent == parent; });
}

void InterfaceModel::Watch(QObject* object, Element* element)
{
    m_byObject.insert(object, element);
    connect(object, &QObject::destroyed, element, [this, object] { OnObjectDestroyed(object); });
    if (object->isWidgetType())
        object->installEventFilter(this);
}

void InterfaceModel::OnObjectDestroyed(QObject* object)
{
    Element* element = m_byObject.take(object);
    if (!element)
        return;
    element->Forget(object);
    // A control may lose its inner parts and live on, but not its body.
    if (object == element->m_body)
        Remove(element);
}

void InterfaceModel::Remove(Element* element)
{
    while (!element->m_children.isEmpty())
        Remove(element->m_children.last());
    Q_EMIT ElementRemoved(element);
    if (element->aboutToGo)
        element->aboutToGo();
    if (m_currentParent == element)
        SetCurrentParent(element->m_parent);
    if (m_currentMenu == element)
        m_currentMenu = nullptr;
    for (QObject* object : std::initializer_list<QObject*>{
             element->m_widget, element->m_content, element->m_menu, element->m_action}) {
        if (!object)
            continue;
        m_byObject.remove(object);
        object->removeEventFilter(this);
    }
    m_elements.removeOne(element);
    QVector<Element*>& sameName = m_byName[element->m_name];
    sameName.removeOne(element);
    if (sameName.isEmpty())
        m_byName.remove(element->m_name);
    Element* parent = element->m_parent;
    if (parent)
        parent->m_children.removeOne(element);
    delete element;
    if (parent && parent->childrenChanged)
        parent->childrenChanged();
}

void InterfaceModel::Delete(Element* element)
{
    const QPointer<QWidget> widget = element->m_widget;
    const QPointer<QMenu> menu = element->m_menu;
    const QPointer<QAction> action = element->m_action;
    Remove(element);
    Dispose(widget, menu, action);
}

bool InterfaceModel::Rename(Element* element, const QString& name)
{
    if (name == element->m_name)
        return true;
    if (HasChildNamed(element->m_parent, name))
        return false;
    QVector<Element*>& sameName = m_byName[element->m_name];
    sameName.removeOne(element);
    if (sameName.isEmpty())
        m_byName.remove(element->m_name);
    element->m_name = name;
    m_byName[name] += element;
    for (QObject* object :
        std::initializer_list<QObject*>{element->m_widget, element->m_menu, element->m_action}) {
        if (object)
            object->setObjectName(name);
    }
    return true;
}

void InterfaceModel::MoveChild(Element* element, int index)
{
    if (!element->m_parent)
        return;
    QVector<Element*>& siblings = element->m_parent->m_children;
    siblings.removeOne(element);
    siblings.insert(qBound(0, index, siblings.size()), element);
}

void InterfaceModel::SetParent(Element* element, Element* parent)
{
    Element* previous = element->m_parent;
    if (previous == parent)
        return;
    if (previous)
        previous->m_children.removeOne(element);
    element->m_parent = parent;
    parent->m_children += element;
    if (previous && previous->childrenChanged)
        previous->childrenChanged();
}

QString InterfaceModel::NotUnique(const QString& name)
{
    return QStringLiteral("Object's name '%1' is not unique.").arg(name);
}

QString InterfaceModel::NotFound(const QString& name)
{
    return QStringLiteral("Object '%1' not found.").arg(name);
}

QString InterfaceModel::FreeObjectName(const QWidget* control) const
{
    QString wanted = control->objectName();
    if (wanted.isEmpty())
        wanted = QString::fromLatin1(control->metaObject()->className()) + QLatin1Char('1');
    wanted.replace(QLatin1Char(' '), QLatin1Char('_'));
    wanted.replace(QLatin1Char(':'), QLatin1Char('_'));
    if (!m_byName.contains(wanted))
        return wanted;
    QString stem = wanted;
    while (!stem.isEmpty() && stem.at(stem.size() - 1).isDigit())
        stem.chop(1);
    int number = wanted.midRef(stem.size()).toInt();
    do {
        wanted = stem + QString::number(++number);
    } while (m_byName.contains(wanted));
    return wanted;
}

Element* InterfaceModel::AddWidget(QWidget* control, QWidget* layout, const QString& type)
{
    Element* parent = FindByObject(layout);
    if (!control || !parent || !parent->m_content || parent->m_widget == control
        || control->isAncestorOf(parent->m_content))
        return nullptr;
    if (Element* known = FindExact(control)) {
        SetParent(known, parent);
        parent->Place(*known);
        return known;
    }
    const QString kind
        = type.isEmpty() ? QString::fromLatin1(control->metaObject()->className()) : type;
    Element* element = Create(ControlKind, kind, FreeObjectName(control), parent);
    element->SetWidget(control);
    return element;
}

Element* InterfaceModel::Find(const QString& name, int kinds) const
{
    const QVector<Element*> found = FindAll(name, kinds);
    if (found.size() == 1)
        return found.first();
    const auto exact = std::find_if(found.begin(), found.end(),
        [&](const Element* element) { return element->FullName() == name; });
    return exact == found.end() ? nullptr : *exact;
}

QVector<Element*> InterfaceModel::FindAll(const QString& name, int kinds) const
{
    QVector<Element*> found;
    const QVector<Element*> sameName = m_byName.value(LastPart(name));
    for (Element* element : sameName) {
        if ((element->m_kind & kinds) && Names(name, *element))
            found += element;
    }
    return found;
}

Element* InterfaceModel::FindByObject(const QObject* object) const
{
    Element* element = nullptr;
    while (object && !element) {
        element = FindExact(object);
        object = object->parent();
    }
    return element;
}

Element* InterfaceModel::FindExact(const QObject* object) const
{
    return m_byObject.value(object);
}

QVector<Element*> InterfaceModel::List(int kinds, const QString& type) const
{
    QVector<Element*> found;
    for (Element* element : m_elements) {
        if ((element->m_kind & kinds) && (type.isEmpty() || element->m_type == type))
            found += element;
    }
    return found;
}

void InterfaceModel::SetCurrentParent(Element* element)
{
    m_currentParent = element ? element->Nearest(ANY_PARENT) : nullptr;
}

QWidget* InterfaceModel::FindWidget(const QString& name, int kinds, const QWidget* ancestor) const
{
    const QVector<Element*> found = FindAll(name, kinds);
    for (const Element* element : found) {
        if (element->m_widget && (!ancestor || ancestor->isAncestorOf(element->m_widget)))
            return element->m_widget;
    }
    return nullptr;
}

QWidget* InterfaceModel::FindControl(const QString& name, const QWidget* ancestor) const
{
    return FindWidget(name, ANY_CONTROL, ancestor);
}

QWidget* InterfaceModel::FindLayout(const QString& name, const QWidget* ancestor) const
{
    return FindWidget(name, LayoutKind, ancestor);
}

QWidget* InterfaceModel::FindWindow(const QString& name) const
{
    return FindWidget(name, WindowKind, nullptr);
}

QAction* InterfaceModel::FindMenuItem(const QString& name) const
{
    const QVector<Element*> found = FindAll(name, MenuItemKind);
    return found.isEmpty() ? nullptr : found.first()->GetAction();
}

QString InterfaceModel::FullName(const QObject* object) const
{
    const Element* element = FindExact(object);
    return element ? element->FullName() : QString();
}

QWidget* InterfaceModel::CurrentParent() const
{
    return m_currentParent ? m_currentParent->GetContent() : nullptr;
}

QString InterfaceModel::AddWidgetNamed(QWidget* control, QWidget* layout, const QString& type)
{
    const Element* element = AddWidget(control, layout, type);
    return element ? element->FullName() : QString();
}

bool InterfaceModel::eventFilter(QObject* watched, QEvent* event)
{
    const Element* element = FindExact(watched);
    if (!element || watched != element->GetWidget())
        return false;
    const bool visibilityChanged
        = event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent;
    if (visibilityChanged)
        element->RunCallback(QStringLiteral("visibleChangeCommand"));
    else if (event->type() == QEvent::FocusIn)
        element->RunCallback(QStringLiteral("receiveFocusCommand"));
    return false;
}

} // namespace host::ui
