#include "scene/AnimationCurve.h"

#include <algorithm>
#include <cmath>

namespace host::scene {

namespace {

/// Keys that are closer to each other are the same.
constexpr double SAME_TIME = 1e-6;
/// Numbers that are kept of the tangents of a key: types, slopes, whether they are locked.
constexpr int TANGENT_NUMBERS = 5;

constexpr struct
{
    const char* name;
    Tangent tangent;
} TANGENTS[] = {
    {"fixed", Tangent::Fixed},
    {"linear", Tangent::Linear},
    {"flat", Tangent::Flat},
    {"step", Tangent::Step},
    {"spline", Tangent::Spline},
    {"clamped", Tangent::Clamped},
    {"plateau", Tangent::Plateau},
    {"stepnext", Tangent::StepNext},
    {"auto", Tangent::Auto},
};

Plug PlugOf(const Node& node, const char* name)
{
    return Plug::Find(const_cast<Node&>(node), QLatin1String(name));
}

Infinity InfinityOf(const Scene& scene, const Node& node, const char* name)
{
    return static_cast<Infinity>(scene.GetStored(PlugOf(node, name)).ToInt());
}

FloatList ListOf(const Scene& scene, const Node& node, const char* name)
{
    const host::Value value = scene.GetStored(PlugOf(node, name));
    return value.GetKind() == host::Value::Kind::FloatArray ? value.Get<FloatList>() : FloatList();
}

/// A smooth way from one value to another, `share` of the span behind the first.
double Hermite(double from, double to, double slope0, double slope1, double span, double share)
{
    const double squared = share * share;
    const double cubed = squared * share;
    return from * (2 * cubed - 3 * squared + 1) + to * (3 * squared - 2 * cubed)
        + slope0 * span * (cubed - 2 * squared + share) + slope1 * span * (cubed - squared);
}

bool IsStep(Tangent tangent)
{
    return tangent == Tangent::Step || tangent == Tangent::StepNext;
}

} // namespace

std::optional<Tangent> TangentNamed(const QString& name)
{
    for (const auto& row : TANGENTS) {
        if (name == QLatin1String(row.name))
            return row.tangent;
    }
    return std::nullopt;
}

QString TangentName(Tangent tangent)
{
    for (const auto& row : TANGENTS) {
        if (tangent == row.tangent)
            return QLatin1String(row.name);
    }
    return QStringLiteral("linear");
}

AnimationCurve AnimationCurve::Of(const Scene& scene, const Node& node)
{
    AnimationCurve curve;
    curve.m_keys = ListOf(scene, node, "keyTimeValue");
    curve.m_tangents = ListOf(scene, node, "keyTangents");
    // Whoever sets the attributes by hand may leave the lists half done.
    if (curve.m_keys.size() % 2 != 0)
        curve.m_keys.removeLast();
    if (curve.m_tangents.size() != curve.Count() * TANGENT_NUMBERS)
        curve.m_tangents.clear();
    curve.before = InfinityOf(scene, node, "preInfinity");
    curve.after = InfinityOf(scene, node, "postInfinity");
    return curve;
}

void AnimationCurve::Store(Scene& scene, Node& node) const
{
    scene.SetValue(PlugOf(node, "keyTangents"), m_tangents);
    scene.SetValue(PlugOf(node, "keyTimeValue"), m_keys);
}

CurveKey AnimationCurve::Key(int index) const
{
    if (m_tangents.isEmpty())
        return {Time(index), Value(index)};
    const double* tangents = m_tangents.constData() + index * TANGENT_NUMBERS;
    return {Time(index), Value(index), static_cast<Tangent>(static_cast<int>(tangents[0])),
        static_cast<Tangent>(static_cast<int>(tangents[1])), tangents[2], tangents[3],
        tangents[4] != 0};
}

int AnimationCurve::FirstFrom(double time) const
{
    int low = 0;
    int high = Count();
    while (low < high) {
        const int middle = (low + high) / 2;
        if (Time(middle) < time - SAME_TIME)
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

int AnimationCurve::IndexAt(double time) const
{
    const int index = FirstFrom(time);
    return index < Count() && Time(index) <= time + SAME_TIME ? index : -1;
}

void AnimationCurve::NoteTangents()
{
    const int linear = static_cast<int>(Tangent::Linear);
    for (int i = m_tangents.size() / TANGENT_NUMBERS; i < Count(); ++i)
        m_tangents += FloatList{double(linear), double(linear), 0, 0, 1};
}

void AnimationCurve::Put(const CurveKey& key)
{
    NoteTangents();
    const int present = IndexAt(key.time);
    if (present >= 0)
        Remove(present);
    const int index = FirstFrom(key.time);
    m_keys.insert(index * 2, 2, key.time);
    m_keys[index * 2 + 1] = key.value;
    const int place = index * TANGENT_NUMBERS;
    m_tangents.insert(place, TANGENT_NUMBERS, static_cast<int>(key.in));
    m_tangents[place + 1] = static_cast<int>(key.out);
    m_tangents[place + 2] = key.inSlope;
    m_tangents[place + 3] = key.outSlope;
    m_tangents[place + 4] = key.tangentsLocked ? 1 : 0;
}

void AnimationCurve::Remove(int index)
{
    NoteTangents();
    m_keys.remove(index * 2, 2);
    m_tangents.remove(index * TANGENT_NUMBERS, TANGENT_NUMBERS);
}

double AnimationCurve::Rise(int from, int to) const
{
    const double span = Time(to) - Time(from);
    return span == 0 ? 0 : (Value(to) - Value(from)) / span;
}

double AnimationCurve::Slope(int index, bool in) const
{
    const CurveKey key = Key(index);
    const Tangent tangent = in ? key.in : key.out;
    const bool isFirst = index == 0;
    const bool isLast = index == Count() - 1;
    if (tangent == Tangent::Fixed)
        return in ? key.inSlope : key.outSlope;
    if (tangent == Tangent::Flat || IsStep(tangent) || (isFirst && isLast))
        return 0;
    const double left = Rise(qMax(0, index - 1), isFirst ? 1 : index);
    const double right = Rise(isLast ? index - 1 : index, isLast ? index : index + 1);
    if (tangent == Tangent::Linear)
        return in ? left : right;
    const bool never = tangent == Tangent::Auto || tangent == Tangent::Plateau;
    if (isFirst || isLast)
        return never ? 0 : left;
    const double through = Rise(index - 1, index + 1);
    if (tangent == Tangent::Clamped)
        return left == 0 || right == 0 ? 0 : through;
    if (!never)
        return through;
    // The curve is not to go beyond its keys: level where it turns, else never too steep.
    if (left * right <= 0)
        return 0;
    const double steepest = 3 * std::min(std::abs(left), std::abs(right));
    return std::clamp(through, -steepest, steepest);
}

double AnimationCurve::Inside(double time) const
{
    // At a step the key's own value holds from its very time on.
    int next = FirstFrom(time);
    if (next < Count() && Time(next) <= time)
        return Value(next);
    next = std::clamp(next, 1, Count() - 1);
    const CurveKey from = Key(next - 1);
    const CurveKey to = Key(next);
    if (from.out == Tangent::Step)
        return from.value;
    if (from.out == Tangent::StepNext)
        return to.value;
    const double span = to.time - from.time;
    return Hermite(
        from.value, to.value, OutSlope(next - 1), InSlope(next), span, (time - from.time) / span);
}

double AnimationCurve::Beyond(double time, Infinity infinity) const
{
    const double first = Time(0);
    const double last = Time(Count() - 1);
    const int edge = time < first ? 0 : Count() - 1;
    const double length = last - first;
    if (infinity == Infinity::Linear) {
        const double slope = edge == 0 ? InSlope(0) : OutSlope(edge);
        return Value(edge) + slope * (time - Time(edge));
    }
    if (infinity == Infinity::Constant || length <= 0)
        return Value(edge);
    const double turns = std::floor((time - first) / length);
    const double place = time - turns * length;
    const bool isBack = infinity == Infinity::Oscillate && std::fmod(std::abs(turns), 2) == 1;
    const double value = Inside(isBack ? first + last - place : place);
    return infinity == Infinity::CycleRelative ? value + turns * (Value(Count() - 1) - Value(0))
                                               : value;
}

double AnimationCurve::ValueAt(double time) const
{
    if (IsEmpty())
        return 0;
    if (time < Time(0))
        return Beyond(time, before);
    if (time > Time(Count() - 1))
        return Beyond(time, after);
    return Count() == 1 ? Value(0) : Inside(time);
}

} // namespace host::scene
