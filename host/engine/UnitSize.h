#pragma once

#include "engine/Command.h"

namespace host {

/// How big a unit is by its name, "cm" or "centimeter", in the unit that Units counts in; 0 when
/// there is no such unit of that kind.
double UnitSize(const QString& name, ArgumentType type);

} // namespace host
