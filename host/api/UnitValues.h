#pragma once

namespace host::api {

/// How many base units one unit is.
struct UnitRow
{
    int unit;
    double size;
};

/// 0 for a unit that is none.
template <int COUNT>
double SizeOf(const UnitRow (&rows)[COUNT], int unit)
{
    for (const UnitRow& row : rows) {
        if (row.unit == unit)
            return row.size;
    }
    return 0;
}

/// The value itself where one of the units is none.
inline double Converted(double value, double fromSize, double toSize)
{
    return fromSize == toSize || fromSize == 0 || toSize == 0 ? value : value * fromSize / toSize;
}

} // namespace host::api
