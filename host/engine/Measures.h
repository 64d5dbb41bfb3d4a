#pragma once

#include "engine/Command.h"

namespace host {

/// How big the units are that plain numbers of scripts are in.
struct Units
{
    double length = 1; ///< centimetres
    double angle = 1; ///< degrees
    double time = 1.0 / 24; ///< seconds
};

/// The number that a text such as "5", "5cm" or "1.5 in" gives in the units of scripts. Nothing for
/// other texts and units of another kind.
std::optional<double> ReadMeasure(const QString& text, ArgumentType type, const Units& units);

} // namespace host
