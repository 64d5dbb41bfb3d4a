#include "engine/Measures.h"

#include "engine/UnitSize.h"

namespace host {

namespace {

struct UnitRow
{
    const char* name;
    const char* longName;
    ArgumentType type;
    double size;
};

constexpr double DEGREES_IN_RADIAN = 57.29577951308232;

// clang-format off
constexpr UnitRow UNITS[] = {
    {"mm",       "millimeter",  ArgumentType::Length, 0.1},
    {"cm",       "centimeter",  ArgumentType::Length, 1},
    {"m",        "meter",       ArgumentType::Length, 100},
    {"km",       "kilometer",   ArgumentType::Length, 100000},
    {"in",       "inch",        ArgumentType::Length, 2.54},
    {"ft",       "foot",        ArgumentType::Length, 30.48},
    {"yd",       "yard",        ArgumentType::Length, 91.44},
    {"mi",       "mile",        ArgumentType::Length, 160934.4},
    {"deg",      "degree",      ArgumentType::Angle,  1},
    {"rad",      "radian",      ArgumentType::Angle,  DEGREES_IN_RADIAN},
    {"hour",     "hour",        ArgumentType::Time,   3600},
    {"min",      "minute",      ArgumentType::Time,   60},
    {"sec",      "second",      ArgumentType::Time,   1},
    {"millisec", "millisecond", ArgumentType::Time,   0.001},
    {"game",     "15fps",       ArgumentType::Time,   1.0 / 15},
    {"film",     "24fps",       ArgumentType::Time,   1.0 / 24},
    {"pal",      "25fps",       ArgumentType::Time,   1.0 / 25},
    {"ntsc",     "30fps",       ArgumentType::Time,   1.0 / 30},
    {"show",     "48fps",       ArgumentType::Time,   1.0 / 48},
    {"palf",     "50fps",       ArgumentType::Time,   1.0 / 50},
    {"ntscf",    "60fps",       ArgumentType::Time,   1.0 / 60},
};
// clang-format on

double SizeOfNumbers(ArgumentType type, const Units& units)
{
    switch (type) {
    case ArgumentType::Length: return units.length;
    case ArgumentType::Angle: return units.angle;
    default: return units.time;
    }
}

} // namespace

double UnitSize(const QString& name, ArgumentType type)
{
    for (const UnitRow& row : UNITS) {
        if (row.type == type
            && (name == QLatin1String(row.name) || name == QLatin1String(row.longName)))
            return row.size;
    }
    return 0;
}

std::optional<double> ReadMeasure(const QString& text, ArgumentType type, const Units& units)
{
    const QString trimmed = text.trimmed();
    int end = trimmed.size();
    while (end > 0 && trimmed.at(end - 1).isLetter())
        --end;
    // "24fps" has digits in its name, which may follow the number after a blank only.
    const int blank = trimmed.indexOf(QLatin1Char(' '));
    end = blank > 0 ? blank : end;
    bool isNumber = false;
    const double number = trimmed.left(end).toDouble(&isNumber);
    const QString unit = trimmed.mid(end).trimmed();
    if (!isNumber)
        return std::nullopt;
    if (unit.isEmpty())
        return number;
    const double size = UnitSize(unit, type);
    if (size == 0)
        return std::nullopt;
    return number * size / SizeOfNumbers(type, units);
}

} // namespace host
