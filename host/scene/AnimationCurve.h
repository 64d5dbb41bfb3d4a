#pragma once

#include "scene/Scene.h"

namespace host::scene {

/// How a curve goes through a key. The numbers are those that scripts may meet.
enum class Tangent {
    Fixed = 1,
    Linear = 2,
    Flat = 3,
    Step = 5,
    Spline = 9,
    Clamped = 10,
    Plateau = 16,
    StepNext = 17,
    Auto = 18,
};

/// "auto", "linear", ... Nothing for words that mean none of them.
std::optional<Tangent> TangentNamed(const QString& name);
QString TangentName(Tangent tangent);

struct CurveKey
{
    double time = 0; ///< or whatever drives the curve
    double value = 0;
    Tangent in = Tangent::Linear;
    Tangent out = Tangent::Linear;
    double inSlope = 0; ///< of fixed tangents: value per unit of time
    double outSlope = 0;
    bool tangentsLocked = true; ///< the two turn together
};

/// What a curve node says beyond its first and last key.
enum class Infinity { Constant = 0, Linear = 1, Cycle = 3, CycleRelative = 4, Oscillate = 5 };

/// The keys of a curve node, sorted by time. A plain value: it is read from a node and stored in
/// one. Keys without any note of tangents are joined by straight lines.
class AnimationCurve
{
public:
    static AnimationCurve Of(const Scene& scene, const Node& node);
    void Store(Scene& scene, Node& node) const;

    int Count() const { return m_keys.size() / 2; }
    bool IsEmpty() const { return m_keys.isEmpty(); }
    double Time(int index) const { return m_keys[index * 2]; }
    CurveKey Key(int index) const;
    /// Index of the first key that is not before the time; Count() when there is none.
    int FirstFrom(double time) const;
    /// Index of the key at that time; -1 when there is none.
    int IndexAt(double time) const;
    /// Takes the place of a key at the same time.
    void Put(const CurveKey& key);
    void Remove(int index);

    /// Value per unit of time before and behind the key.
    double InSlope(int index) const { return Slope(index, true); }
    double OutSlope(int index) const { return Slope(index, false); }
    double ValueAt(double time) const;

    Infinity before = Infinity::Constant;
    Infinity after = Infinity::Constant;

private:
    void NoteTangents();
    double Value(int index) const { return m_keys[index * 2 + 1]; }
    double Rise(int from, int to) const;
    double Slope(int index, bool in) const;
    double Beyond(double time, Infinity infinity) const;
    double Inside(double time) const;

    FloatList m_keys; ///< time, value of each key
    FloatList m_tangents; ///< five numbers of each key; empty for straight lines
};

} // namespace host::scene
