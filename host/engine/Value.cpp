#include "engine/Value.h"

#include <QLocale>

#include <cmath>
#include <limits>

namespace host {

namespace {

constexpr int SIGNIFICANT_DIGITS = 10;

const char* const KIND_NAMES[] = {
    "undefined",
    "bool",
    "int",
    "float",
    "string",
    "vector",
    "matrix",
    "int[]",
    "float[]",
    "string[]",
    "vector[]",
};

QString VectorText(const Vector& vector)
{
    return NumberText(vector.x) + QLatin1Char(' ') + NumberText(vector.y) + QLatin1Char(' ')
        + NumberText(vector.z);
}

QString MatrixText(const Matrix& matrix)
{
    QStringList rows;
    for (int row = 0; row < matrix.rows; ++row) {
        QStringList cells;
        for (int column = 0; column < matrix.columns; ++column)
            cells += NumberText(matrix.At(row, column));
        rows += cells.join(QLatin1String(", "));
    }
    return QLatin1String("<< ") + rows.join(QLatin1String(";\n   ")) + QLatin1String(" >>");
}

/// A double outside the range of int has no int value in C++; the nearest one is the kinder answer.
int Truncated(double value)
{
    if (std::isnan(value))
        return 0;
    if (value >= std::numeric_limits<int>::max())
        return std::numeric_limits<int>::max();
    if (value <= std::numeric_limits<int>::min())
        return std::numeric_limits<int>::min();
    return static_cast<int>(value);
}

/// "<<1, 2, 3>>" and "1 2 3" give three parts; anything else its leading number in x.
Vector VectorFromText(const QString& text)
{
    QString inner = text.trimmed();
    if (!inner.startsWith(QLatin1String("<<")))
        return {LeadingNumber(text), 0, 0};
    inner.remove(0, 2);
    if (inner.endsWith(QLatin1String(">>")))
        inner.chop(2);
    const QStringList parts = inner.split(QLatin1Char(','));
    const auto part = [&](int i) { return i < parts.size() ? LeadingNumber(parts[i]) : 0.0; };
    return {part(0), part(1), part(2)};
}

} // namespace

double Vector::Length() const
{
    return std::sqrt(x * x + y * y + z * z);
}

QString NumberText(double value)
{
    if (value == 0 && std::signbit(value))
        return QStringLiteral("-0"); // as C writes it; QString drops the sign
    return QString::number(value, 'g', SIGNIFICANT_DIGITS);
}

double LeadingNumber(const QString& text, bool* found)
{
    int pos = 0;
    const int end = text.size();
    const auto at = [&](int i) { return i < end ? text.at(i).unicode() : u'\0'; };
    const auto digits = [&] {
        const int start = pos;
        while (at(pos) >= u'0' && at(pos) <= u'9')
            ++pos;
        return pos - start;
    };
    while (pos < end && text.at(pos).isSpace())
        ++pos;
    const int start = pos;
    if (at(pos) == u'-' || at(pos) == u'+')
        ++pos;
    int count = digits();
    if (at(pos) == u'.') {
        ++pos;
        count += digits();
    }
    if (found)
        *found = count > 0;
    if (count == 0)
        return 0;
    int numberEnd = pos;
    if (at(pos) == u'e' || at(pos) == u'E') {
        ++pos;
        if (at(pos) == u'-' || at(pos) == u'+')
            ++pos;
        if (digits() > 0)
            numberEnd = pos;
    }
    // QStringRef::toDouble always uses the C locale.
    return text.midRef(start, numberEnd - start).toDouble();
}

QString KindName(Value::Kind kind)
{
    return QLatin1String(KIND_NAMES[static_cast<int>(kind)]);
}

Value::Kind KindFromName(const QString& name)
{
    for (int i = 1; i < static_cast<int>(std::size(KIND_NAMES)); ++i) {
        if (name == QLatin1String(KIND_NAMES[i]))
            return static_cast<Value::Kind>(i);
    }
    return Value::Kind::None;
}

Value::Kind ArrayKindOf(Value::Kind element)
{
    switch (element) {
    case Value::Kind::Bool:
    case Value::Kind::Int: return Value::Kind::IntArray;
    case Value::Kind::Float: return Value::Kind::FloatArray;
    case Value::Kind::String: return Value::Kind::StringArray;
    case Value::Kind::Vector: return Value::Kind::VectorArray;
    default: return Value::Kind::None;
    }
}

Value::Kind ElementKindOf(Value::Kind array)
{
    switch (array) {
    case Value::Kind::IntArray: return Value::Kind::Int;
    case Value::Kind::FloatArray: return Value::Kind::Float;
    case Value::Kind::StringArray: return Value::Kind::String;
    case Value::Kind::VectorArray: return Value::Kind::Vector;
    default: return array;
    }
}

Value Value::Default(Kind kind)
{
    switch (kind) {
    case Kind::None: return {};
    case Kind::Bool: return false;
    case Kind::Int: return 0;
    case Kind::Float: return 0.0;
    case Kind::String: return QString();
    case Kind::Vector: return Vector();
    case Kind::Matrix: return Matrix();
    case Kind::IntArray: return IntList();
    case Kind::FloatArray: return FloatList();
    case Kind::StringArray: return StringList();
    case Kind::VectorArray: return VectorList();
    }
    return {};
}

int Value::Count() const
{
    switch (GetKind()) {
    case Kind::None: return 0;
    case Kind::IntArray: return Get<IntList>().size();
    case Kind::FloatArray: return Get<FloatList>().size();
    case Kind::StringArray: return Get<StringList>().size();
    case Kind::VectorArray: return Get<VectorList>().size();
    default: return 1;
    }
}

Value Value::At(int index) const
{
    if (index < 0 || index >= Count())
        return {};
    switch (GetKind()) {
    case Kind::IntArray: return Get<IntList>().at(index);
    case Kind::FloatArray: return Get<FloatList>().at(index);
    case Kind::StringArray: return Get<StringList>().at(index);
    case Kind::VectorArray: return Get<VectorList>().at(index);
    default: return *this;
    }
}

int Value::ToInt(bool* exact) const
{
    if (exact)
        *exact = true;
    switch (GetKind()) {
    case Kind::Bool: return Get<bool>() ? 1 : 0;
    case Kind::Int: return Get<int>();
    default: return Truncated(ToFloat(exact));
    }
}

double Value::ToFloat(bool* exact) const
{
    if (exact)
        *exact = true;
    switch (GetKind()) {
    case Kind::Bool: return Get<bool>() ? 1 : 0;
    case Kind::Int: return Get<int>();
    case Kind::Float: return Get<double>();
    case Kind::String: return LeadingNumber(Get<QString>(), exact);
    case Kind::Vector: return Get<Vector>().Length();
    default: return 0;
    }
}

Vector Value::ToVector() const
{
    if (GetKind() == Kind::Vector)
        return Get<Vector>();
    if (IsString())
        return VectorFromText(Get<QString>());
    const double all = ToFloat();
    return {all, all, all};
}

bool Value::ToBool() const
{
    return GetKind() == Kind::Int ? Get<int>() != 0 : ToFloat() != 0;
}

QString Value::ToText() const
{
    switch (GetKind()) {
    case Kind::None: return {};
    case Kind::Bool: return QString::number(Get<bool>() ? 1 : 0);
    case Kind::Int: return QString::number(Get<int>());
    case Kind::Float: return NumberText(Get<double>());
    case Kind::String: return Get<QString>();
    case Kind::Vector: return VectorText(Get<Vector>());
    case Kind::Matrix: return MatrixText(Get<Matrix>());
    default: return ToResultText();
    }
}

QString Value::ToPrintText() const
{
    if (!IsArray())
        return ToText();
    QString text;
    for (const QString& element : ToTextList())
        text += element + QLatin1Char('\n');
    return text;
}

QString Value::ToResultText() const
{
    return IsArray() ? ToTextList().join(QLatin1Char(' ')) : ToText();
}

QStringList Value::ToTextList() const
{
    if (GetKind() == Kind::StringArray)
        return Get<StringList>();
    QStringList list;
    for (int i = 0, count = Count(); i < count; ++i)
        list += At(i).ToText();
    return list;
}

Value Value::Normalized() const
{
    return GetKind() == Kind::Bool ? Value(ToInt()) : *this;
}

} // namespace host
