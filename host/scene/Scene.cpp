// Finding nodes and naming them, the selection, and what is remembered besides nodes.

#include "scene/Scene.h"

#include "engine/Engine.h"
#include "engine/UnitSize.h"
#include "scene/DefaultNodes.h"

#include <QRegularExpression>

#include <algorithm>

namespace host::scene {

namespace {

Scene* current = nullptr;

/// Nodes of one name beyond which the whole path is shown rather than the shortest that will do.
constexpr int FEW = 32;

bool IsPattern(const QString& text)
{
    return text.contains(QLatin1Char('*')) || text.contains(QLatin1Char('?'));
}

/// ":a" is "a" in the outermost namespace.
QStringList PathParts(const QString& path)
{
    QStringList parts = path.split(QLatin1Char('|'));
    for (QString& part : parts) {
        if (part.startsWith(QLatin1Char(':')))
            part.remove(0, 1);
    }
    return parts;
}

QRegularExpression Expression(const QString& part, bool everyNamespace)
{
    QString pattern = QRegularExpression::escape(part);
    pattern.replace(QLatin1String("\\*"), QLatin1String("[^:]*"));
    pattern.replace(QLatin1String("\\?"), QLatin1String("[^:]"));
    const QString lead = everyNamespace ? QStringLiteral("(?:.*:)?") : QString();
    return QRegularExpression(QStringLiteral("\\A%1%2\\z").arg(lead, pattern));
}

/// True when the parents of the node match the parts before the last one.
bool ParentsMatch(const Node& node, const QVector<QRegularExpression>& parts, bool absolute)
{
    const Node* parent = node.GetParent();
    for (int i = parts.size() - 2; i >= 0; --i) {
        if (!parent || !parent->GetParent() || !parts[i].match(parent->GetName()).hasMatch())
            return false;
        parent = parent->GetParent();
    }
    return !absolute || (parent && !parent->GetParent());
}

} // namespace

bool Playback::operator==(const Playback& other) const
{
    return time == other.time && minimum == other.minimum && maximum == other.maximum
        && animationStart == other.animationStart && animationEnd == other.animationEnd
        && speed == other.speed && maximumSpeed == other.maximumSpeed && by == other.by
        && loop == other.loop && view == other.view;
}

Scene::Scene(Engine& engine)
    : watches(engine)
    , m_engine(engine)
{
    current = this;
    Reset();
}

Scene::~Scene()
{
    // The steps speak of this scene.
    m_engine.undoQueue.Clear();
    if (current == this)
        current = nullptr;
}

Scene& Scene::Current()
{
    Q_ASSERT(current);
    return *current;
}

void Scene::Reset()
{
    m_engine.undoQueue.Clear();
    const bool wasSelected = !m_selection.isEmpty();
    m_selection.clear();
    m_selectedNodes.clear();
    for (const auto& [serial, node] : m_nodes) {
        watches.Note(NodeChange::Deleted, *node);
        node->m_isInScene = false;
    }
    m_names = NameIndex();
    m_byUuid.clear();
    m_nodes.clear();
    m_counts.clear();
    ++m_changes;
    lastHidden.clear();
    m_held.clear();
    info.clear();
    viewCamera = QStringLiteral("persp");
    m_namespaces = QStringList{QStringLiteral("UI"), QStringLiteral("shared")};
    currentNamespace.clear();
    m_playback = {};
    m_units = {};
    m_engine.units = {};
    fileName.clear();
    m_root = std::make_shared<Node>(*NodeType::Find(QStringLiteral("transform")), 0, QString());
    m_root->m_isInScene = true;
    watches.silent = true;
    CreateDefaultNodes(*this);
    watches.silent = false;
    for (const auto& [serial, node] : m_nodes)
        node->m_isDefault = true;
    isModified = false;
    if (wasSelected)
        watches.NoteEvent(QStringLiteral("SelectionChanged"));
    ++m_treeRevision;
    watches.NoteScene();
}

QVector<Node*> Scene::Nodes() const
{
    QVector<Node*> nodes;
    nodes.reserve(static_cast<int>(m_nodes.size()));
    for (const auto& [serial, node] : m_nodes)
        nodes += node.get();
    return nodes;
}

QVector<Node*> Scene::Find(const QString& text, bool everyNamespace) const
{
    if (text.isEmpty())
        return {};
    if (IsPattern(text))
        return FindPattern(text, everyNamespace);
    if (const NodePointer imported = m_imported.value(text))
        return {imported.get()};
    QVector<Node*> nodes = FindPath(text);
    if (nodes.isEmpty() && !currentNamespace.isEmpty() && !text.contains(QLatin1Char('|')))
        nodes = FindPath(currentNamespace + QLatin1Char(':') + text);
    if (nodes.isEmpty()) {
        if (Node* node = m_byUuid.value(text.toUpper()))
            nodes += node;
    }
    return nodes;
}

QVector<Node*> Scene::FindPath(const QString& path) const
{
    QStringList parts = PathParts(path);
    if (parts.size() == 1)
        return m_names.Find(parts.first());
    QVector<Node*> found;
    if (parts.first().isEmpty()) {
        Node* node = m_root.get();
        for (const QString& part : parts.mid(1))
            node = node ? m_names.FindChild(node, part) : nullptr;
        if (node)
            found += node;
        return found;
    }
    for (Node* node : m_names.Find(parts.takeFirst())) {
        for (const QString& part : qAsConst(parts))
            node = node ? m_names.FindChild(node, part) : nullptr;
        if (node)
            found += node;
    }
    return found;
}

QVector<Node*> Scene::FindPattern(const QString& pattern, bool everyNamespace) const
{
    QStringList parts = PathParts(pattern);
    const bool absolute = parts.size() > 1 && parts.first().isEmpty();
    if (absolute)
        parts.removeFirst();
    QVector<QRegularExpression> expressions;
    for (const QString& part : qAsConst(parts))
        expressions += Expression(part, everyNamespace);
    QStringList names = m_names.Names().filter(expressions.last());
    names.sort();
    QVector<Node*> found;
    for (const QString& name : qAsConst(names)) {
        for (Node* node : m_names.Find(name)) {
            const bool fits = parts.size() == 1 && !absolute
                ? true
                : node->IsDag() && ParentsMatch(*node, expressions, absolute);
            if (fits)
                found += node;
        }
    }
    return found;
}

Node* Scene::FindOne(const QString& text) const
{
    const QVector<Node*> nodes = Find(text);
    return nodes.size() == 1 ? nodes.first() : nullptr;
}

QString Scene::DisplayName(const Node& node) const
{
    if (!node.IsDag() || m_names.IsUnique(node.GetName()))
        return node.GetName();
    const QVector<Node*> others = m_names.Find(node.GetName());
    if (others.size() > FEW)
        return node.Path();
    QString path = node.GetName();
    for (const Node* parent = node.GetParent(); parent && parent->GetParent();
         parent = parent->GetParent()) {
        path = parent->GetName() + QLatin1Char('|') + path;
        const QString tail = QLatin1Char('|') + path;
        const auto alike = std::count_if(others.begin(), others.end(),
            [&](const Node* other) { return other->Path().endsWith(tail); });
        if (alike == 1)
            return path;
    }
    return QLatin1Char('|') + path;
}

QString Scene::DisplayName(const Item& item, bool fullPath) const
{
    const QString name = fullPath ? item.node->Path() : DisplayName(*item.node);
    return item.part.isEmpty() ? name : name + QLatin1Char('.') + item.part;
}

QString Scene::DisplayName(const Plug& plug) const
{
    return DisplayName(*plug.node) + QLatin1Char('.') + plug.key;
}

void Scene::BeginImport()
{
    m_importing = true;
}

void Scene::EndImport()
{
    m_importing = false;
    m_imported.clear();
}

void Scene::NoteImported(const QString& nameInFile, Node& node)
{
    if (m_importing)
        m_imported.insert(nameInFile, node.shared_from_this());
}

// Selection

void Scene::ApplySelection(int position, const QVector<Item>& out, const QVector<Item>& in)
{
    for (const Item& item : out) {
        if (--m_selectedNodes[item.node.get()] == 0)
            m_selectedNodes.remove(item.node.get());
    }
    QVector<Item> entering;
    for (const Item& item : in) {
        // An old list may speak of nodes that went without a step of their own.
        if (!item.node->IsInScene())
            continue;
        entering += item;
        ++m_selectedNodes[item.node.get()];
    }
    if (position == m_selection.size()) {
        m_selection += entering;
    } else {
        m_selection
            = m_selection.mid(0, position) + entering + m_selection.mid(position + out.size());
    }
    watches.NoteEvent(QStringLiteral("SelectionChanged"));
}

void Scene::Select(const QVector<Item>& items)
{
    if (items == m_selection)
        return;
    const QVector<Item> before = m_selection;
    Change([this, items] { ApplySelection(0, m_selection, items); },
        [this, before] { ApplySelection(0, m_selection, before); });
}

void Scene::AddToSelection(const QVector<Item>& items)
{
    QSet<Item> present;
    const bool isMany = items.size() > 1;
    if (isMany)
        present = QSet<Item>(m_selection.begin(), m_selection.end());
    QVector<Item> added;
    for (const Item& item : items) {
        const bool known = isMany ? present.contains(item)
                                  : IsSelected(*item.node) && m_selection.contains(item);
        if (!known)
            added += item;
        present.insert(item);
    }
    if (added.isEmpty())
        return;
    const int position = m_selection.size();
    Change(
        [this, position, added] { ApplySelection(qMin(position, m_selection.size()), {}, added); },
        [this, position] {
            const int from = qMin(position, m_selection.size());
            ApplySelection(from, m_selection.mid(from), {});
        });
}

// Time, units, namespaces

void Scene::SetPlayback(const Playback& playback)
{
    if (playback == m_playback)
        return;
    const auto apply = [this](const Playback& value) {
        if (value.time != m_playback.time) {
            m_held.clear();
            watches.NoteEvent(QStringLiteral("timeChanged"));
        }
        m_playback = value;
    };
    Change([apply, playback] { apply(playback); }, [apply, before = m_playback] { apply(before); });
}

void Scene::SetUnits(const SceneUnits& units)
{
    const auto apply = [this](const SceneUnits& value) {
        m_units = value;
        // Commands read lengths, angles and times with units of their own in these.
        m_engine.units = {UnitSize(value.length, ArgumentType::Length),
            UnitSize(value.angle, ArgumentType::Angle), 1 / FramesPerSecond()};
    };
    Change([apply, units] { apply(units); }, [apply, before = m_units] { apply(before); });
}

double Scene::FramesPerSecond() const
{
    static const QHash<QString, double> rates = {
        {QStringLiteral("game"), 15},
        {QStringLiteral("film"), 24},
        {QStringLiteral("pal"), 25},
        {QStringLiteral("ntsc"), 30},
        {QStringLiteral("show"), 48},
        {QStringLiteral("palf"), 50},
        {QStringLiteral("ntscf"), 60},
    };
    if (rates.contains(m_units.time))
        return rates.value(m_units.time);
    bool isNumber = false;
    QString text = m_units.time;
    const double rate = text.remove(QStringLiteral("fps")).toDouble(&isNumber);
    return isNumber && rate > 0 ? rate : 24;
}

void Scene::SetNamespaces(const QStringList& namespaces)
{
    QStringList sorted = namespaces;
    sorted.sort();
    sorted.removeDuplicates();
    if (sorted == m_namespaces)
        return;
    Change([this, sorted] { m_namespaces = sorted; },
        [this, before = m_namespaces] { m_namespaces = before; });
}

void Scene::RequireNamespace(const QString& name)
{
    QStringList wanted;
    for (QString space = name; !space.isEmpty(); space = space.section(QLatin1Char(':'), 0, -2)) {
        if (!m_namespaces.contains(space))
            wanted += space;
    }
    if (!wanted.isEmpty())
        SetNamespaces(m_namespaces + wanted);
}

void Scene::Change(Journal::Action redo, Journal::Action undo)
{
    journal.Do(std::move(redo), std::move(undo));
}

} // namespace host::scene
