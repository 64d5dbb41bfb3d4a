// Keys on attributes, as curves of straight lines.

#include "commands/scene/SceneCommands.h"
#include "engine/Engine.h"
#include "scene/Evaluation.h"

#include <algorithm>
#include <cmath>

namespace host::commands {

using namespace scene;

namespace {

using Keys = QMap<double, double>;

Keys KeysOf(const Node& curve)
{
    const FloatList list
        = Scene::Current()
              .GetStored(Plug::Find(const_cast<Node&>(curve), QStringLiteral("keyTimeValue")))
              .Get<FloatList>();
    Keys keys;
    for (int i = 0; i + 1 < list.size(); i += 2)
        keys.insert(list[i], list[i + 1]);
    return keys;
}

void SetKeys(Node& curve, const Keys& keys)
{
    FloatList list;
    for (auto key = keys.begin(); key != keys.end(); ++key)
        list += FloatList{key.key(), key.value()};
    Scene::Current().SetValue(Plug::Find(curve, QStringLiteral("keyTimeValue")), list);
}

/// The curve that drives an attribute; null when none does.
Node* CurveOf(const Plug& plug)
{
    const ConnectionPointer connection = plug.Incoming();
    Node* source = connection ? connection->source : nullptr;
    return source && source->GetType().Is("animCurve") ? source : nullptr;
}

const char* CurveType(const Plug& plug)
{
    if (plug.attribute->type->IsNamed("doubleAngle"))
        return "animCurveTA";
    return plug.attribute->type->IsNamed("doubleLinear") ? "animCurveTL" : "animCurveTU";
}

Node& CurveFor(const Plug& plug)
{
    if (Node* curve = CurveOf(plug))
        return *curve;
    Scene& scene = Scene::Current();
    QString name = plug.node->GetName() + QLatin1Char('_') + plug.key;
    name.replace(QLatin1Char('.'), QLatin1Char('_'));
    Node& curve = scene.Create(*NodeType::Find(QLatin1String(CurveType(plug))),
        scene.Names().UnusedName(NameIndex::LegalName(name)));
    scene.Connect(Plug::Find(curve, QStringLiteral("output")), plug);
    return curve;
}

/// What can be keyed of what is named: the attribute, or the keyable ones of the node.
struct FoundPlugs
{
    QVector<Plug> plugs;
    std::optional<Error> error;
};

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

FoundPlugs KeyablePlugs(const Call& call)
{
    FoundPlugs found;
    FoundItems targets = Targets(call);
    found.error = targets.error;
    const QVector<Item> named = targets.items;
    AddHierarchy(call, targets.items);
    for (const Item& item : qAsConst(targets.items)) {
        if (item.IsPlug()) {
            AppendLeaves(Plug::FromKey(*item.node, item.part), found.plugs);
            continue;
        }
        const QStringList names = call.Texts("attribute");
        for (const QString& name : names) {
            const QVector<Plug> plugs
                = FindPlugs(Scene::Current().DisplayName(*item.node) + QLatin1Char('.') + name);
            // What is only there because of its parent may do without the attribute.
            if (plugs.isEmpty() && named.contains(item))
                found.error = NoMatch(Scene::Current().DisplayName(item) + QLatin1Char('.') + name);
            for (const Plug& plug : plugs)
                AppendLeaves(plug, found.plugs);
        }
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

QVector<double> TimesOf(const Call& call)
{
    QVector<double> times;
    for (int use = 0; use < call.UseCount("time"); ++use)
        times += call.Float("time", 0, use);
    if (times.isEmpty())
        times += Scene::Current().GetPlayback().time;
    return times;
}

Outcome SetKeyframe(Call& call)
{
    const FoundPlugs found = KeyablePlugs(call);
    if (found.error)
        return *found.error;
    int count = 0;
    for (const Plug& plug : found.plugs) {
        const bool driven = plug.Incoming() && !CurveOf(plug);
        if (driven || plug.IsLocked() || !plug.attribute->isWritable)
            continue;
        const double value
            = call.Has("value") ? call.Float("value") : Scene::Current().GetValue(plug).ToFloat();
        Node& curve = CurveFor(plug);
        Keys keys = KeysOf(curve);
        for (const double time : TimesOf(call)) {
            keys.insert(time, value);
            ++count;
        }
        SetKeys(curve, keys);
    }
    return count;
}

/// The pieces of time that the call is about: "3", "1:10", ":5", "5:", ":"; all without any.
class TimeFilter
{
public:
    explicit TimeFilter(const Call& call)
    {
        for (const QString& text : call.Texts("time")) {
            const int colon = text.indexOf(QLatin1Char(':'));
            const QString first = text.left(colon);
            const QString last = colon < 0 ? text : text.mid(colon + 1);
            m_ranges.append(qMakePair(first.isEmpty() ? -HUGE_VAL : first.toDouble(),
                last.isEmpty() ? HUGE_VAL : last.toDouble()));
        }
    }

    bool Passes(double time) const
    {
        return m_ranges.isEmpty()
            || std::any_of(m_ranges.begin(), m_ranges.end(),
                [&](const auto& range) { return time >= range.first && time <= range.second; });
    }

private:
    QVector<QPair<double, double>> m_ranges;
};

Outcome CutKey(Call& call)
{
    const FoundPlugs found = KeyablePlugs(call);
    if (found.error)
        return *found.error;
    const TimeFilter times(call);
    int count = 0;
    for (const Plug& plug : found.plugs) {
        Node* curve = CurveOf(plug);
        if (!curve)
            continue;
        Keys left;
        const Keys keys = KeysOf(*curve);
        for (auto key = keys.begin(); key != keys.end(); ++key) {
            if (!times.Passes(key.key()))
                left.insert(key.key(), key.value());
        }
        count += keys.size() - left.size();
        if (left.isEmpty())
            Scene::Current().Delete({curve});
        else
            SetKeys(*curve, left);
    }
    return count;
}

QVector<Node*> CurvesOf(const Call& call, std::optional<Error>& error)
{
    QVector<Node*> curves;
    const FoundItems targets = Targets(call);
    error = targets.error;
    for (const Item& item : targets.items) {
        if (item.node->GetType().Is("animCurve"))
            curves += item.node.get();
    }
    if (!curves.isEmpty() || error)
        return curves;
    const FoundPlugs found = KeyablePlugs(call);
    error = found.error;
    for (const Plug& plug : found.plugs) {
        Node* curve = CurveOf(plug);
        if (curve && !curves.contains(curve))
            curves += curve;
    }
    return curves;
}

Outcome QueryKeys(const Call& call, const QVector<Node*>& curves)
{
    const TimeFilter times(call);
    FloatList answers;
    int count = 0;
    for (const Node* curve : curves) {
        const Keys keys = KeysOf(*curve);
        if (call.Has("eval")) {
            Plug output = Plug::Find(const_cast<Node&>(*curve), QStringLiteral("output"));
            FloatList list;
            for (auto key = keys.begin(); key != keys.end(); ++key)
                list += FloatList{key.key(), key.value()};
            const bool asked = call.Has("time");
            answers += CurveValue(
                list, asked ? call.Text("time").toDouble() : Scene::Current().GetPlayback().time);
            continue;
        }
        for (auto key = keys.begin(); key != keys.end(); ++key) {
            if (!times.Passes(key.key()))
                continue;
            ++count;
            if (call.Has("timeChange"))
                answers += key.key();
            if (call.Has("valueChange"))
                answers += key.value();
        }
    }
    if (call.Has("name"))
        return DisplayNames(curves);
    const bool lists = call.Has("timeChange") || call.Has("valueChange") || call.Has("eval");
    return lists ? Outcome(answers) : Outcome(count);
}

Outcome Keyframe(Call& call)
{
    std::optional<Error> error;
    const QVector<Node*> curves = CurvesOf(call, error);
    if (error)
        return *error;
    if (call.IsQuery())
        return QueryKeys(call, curves);
    const TimeFilter times(call);
    const bool relative = call.Has("relative");
    int count = 0;
    for (Node* curve : curves) {
        Keys changed;
        const Keys keys = KeysOf(*curve);
        for (auto key = keys.begin(); key != keys.end(); ++key) {
            double time = key.key();
            double value = key.value();
            if (times.Passes(time)) {
                ++count;
                if (call.Has("timeChange"))
                    time = (relative ? time : 0) + call.Float("timeChange");
                if (call.Has("valueChange"))
                    value = (relative ? value : 0) + call.Float("valueChange");
            }
            changed.insert(time, value);
        }
        SetKeys(*curve, changed);
    }
    return count;
}

Outcome FindKeyframe(Call& call)
{
    std::optional<Error> error;
    const QVector<Node*> curves = CurvesOf(call, error);
    if (error)
        return *error;
    Keys all;
    for (const Node* curve : curves) {
        const Keys keys = KeysOf(*curve);
        for (auto key = keys.begin(); key != keys.end(); ++key)
            all.insert(key.key(), key.value());
    }
    const double now = Scene::Current().GetPlayback().time;
    if (all.isEmpty())
        return now;
    const QString which = call.Has("which") ? call.Text("which") : QStringLiteral("next");
    if (which == QLatin1String("first"))
        return all.firstKey();
    if (which == QLatin1String("last"))
        return all.lastKey();
    if (which == QLatin1String("previous")) {
        auto key = all.lowerBound(now);
        return key == all.begin() ? all.lastKey() : (--key).key();
    }
    const auto key = all.upperBound(now);
    return key == all.end() ? all.firstKey() : key.key();
}

const CommandRow COMMANDS[] = {
    {"setKeyframe", "int", "", "[String...]",
        "attribute/at str cm; breakdown/bd B c; controlPoints/cp B c; hierarchy/hi str c;"
        "inTangentType/itt str c; insert/i - c; outTangentType/ott str c;"
        "shape/s B c; time/t time cm; value/v float c",
        SetKeyframe},
    {"cutKey", "int", "", "[String...]",
        "attribute/at str cm; clear/cl - c; hierarchy/hi str c; option/o str c; shape/s B c;"
        "time/t str cm",
        CutKey},
    {"keyframe", "any", "QE", "[String...]",
        "absolute/a - ce; attribute/at str cqemv; controlPoints/cp B cqev; eval/ev - q;"
        "keyframeCount/kc - q; name/n - q; option/o str ce; relative/r - ce; time/t str cqemv;"
        "timeChange/tc time cqe; valueChange/vc float cqe",
        Keyframe},
    {"findKeyframe", "float", "", "[String...]",
        "attribute/at str cm; hierarchy/hi str c; which/w str c", FindKeyframe},
};

} // namespace

void RegisterSceneKeys(CommandRegistry& registry)
{
    RegisterSceneCommands(registry, COMMANDS);
}

} // namespace host::commands
