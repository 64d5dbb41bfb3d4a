#include "commands/Session.h"
#include "commands/Tables.h"
#include "engine/Engine.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace host::commands {

namespace {

constexpr double PI = 3.14159265358979323846;

double Radians(double degrees)
{
    return degrees * PI / 180;
}

double Degrees(double radians)
{
    return radians * 180 / PI;
}

template <double (*Function)(double)>
Outcome Unary(FunctionCall& call)
{
    return Function(call.Float(0));
}

template <double (*Function)(double, double)>
Outcome Binary(FunctionCall& call)
{
    return Function(call.Float(0), call.Float(1));
}

template <double (*Function)(double)>
Outcome OfDegrees(FunctionCall& call)
{
    return Function(Radians(call.Float(0)));
}

template <double (*Function)(double)>
Outcome InDegrees(FunctionCall& call)
{
    return Degrees(Function(call.Float(0)));
}

Outcome Atan2Degrees(FunctionCall& call)
{
    return Degrees(std::atan2(call.Float(0), call.Float(1)));
}

Outcome Absolute(FunctionCall& call)
{
    // The smallest int has no positive counterpart.
    if (call.At(0).IsInt())
        return static_cast<int>(
            std::min<qint64>(std::abs(qint64(call.Int(0))), std::numeric_limits<int>::max()));
    return std::abs(call.Float(0));
}

Outcome Sign(FunctionCall& call)
{
    const double value = call.Float(0);
    return value > 0 ? 1 : value < 0 ? -1 : 0;
}

bool AreInts(const FunctionCall& call)
{
    for (int i = 0; i < call.Count(); ++i) {
        if (!call.At(i).IsInt())
            return false;
    }
    return true;
}

/// An int when all of the arguments are.
Outcome Numeric(const FunctionCall& call, double value)
{
    return AreInts(call) ? Outcome(static_cast<int>(value)) : Outcome(value);
}

Outcome Minimum(FunctionCall& call)
{
    return Numeric(call, std::min(call.Float(0), call.Float(1)));
}

Outcome Maximum(FunctionCall& call)
{
    return Numeric(call, std::max(call.Float(0), call.Float(1)));
}

double Clamped(double low, double high, double value)
{
    return std::max(low, std::min(high, value));
}

Outcome Clamp(FunctionCall& call)
{
    return Numeric(call, Clamped(call.Float(0), call.Float(1), call.Float(2)));
}

Outcome ConstrainValue(FunctionCall& call)
{
    return Numeric(call, Clamped(call.Float(1), call.Float(2), call.Float(0)));
}

/// How far `value` is on the way from `start` to `end`, 0 to 1.
double Progress(const FunctionCall& call)
{
    const double start = call.Float(0);
    const double end = call.Float(1);
    const double value = call.Float(2);
    if (start == end)
        return value < start ? 0 : 1;
    return Clamped(0, 1, (value - start) / (end - start));
}

Outcome LinearStep(FunctionCall& call)
{
    return Progress(call);
}

Outcome SmoothStep(FunctionCall& call)
{
    const double t = Progress(call);
    return t * t * (3 - 2 * t);
}

Outcome Hermite(FunctionCall& call)
{
    const double t = call.Float(4);
    const double t2 = t * t;
    const double t3 = t2 * t;
    const double weights[] = {2 * t3 - 3 * t2 + 1, -2 * t3 + 3 * t2, t3 - 2 * t2 + t, t3 - t2};
    Vector sum;
    bool isVector = false;
    for (int i = 0; i < 4; ++i) {
        isVector = isVector || call.At(i).GetKind() == Value::Kind::Vector;
        const Vector part = call.At(i).ToVector();
        sum.x += weights[i] * part.x;
        sum.y += weights[i] * part.y;
        sum.z += weights[i] * part.z;
    }
    return isVector ? Outcome(sum) : Outcome(sum.x);
}

Outcome Bessel(FunctionCall& call)
{
    const int order = call.Int(0);
    if (order < 0)
        return Error{QStringLiteral("bessel: the order must not be negative.")};
    return ::jn(order, call.Float(1));
}

Outcome EqualWithin(FunctionCall& call)
{
    const double tolerance = call.Count() > 2 ? call.Float(2) : 1e-5;
    return std::abs(call.Float(0) - call.Float(1)) <= tolerance ? 1 : 0;
}

bool IsVector(const Value& value)
{
    return value.GetKind() == Value::Kind::Vector;
}

Outcome Rand(FunctionCall& call)
{
    Random& random = Session::Current().random;
    const Value low = call.Count() > 1 ? call.At(0) : Value(0);
    const Value& high = call.At(call.Count() - 1);
    if (!IsVector(low) && !IsVector(high))
        return random.Between(low.ToFloat(), high.ToFloat());
    const Vector a = low.ToVector();
    const Vector b = high.ToVector();
    // The order in which a braced list is evaluated is fixed, and so a seed repeats.
    return Vector{random.Between(a.x, b.x), random.Between(a.y, b.y), random.Between(a.z, b.z)};
}

Outcome Gauss(FunctionCall& call)
{
    Random& random = Session::Current().random;
    const Value mean = call.Count() > 1 ? call.At(1) : Value(0);
    if (!IsVector(call.At(0)) && !IsVector(mean))
        return random.Gauss(call.Float(0), mean.ToFloat());
    const Vector d = call.At(0).ToVector();
    const Vector m = mean.ToVector();
    return Vector{random.Gauss(d.x, m.x), random.Gauss(d.y, m.y), random.Gauss(d.z, m.z)};
}

Outcome SphereRand(FunctionCall& call)
{
    return Session::Current().random.InSphere(call.At(0).ToVector());
}

Outcome Seed(FunctionCall& call)
{
    Session::Current().random.Seed(call.Int(0));
    return call.Int(0);
}

/// randstate() tells the generator's state, randstate(state) goes back to it.
Outcome RandomState(FunctionCall& call)
{
    Random& random = Session::Current().random;
    if (call.Count() > 0 && !random.SetState(call.Text(0)))
        return Error{QStringLiteral("randstate needs a state that it has told before.")};
    return random.State();
}

Outcome LargestInt(FunctionCall&)
{
    return std::numeric_limits<int>::max();
}

Outcome SmallestInt(FunctionCall&)
{
    return std::numeric_limits<int>::min();
}

Outcome LargestFloat(FunctionCall&)
{
    return std::numeric_limits<double>::max();
}

/// The most negative number, as with the ints.
Outcome SmallestFloat(FunctionCall&)
{
    return std::numeric_limits<double>::lowest();
}

/// noise(x), noise(x, y) and noise(vector).
Vector NoisePlace(const FunctionCall& call)
{
    if (IsVector(call.At(0)))
        return call.At(0).ToVector();
    return {call.Float(0), call.Count() > 1 ? call.Float(1) : 0, 0};
}

Outcome NoiseAt(FunctionCall& call)
{
    return Noise(NoisePlace(call));
}

Outcome VectorNoiseAt(FunctionCall& call)
{
    // Three distant places of one field do not resemble each other.
    constexpr double APART = 37.31;
    const Vector p = NoisePlace(call);
    return Vector{Noise(p), Noise({p.y + APART, p.z - APART, p.x}),
        Noise({p.z - 2 * APART, p.x, p.y + 2 * APART})};
}

// clang-format off
const FunctionRow FUNCTIONS[] = {
    {"any abs(number)",                        Absolute},
    {"float ceil(float)",                      Unary<std::ceil>},
    {"float floor(float)",                     Unary<std::floor>},
    {"float trunc(float)",                     Unary<std::trunc>},
    {"int sign(float)",                        Sign},
    {"any min(number, number)",                Minimum},
    {"any max(number, number)",                Maximum},
    {"any clamp(number, number, number)",      Clamp},
    {"any constrainValue(number, number, number)", ConstrainValue},
    {"float fmod(float, float)",               Binary<std::fmod>},
    {"float pow(float, float)",                Binary<std::pow>},
    {"float hypot(float, float)",              Binary<std::hypot>},
    {"float sqrt(float)",                      Unary<std::sqrt>},
    {"float exp(float)",                       Unary<std::exp>},
    {"float log(float)",                       Unary<std::log>},
    {"float log10(float)",                     Unary<std::log10>},
    {"float gamma(float)",                     Unary<std::tgamma>},
    {"float erf(float)",                       Unary<std::erf>},
    {"float bessel(int, float)",               Bessel},
    {"float sin(float)",                       Unary<std::sin>},
    {"float cos(float)",                       Unary<std::cos>},
    {"float tan(float)",                       Unary<std::tan>},
    {"float asin(float)",                      Unary<std::asin>},
    {"float acos(float)",                      Unary<std::acos>},
    {"float atan(float)",                      Unary<std::atan>},
    {"float atan2(float, float)",              Binary<std::atan2>},
    {"float sind(float)",                      OfDegrees<std::sin>},
    {"float cosd(float)",                      OfDegrees<std::cos>},
    {"float tand(float)",                      OfDegrees<std::tan>},
    {"float asind(float)",                     InDegrees<std::asin>},
    {"float acosd(float)",                     InDegrees<std::acos>},
    {"float atand(float)",                     InDegrees<std::atan>},
    {"float atan2d(float, float)",             Atan2Degrees},
    {"float deg_to_rad(float)",                Unary<Radians>},
    {"float rad_to_deg(float)",                Unary<Degrees>},
    {"float linstep(float, float, float)",     LinearStep},
    {"float smoothstep(float, float, float)",  SmoothStep},
    {"any hermite(any, any, any, any, float)", Hermite},
    {"int equivalent(float, float)",           EqualWithin},
    {"int equivalentTol(float, float, float)", EqualWithin},
    {"any rand(any, [any])",                   Rand},
    {"any gauss(any, [any])",                  Gauss},
    {"vector sphrand(any)",                    SphereRand},
    {"int seed(int)",                          Seed},
    {"string randstate([string])",             RandomState},
    {"int maxint()",                           LargestInt},
    {"int minint()",                           SmallestInt},
    {"float maxfloat()",                       LargestFloat},
    {"float minfloat()",                       SmallestFloat},
    {"float noise(any, [float])",              NoiseAt},
    {"vector dnoise(any)",                     VectorNoiseAt},
};
// clang-format on

} // namespace

void RegisterMathematics(CommandRegistry& registry)
{
    registry.Register(FUNCTIONS);
}

} // namespace host::commands
