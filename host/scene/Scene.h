#pragma once

#include "scene/Item.h"
#include "scene/Journal.h"
#include "scene/NameIndex.h"
#include "scene/Plug.h"
#include "scene/Watches.h"

namespace host {
class Engine;
}

namespace host::scene {

/// What is remembered about the scene besides its nodes.
struct Playback
{
    double time = 1;
    double minimum = 1;
    double maximum = 120;
    double animationStart = 1;
    double animationEnd = 200;
    double speed = 0;
    double maximumSpeed = 0;
    double by = 1;
    QString loop = QStringLiteral("continuous");
    QString view = QStringLiteral("active");

    bool operator==(const Playback& other) const;
};

struct SceneUnits
{
    QString length = QStringLiteral("cm");
    QString angle = QStringLiteral("deg");
    QString time = QStringLiteral("film");
    QString upAxis = QStringLiteral("y");
};

/// The nodes, how they are connected, and which of them are selected: small, in memory, and enough
/// for scripts to work on. Every change goes through here, keeps names unique, can be taken back
/// (see Journal) and is told to those who wait for it. Owned by the commands' session; main thread
/// only.
class Scene
{
public:
    explicit Scene(Engine& engine);
    ~Scene();
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    /// The scene of the running host.
    static Scene& Current();

    /// Forgets everything and begins with the nodes that are always there. Cannot be taken back.
    void Reset();

    Journal journal;
    Watches watches;
    QString fileName; ///< absolute; empty for a scene that was never saved
    bool isModified = false;
    QMap<QString, QString> info; ///< what scripts note about the file

    QString viewCamera = QStringLiteral("persp"); ///< through which the view is seen
    QString tool = QStringLiteral("selectSuperContext");

    // Looking up

    /// The parent of the nodes on top; bears no name and is never shown.
    Node& Root() const { return *m_root; }
    /// In the order in which they were made.
    QVector<Node*> Nodes() const;
    /// How many nodes there are of just this kind.
    int CountOf(const NodeType& type) const { return m_counts.value(&type); }
    /// Another number whenever nodes came, went, moved or got another name.
    quint64 TreeRevision() const { return m_treeRevision; }
    const NameIndex& Names() const { return m_names; }
    /// All nodes that a name, path, pattern or unique id means. Patterns match one namespace unless
    /// they name others; `everyNamespace` lets them match all.
    QVector<Node*> Find(const QString& text, bool everyNamespace = false) const;
    /// Null when there is none or more than one.
    Node* FindOne(const QString& text) const;
    /// What scripts get to see: the name where it is unique, else as much of the path as it takes.
    QString DisplayName(const Node& node) const;
    QString DisplayName(const Item& item, bool fullPath = false) const;
    QString DisplayName(const Plug& plug) const;

    /// While another file is read into this scene, the names in it mean the nodes that it makes,
    /// even if those bear other names here.
    void BeginImport();
    void EndImport();
    void NoteImported(const QString& nameInFile, Node& node);

    // Nodes

    /// A new node with the name, or with one counted up from it. `parent` null: on top for nodes of
    /// the hierarchy. The name has to be legal.
    Node& Create(const NodeType& type, const QString& name, Node* parent = nullptr);
    /// Deletes the nodes, what is below them, and what was only there for them.
    void Delete(const QVector<Node*>& nodes);
    void Rename(Node& node, const QString& name);
    /// Below another one, at the end; its name is counted up where it is taken.
    void SetParent(Node& node, Node& parent);
    /// Children in the order given; those not named stay behind them.
    void Reorder(Node& parent, const QVector<Node*>& children);
    void SetLocked(Node& node, bool locked);

    // Attributes

    /// The value, coming from elsewhere where something flows into the attribute. A compound gives
    /// an array of its children's numbers.
    Value GetValue(const Plug& plug) const;
    /// Nothing but keys decides about its value: a script may set it until time moves on.
    static bool IsKeyedOnly(const Plug& plug);
    /// The value that was set, or the default, whatever flows into the attribute.
    Value GetStored(const Plug& plug) const;
    /// A value of another kind is converted.
    void SetValue(const Plug& plug, const Value& value);
    /// Notes a text at an attribute that keeps no value of its own.
    void SetText(const Plug& plug, const QString& text);
    void SetState(const Plug& plug, const PlugState& state);
    void AddAttribute(Node& node, const std::shared_ptr<Attribute>& attribute);
    /// One that a script added, with what flows in and out of it.
    void RemoveAttribute(Node& node, const Attribute& attribute);
    void ReplaceAttribute(Node& node, const std::shared_ptr<Attribute>& attribute);
    /// An element with its values and connections.
    void RemoveElement(const Plug& element);
    /// An empty alias takes away the one that is there.
    void SetAlias(const Plug& plug, const QString& alias);

    /// Grows with whatever may change a value, other than time.
    quint64 CountChanges() const { return m_changes; }
    /// Works out what an expression node sets; by whoever can run it. May be empty.
    std::function<Value(Node& expression, int output)> runExpression;

    // Connections

    /// The attribute that flowed in before is disconnected.
    void Connect(const Plug& source, const Plug& destination);
    void Disconnect(const ConnectionPointer& connection);

    // Selection

    const QVector<Item>& Selection() const { return m_selection; }
    bool IsSelected(const Node& node) const { return m_selectedNodes.value(&node) > 0; }
    void Select(const QVector<Item>& items);
    /// Those that are selected already stay where they are.
    void AddToSelection(const QVector<Item>& items);
    /// The nodes of the hierarchy that were hidden together, for showing them again.
    QVector<NodePointer> lastHidden;

    // Time, units, namespaces

    const Playback& GetPlayback() const { return m_playback; }
    /// The time that values are wanted for: the current one unless somebody asks for another.
    double EvaluationTime() const { return askedTime.value_or(m_playback.time); }
    std::optional<double> askedTime;
    void SetPlayback(const Playback& playback);
    const SceneUnits& GetUnits() const { return m_units; }
    void SetUnits(const SceneUnits& units);
    double FramesPerSecond() const;
    /// Sorted; those above it are there, too. Does not hold the outermost one, "".
    const QStringList& Namespaces() const { return m_namespaces; }
    void SetNamespaces(const QStringList& namespaces);
    QString currentNamespace;

private:
    void Attach(const NodePointer& node, Node* parent, qint64 order);
    void Detach(const NodePointer& node);
    void MoveTo(Node& node, Node& parent, qint64 order, const QString& name);
    void ApplyName(Node& node, const QString& name);
    void ApplyValue(Node& node, const QString& key, const std::optional<Value>& value);
    void ApplyState(Node& node, const QString& key, const PlugState& state);
    void ApplyConnect(const ConnectionPointer& connection);
    void ApplyDisconnect(const ConnectionPointer& connection);
    void ApplySelection(int position, const QVector<Item>& out, const QVector<Item>& in);
    void Change(Journal::Action redo, Journal::Action undo);
    void ReplaceValue(const Plug& plug, const Value& after);
    void SetHeld(const Node& node, const QString& key, bool held);
    void ReleaseDrivenBy(const Node& curve);
    void DropValues(Node& node, const QString& key);
    void DropConnections(Node& node, const QString& key);
    QVector<Node*> WithOrphans(const QVector<Node*>& nodes) const;
    void DeleteOne(Node& node);
    void RequireNamespace(const QString& name);
    QVector<Node*> FindPattern(const QString& pattern, bool everyNamespace) const;
    QVector<Node*> FindPath(const QString& path) const;
    void NoteAttribute(Node& node, const QString& key);

    Engine& m_engine;
    NodePointer m_root;
    std::map<quint64, NodePointer> m_nodes; ///< by serial number
    QHash<QString, Node*> m_byUuid;
    NameIndex m_names;
    QVector<Item> m_selection;
    QHash<const Node*, int> m_selectedNodes; ///< how often each node is selected
    Playback m_playback;
    SceneUnits m_units;
    QStringList m_namespaces;
    /// Keyed attributes that were set since their keys spoke last: serial of the node, and key.
    QSet<QPair<quint64, QString>> m_held;
    bool m_importing = false;
    QHash<QString, NodePointer> m_imported; ///< by the path in the file
    QHash<const NodeType*, int> m_counts; ///< of the nodes in the scene
    quint64 m_changes = 0;
    quint64 m_treeRevision = 0;
    quint64 m_lastSerial = 0;
    quint64 m_lastConnection = 0;
};

} // namespace host::scene
