#include "scene/Node.h"

#include <algorithm>
#include <set>

namespace host::scene {

namespace {

void Collect(const QVector<std::shared_ptr<Attribute>>& attributes, QVector<const Attribute*>& all)
{
    for (const auto& attribute : attributes) {
        all += attribute.get();
        Collect(attribute->children, all);
    }
}

/// The number between the brackets right behind `key`; -1 when `text` is no element of it.
int IndexBehind(const QString& text, const QString& key)
{
    if (text.size() <= key.size() || text.at(key.size()) != QLatin1Char('[')
        || !text.startsWith(key))
        return -1;
    const int end = text.indexOf(QLatin1Char(']'), key.size());
    return end < 0 ? -1 : text.midRef(key.size() + 1, end - key.size() - 1).toInt();
}

} // namespace

Node::Node(const NodeType& type, quint64 serial, const QString& uuid)
    : m_type(&type)
    , m_serial(serial)
    , m_uuid(uuid)
{ }

QVector<Node*> Node::Children() const
{
    QVector<Node*> children;
    children.reserve(static_cast<int>(m_children.size()));
    for (const auto& [order, child] : m_children)
        children += child;
    return children;
}

QVector<Node*> Node::Shapes() const
{
    QVector<Node*> shapes;
    for (const auto& [order, child] : m_children) {
        if (child->IsShape())
            shapes += child;
    }
    return shapes;
}

void Node::CollectTree(QVector<Node*>& nodes) const
{
    // By hand: a chain of thousands of nodes must not need as much stack.
    QVector<Node*> waiting{const_cast<Node*>(this)};
    while (!waiting.isEmpty()) {
        Node* node = waiting.takeLast();
        nodes += node;
        for (auto child = node->m_children.rbegin(); child != node->m_children.rend(); ++child)
            waiting += child->second;
    }
}

bool Node::IsBelow(const Node& other) const
{
    const Node* node = m_parent;
    while (node && node != &other)
        node = node->m_parent;
    return node != nullptr;
}

QString Node::Path() const
{
    if (!IsDag())
        return m_name;
    QStringList names;
    for (const Node* node = this; node && node->m_parent; node = node->m_parent)
        names.prepend(node->m_name);
    return QLatin1Char('|') + names.join(QLatin1Char('|'));
}

const Attribute* Node::FindAttribute(const QString& name) const
{
    if (const Attribute* attribute = m_type->GetAttributes().Find(name))
        return attribute;
    if (const Attribute* attribute = m_dynamic.Find(name))
        return attribute;
    const QString aliased = m_aliases.value(name);
    return aliased.isEmpty() ? nullptr : FindAttribute(aliased);
}

QVector<const Attribute*> Node::AllAttributes() const
{
    QVector<const Attribute*> all;
    Collect(m_type->GetAttributes().TopLevel(), all);
    Collect(m_dynamic.TopLevel(), all);
    return all;
}

const Value* Node::FindValue(const QString& key) const
{
    const auto found = m_values.constFind(key);
    return found == m_values.constEnd() ? nullptr : &*found;
}

bool Node::HasOutgoing(const QString& key) const
{
    return std::any_of(m_outgoing.begin(), m_outgoing.end(),
        [&](const auto& entry) { return entry.second->sourceKey == key; });
}

QVector<int> Node::Indices(const QString& key) const
{
    std::set<int> indices;
    const auto note = [&](const QString& text) {
        const int index = IndexBehind(text, key);
        if (index >= 0)
            indices.insert(index);
    };
    for (auto value = m_values.begin(); value != m_values.end(); ++value)
        note(value.key());
    for (auto incoming = m_incoming.begin(); incoming != m_incoming.end(); ++incoming)
        note(incoming.key());
    for (const auto& entry : m_outgoing)
        note(entry.second->sourceKey);
    return QVector<int>(indices.begin(), indices.end());
}

void Node::NoteIndex(const QString& key)
{
    const int open = key.indexOf(QLatin1Char('['));
    if (open < 0)
        return;
    const QString multi = key.left(open);
    int& next = m_nextIndices[multi];
    next = std::max(next, IndexBehind(key, multi) + 1);
}

} // namespace host::scene
