#include "commands/Tables.h"
#include "engine/CommandRegistry.h"

#include <algorithm>
#include <cmath>

namespace host::commands {

namespace {

double Dot(const Vector& a, const Vector& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

Vector Cross(const Vector& a, const Vector& b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

Vector Scaled(const Vector& vector, double factor)
{
    return {vector.x * factor, vector.y * factor, vector.z * factor};
}

/// A vector without length stays as it is.
Vector Unit(const Vector& vector)
{
    const double length = vector.Length();
    return length > 0 ? Scaled(vector, 1 / length) : vector;
}

Outcome Magnitude(FunctionCall& call)
{
    return call.At(0).ToVector().Length();
}

Outcome UnitOf(FunctionCall& call)
{
    return Unit(call.At(0).ToVector());
}

Outcome DotOf(FunctionCall& call)
{
    return Dot(call.At(0).ToVector(), call.At(1).ToVector());
}

Outcome CrossOf(FunctionCall& call)
{
    return Cross(call.At(0).ToVector(), call.At(1).ToVector());
}

Outcome Angle(FunctionCall& call)
{
    const Vector a = call.At(0).ToVector();
    const Vector b = call.At(1).ToVector();
    // More exact than the arc cosine where the two are nearly parallel.
    return std::atan2(Cross(a, b).Length(), Dot(a, b));
}

Outcome Rotate(FunctionCall& call)
{
    const Vector vector = call.At(0).ToVector();
    const Vector axis = Unit(call.At(1).ToVector());
    const double angle = call.Float(2);
    const Vector parts[]
        = {Scaled(vector, std::cos(angle)), Scaled(Cross(axis, vector), std::sin(angle)),
            Scaled(axis, Dot(axis, vector) * (1 - std::cos(angle)))};
    Vector sum;
    for (const Vector& part : parts)
        sum = {sum.x + part.x, sum.y + part.y, sum.z + part.z};
    return sum;
}

Outcome HsvToRgb(FunctionCall& call)
{
    const Vector hsv = call.At(0).ToVector();
    const double sector = (hsv.x - std::floor(hsv.x)) * 6;
    const auto channel = [&](double offset) {
        const double k = std::fmod(offset + sector, 6);
        return hsv.z - hsv.z * hsv.y * std::max(0.0, std::min({k, 4 - k, 1.0}));
    };
    return Vector{channel(5), channel(3), channel(1)};
}

Outcome RgbToHsv(FunctionCall& call)
{
    const Vector rgb = call.At(0).ToVector();
    const double high = std::max({rgb.x, rgb.y, rgb.z});
    const double spread = high - std::min({rgb.x, rgb.y, rgb.z});
    if (spread <= 0)
        return Vector{0, 0, high};
    double hue = 0;
    if (high == rgb.x)
        hue = (rgb.y - rgb.z) / spread;
    else if (high == rgb.y)
        hue = 2 + (rgb.z - rgb.x) / spread;
    else
        hue = 4 + (rgb.x - rgb.y) / spread;
    hue /= 6;
    return Vector{hue < 0 ? hue + 1 : hue, spread / high, high};
}

const FunctionRow FUNCTIONS[] = {
    {"float mag(vector)", Magnitude},
    {"vector unit(vector)", UnitOf},
    {"float dot(vector, vector)", DotOf},
    {"vector cross(vector, vector)", CrossOf},
    {"float angle(vector, vector)", Angle},
    {"vector rot(vector, vector, float)", Rotate},
    {"vector hsv_to_rgb(vector)", HsvToRgb},
    {"vector rgb_to_hsv(vector)", RgbToHsv},
};

} // namespace

void RegisterVectors(CommandRegistry& registry)
{
    registry.Register(FUNCTIONS);
}

} // namespace host::commands
