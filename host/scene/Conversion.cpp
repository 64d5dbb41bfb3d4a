#include "scene/Conversion.h"

#include <cmath>

namespace host::scene {

namespace {

Value ToMatrix(const Value& value)
{
    if (value.GetKind() == Value::Kind::Matrix)
        return value;
    Matrix matrix{4, 4, {}};
    for (int i = 0; i < value.Count(); ++i)
        matrix.cells += value.At(i).ToFloat();
    return matrix.cells.size() == 16 ? Value(matrix) : Value();
}

template <typename List, typename Convert>
Value ToList(const Value& value, Convert convert)
{
    List list;
    for (int i = 0; i < value.Count(); ++i)
        list += convert(value.At(i));
    return list;
}

} // namespace

Value Converted(const Value& value, Storage storage)
{
    switch (storage) {
    case Storage::Bool: return value.ToBool();
    case Storage::Int:
        return value.IsFloat() ? static_cast<int>(std::lround(value.ToFloat())) : value.ToInt();
    case Storage::Float: return value.ToFloat();
    case Storage::String: return value.ToText();
    case Storage::Matrix: return ToMatrix(value);
    case Storage::IntArray: return ToList<IntList>(value, [](const Value& v) { return v.ToInt(); });
    case Storage::FloatArray:
        return ToList<FloatList>(value, [](const Value& v) { return v.ToFloat(); });
    case Storage::StringArray: return value.ToTextList();
    case Storage::VectorArray:
        return ToList<VectorList>(value, [](const Value& v) { return v.ToVector(); });
    case Storage::None: return {};
    case Storage::Children: return value;
    }
    return {};
}

} // namespace host::scene
