#include "commands/scene/KeyTargets.h"

#include <algorithm>
#include <cmath>

namespace host::commands {

using namespace scene;

namespace {

void AppendLeaves(const Plug& plug, QVector<Plug>& plugs)
{
    const QVector<Plug> children = plug.Children();
    for (const Plug& child : children)
        AppendLeaves(child, plugs);
    if (children.isEmpty() && plug.attribute->type->IsNumeric())
        plugs += plug;
}

/// What the flag "hierarchy" adds to the objects: nodes below them.
void AddHierarchy(const Call& call, QVector<Item>& items)
{
    const bool known = call.GetCommand().FindFlag(QStringLiteral("hierarchy"));
    const QString extent = known ? call.Text("hierarchy") : QString();
    if (extent != QLatin1String("below") && extent != QLatin1String("both"))
        return;
    const QVector<Item> tops = items;
    for (const Item& item : tops) {
        QVector<Node*> tree;
        item.node->CollectTree(tree);
        for (Node* node : tree.mid(1))
            items += Item{node->shared_from_this(), {}, false};
    }
}

void AppendNamed(const Item& item, const QStringList& names, bool mayLack, FoundPlugs& found)
{
    for (const QString& name : names) {
        const QVector<Plug> plugs
            = FindPlugs(Scene::Current().DisplayName(*item.node) + QLatin1Char('.') + name);
        if (plugs.isEmpty() && !mayLack)
            found.error = NoMatch(Scene::Current().DisplayName(item) + QLatin1Char('.') + name);
        for (const Plug& plug : plugs)
            AppendLeaves(plug, found.plugs);
    }
}

bool IsCurve(const Node* node)
{
    return node && node->GetType().Is("animCurve");
}

Node* SourceNode(const Plug& plug)
{
    const ConnectionPointer connection = plug.Incoming();
    return connection ? connection->source : nullptr;
}

bool IsIn(const QVector<QPair<double, double>>& ranges, double number)
{
    return ranges.isEmpty() || std::any_of(ranges.begin(), ranges.end(), [&](const auto& range) {
        return number >= range.first && number <= range.second;
    });
}

} // namespace

FoundPlugs KeyablePlugs(const Call& call)
{
    FoundPlugs found;
    FoundItems targets = Targets(call);
    found.error = targets.error;
    const QVector<Item> named = targets.items;
    AddHierarchy(call, targets.items);
    const QStringList names = call.Texts("attribute");
    for (const Item& item : qAsConst(targets.items)) {
        if (item.IsPlug()) {
            AppendLeaves(Plug::FromKey(*item.node, item.part), found.plugs);
            continue;
        }
        // What is only there because of its parent may do without the attribute.
        AppendNamed(item, names, !named.contains(item), found);
        if (!names.isEmpty())
            continue;
        for (const Attribute* attribute : item.node->AllAttributes()) {
            const Plug plug = Plug::Find(*item.node, attribute->longName);
            if (plug.IsKeyable() && attribute->type->IsNumeric() && !plug.IsWholeMulti())
                found.plugs += plug;
        }
    }
    return found;
}

Node* CurveOf(const Plug& plug)
{
    Node* source = SourceNode(plug);
    return IsCurve(source) ? source : nullptr;
}

QVector<Node*> CurvesInto(const Plug& plug)
{
    Node* source = SourceNode(plug);
    if (IsCurve(source))
        return {source};
    QVector<Node*> curves;
    if (!source || !source->GetType().Is("blendWeighted"))
        return curves;
    for (const ConnectionPointer& connection : source->GetIncoming()) {
        if (IsCurve(connection->source))
            curves += connection->source;
    }
    return curves;
}

Node& CreateCurve(const Plug& plug, const char* kind)
{
    const AttributeType& measure = *plug.attribute->type;
    const char* letter = measure.IsNamed("doubleAngle") ? "A"
        : measure.IsNamed("doubleLinear")               ? "L"
        : measure.IsNamed("time")                       ? "T"
                                                        : "U";
    QString name = plug.node->GetName() + QLatin1Char('_') + plug.key;
    name.replace(QLatin1Char('.'), QLatin1Char('_'));
    Scene& scene = Scene::Current();
    return scene.Create(*NodeType::Find(QLatin1String(kind) + QLatin1String(letter)),
        scene.Names().UnusedName(NameIndex::LegalName(name)));
}

Node& CurveFor(const Plug& plug)
{
    if (Node* curve = CurveOf(plug))
        return *curve;
    Node& curve = CreateCurve(plug, "animCurveT");
    Scene::Current().Connect(Plug::Find(curve, QStringLiteral("output")), plug);
    return curve;
}

QVector<Node*> CurvesOf(const Call& call, std::optional<Error>& error)
{
    QVector<Node*> curves;
    const FoundItems targets = Targets(call);
    error = targets.error;
    for (const Item& item : targets.items) {
        if (IsCurve(item.node.get()))
            curves += item.node.get();
    }
    if (!curves.isEmpty() || error)
        return curves;
    const FoundPlugs found = KeyablePlugs(call);
    error = found.error;
    QSet<const Node*> known;
    for (const Plug& plug : found.plugs) {
        for (Node* curve : CurvesInto(plug)) {
            if (!known.contains(curve))
                curves += curve;
            known.insert(curve);
        }
    }
    return curves;
}

KeyFilter::KeyFilter(const Call& call)
{
    Read(call, "time", m_times);
    Read(call, "float", m_times);
    Read(call, "index", m_indices);
}

void KeyFilter::Read(const Call& call, const char* flag, Ranges& ranges)
{
    if (!call.GetCommand().FindFlag(QLatin1String(flag)))
        return;
    for (const QString& text : call.Texts(flag)) {
        const int colon = text.indexOf(QLatin1Char(':'));
        const QString first = text.left(colon);
        const QString last = colon < 0 ? text : text.mid(colon + 1);
        ranges.append(qMakePair(first.isEmpty() ? -HUGE_VAL : first.toDouble(),
            last.isEmpty() ? HUGE_VAL : last.toDouble()));
    }
}

bool KeyFilter::Passes(int index, double time) const
{
    return IsIn(m_times, time) && IsIn(m_indices, index);
}

int ChangeKeys(const Call& call, const QVector<Node*>& curves, const KeyVisitor& change)
{
    const KeyFilter filter(call);
    int count = 0;
    for (Node* node : curves) {
        const AnimationCurve before = AnimationCurve::Of(Scene::Current(), *node);
        AnimationCurve after = before;
        QVector<CurveKey> changed;
        for (int i = before.Count() - 1; i >= 0; --i) {
            if (!filter.Passes(i, before.Time(i)))
                continue;
            changed += before.Key(i);
            change(before, i, changed.last());
            after.Remove(i);
        }
        for (auto key = changed.rbegin(); key != changed.rend(); ++key)
            after.Put(*key);
        count += changed.size();
        if (!changed.isEmpty())
            after.Store(Scene::Current(), *node);
    }
    return count;
}

} // namespace host::commands
