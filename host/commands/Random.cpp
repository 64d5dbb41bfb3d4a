#include "commands/Random.h"

#include <array>
#include <cmath>
#include <numeric>
#include <sstream>

namespace host::commands {

namespace {

constexpr int TABLE_SIZE = 256;

/// A fixed shuffle of 0 to 255, so that noise is the same in every session.
const std::array<int, TABLE_SIZE>& Shuffled()
{
    static const std::array<int, TABLE_SIZE> table = [] {
        std::array<int, TABLE_SIZE> numbers{};
        std::iota(numbers.begin(), numbers.end(), 0);
        std::mt19937 generator(2024);
        for (size_t i = TABLE_SIZE - 1; i > 0; --i)
            std::swap(numbers[i], numbers[generator() % (i + 1)]);
        return numbers;
    }();
    return table;
}

int Hash(int x, int y, int z)
{
    const auto at = [](int i) { return Shuffled()[static_cast<size_t>(i & (TABLE_SIZE - 1))]; };
    return at(at(at(x) + y) + z);
}

/// Slope of one of twelve directions at a lattice point.
double Gradient(int hash, double x, double y, double z)
{
    const int direction = hash % 12;
    const double u = direction < 8 ? x : y;
    const double v = direction < 4 ? y : z;
    return ((hash & 16) ? -u : u) + ((hash & 32) ? -v : v);
}

double Fade(double t)
{
    return t * t * t * (t * (t * 6 - 15) + 10);
}

double Mix(double t, double from, double to)
{
    return from + t * (to - from);
}

} // namespace

void Random::Seed(int seed)
{
    m_generator.seed(static_cast<std::mt19937::result_type>(seed));
}

QString Random::State() const
{
    std::ostringstream state;
    state << m_generator;
    return QString::fromStdString(state.str());
}

bool Random::SetState(const QString& state)
{
    std::istringstream text(state.toStdString());
    std::mt19937 generator;
    text >> generator;
    if (text.fail())
        return false;
    m_generator = generator;
    return true;
}

double Random::Between(double low, double high)
{
    constexpr double RANGE = 4294967296.0;
    return low + (high - low) * (m_generator() / RANGE);
}

double Random::Gauss(double deviation, double mean)
{
    // The distribution keeps a second number back, which a new seed would not forget.
    std::normal_distribution<double> normal;
    return mean + deviation * normal(m_generator);
}

Vector Random::InSphere(const Vector& radii)
{
    Vector point;
    do {
        point = {Between(-1, 1), Between(-1, 1), Between(-1, 1)};
    } while (point.Length() > 1);
    return {point.x * radii.x, point.y * radii.y, point.z * radii.z};
}

double Noise(const Vector& place)
{
    if (!std::isfinite(place.x) || !std::isfinite(place.y) || !std::isfinite(place.z))
        return 0;
    const double floors[] = {std::floor(place.x), std::floor(place.y), std::floor(place.z)};
    int cell[3] = {};
    for (int i = 0; i < 3; ++i)
        cell[i] = static_cast<int>(std::fmod(floors[i], TABLE_SIZE));
    const double x = place.x - floors[0];
    const double y = place.y - floors[1];
    const double z = place.z - floors[2];
    const auto corner = [&](int dx, int dy, int dz) {
        return Gradient(Hash(cell[0] + dx, cell[1] + dy, cell[2] + dz), x - dx, y - dy, z - dz);
    };
    const auto edge
        = [&](int dy, int dz) { return Mix(Fade(x), corner(0, dy, dz), corner(1, dy, dz)); };
    const auto face = [&](int dz) { return Mix(Fade(y), edge(0, dz), edge(1, dz)); };
    return qBound(-1.0, Mix(Fade(z), face(0), face(1)), 1.0);
}

} // namespace host::commands
