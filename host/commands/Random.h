#pragma once

#include "engine/Value.h"

#include <random>

namespace host::commands {

/// The generator behind `rand`, `gauss` and `sphrand`. The same seed gives the same sequence.
class Random
{
public:
    void Seed(int seed);
    /// What the next numbers depend on, as text.
    QString State() const;
    /// False, with nothing changed, for a text that is no state.
    bool SetState(const QString& state);
    /// Evenly spread between the two, whichever is larger.
    double Between(double low, double high);
    double Gauss(double deviation, double mean);
    /// A point inside the ellipsoid with these radii.
    Vector InSphere(const Vector& radii);

private:
    std::mt19937 m_generator{std::random_device()()};
};

/// Smooth noise between -1 and 1 without state: one place always has one value.
double Noise(const Vector& place);

} // namespace host::commands
