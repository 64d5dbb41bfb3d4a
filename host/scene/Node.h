#pragma once

#include "scene/NodeType.h"

#include <QMap>

#include <map>

namespace host::scene {

class Node;
using NodePointer = std::shared_ptr<Node>;

/// What flows from one attribute to another. The keys are those of Plug::key.
struct Connection
{
    quint64 serial = 0; ///< later connections have higher numbers
    Node* source = nullptr;
    QString sourceKey;
    Node* destination = nullptr;
    QString destinationKey;
};
using ConnectionPointer = std::shared_ptr<const Connection>;

/// What a script changed about one attribute of one node.
struct PlugState
{
    std::optional<bool> keyable;
    std::optional<bool> inChannelBox;
    bool locked = false;
};

/// One node. Owned by the scene while it is there and by the steps of the undo queue that speak of
/// it; only the scene changes it, so that every change can be taken back. Main thread only.
class Node : public std::enable_shared_from_this<Node>
{
public:
    Node(const NodeType& type, quint64 serial, const QString& uuid);

    const NodeType& GetType() const { return *m_type; }
    /// Later nodes have higher numbers.
    quint64 GetSerial() const { return m_serial; }
    const QString& GetUuid() const { return m_uuid; }
    /// With its namespace, without a path.
    const QString& GetName() const { return m_name; }
    /// "" for the outermost namespace.
    QString Namespace() const { return m_name.section(QLatin1Char(':'), 0, -2); }
    bool IsInScene() const { return m_isInScene; }
    /// Made with the scene itself.
    bool IsDefault() const { return m_isDefault; }
    bool IsLocked() const { return m_isLocked; }
    bool IsDag() const { return m_type->IsDag(); }
    bool IsShape() const { return m_type->IsShape(); }

    /// Null for nodes outside of the hierarchy; the nodes on top have the scene's root.
    Node* GetParent() const { return m_parent; }
    bool IsTopLevel() const { return m_parent && !m_parent->m_parent; }
    QVector<Node*> Children() const;
    QVector<Node*> Shapes() const;
    /// Itself and everything below, parents first.
    void CollectTree(QVector<Node*>& nodes) const;
    bool IsBelow(const Node& other) const;
    /// "|group1|box"; just the name outside of the hierarchy.
    QString Path() const;

    /// By long or short name or alias. Null when there is none.
    const Attribute* FindAttribute(const QString& name) const;
    /// Those of its kind first, then those that scripts added; children follow their compounds.
    QVector<const Attribute*> AllAttributes() const;
    const AttributeList& GetDynamicAttributes() const { return m_dynamic; }
    const QMap<QString, QString>& GetAliases() const { return m_aliases; }

    /// Null when nobody set it.
    const Value* FindValue(const QString& key) const;
    QStringList ValueKeys() const { return m_values.keys(); }
    PlugState GetState(const QString& key) const { return m_states.value(key); }
    const QMap<QString, PlugState>& GetStates() const { return m_states; }
    /// Null when nothing flows into it.
    ConnectionPointer IncomingTo(const QString& key) const { return m_incoming.value(key); }
    const QMap<QString, ConnectionPointer>& GetIncoming() const { return m_incoming; }
    /// In the order in which they were made.
    const std::map<quint64, ConnectionPointer>& GetOutgoing() const { return m_outgoing; }
    bool HasOutgoing(const QString& key) const;
    /// Elements of a multi that hold a value or a connection, sorted.
    QVector<int> Indices(const QString& key) const;
    /// The first element of which it is known that nothing was ever there.
    int NextIndex(const QString& key) const { return m_nextIndices.value(key); }

private:
    friend class NameIndex;
    friend class Scene;

    void NoteIndex(const QString& key);

    const NodeType* m_type;
    quint64 m_serial;
    QString m_uuid;
    QString m_name;
    Node* m_parent = nullptr;
    qint64 m_order = 0; ///< its place among its parent's children
    std::map<qint64, Node*> m_children;
    AttributeList m_dynamic;
    QMap<QString, QString> m_aliases; ///< to keys
    QHash<QString, Value> m_values;
    QMap<QString, PlugState> m_states;
    QMap<QString, ConnectionPointer> m_incoming; ///< by destination key
    std::map<quint64, ConnectionPointer> m_outgoing;
    QHash<QString, int> m_nextIndices;
    bool m_isInScene = false;
    bool m_isDefault = false;
    bool m_isLocked = false;
};

} // namespace host::scene
