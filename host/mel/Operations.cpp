#include "mel/Operations.h"

#include "mel/Arrays.h"
#include "mel/Interpreter.h"

#include <cmath>
#include <limits>

namespace host::mel {

namespace {

using Kind = Value::Kind;

const char* SymbolOf(Operator operation)
{
    switch (operation) {
    case Operator::Add: return "+";
    case Operator::Subtract: return "-";
    case Operator::Multiply: return "*";
    case Operator::Divide: return "/";
    case Operator::Remainder: return "%";
    case Operator::Cross: return "^";
    case Operator::Less: return "<";
    case Operator::LessEqual: return "<=";
    case Operator::Greater: return ">";
    case Operator::GreaterEqual: return ">=";
    case Operator::Equal: return "==";
    case Operator::NotEqual: return "!=";
    case Operator::And: return "&&";
    case Operator::Or: return "||";
    case Operator::Not: return "!";
    case Operator::Negate: return "-";
    case Operator::Plus: return "+";
    case Operator::None: return "=";
    }
    return "";
}

QString SizedKindName(const Value& value)
{
    if (value.GetKind() != Kind::Matrix)
        return KindName(value.GetKind());
    const Matrix& matrix = value.Get<Matrix>();
    return QStringLiteral("matrix[%1][%2]").arg(matrix.rows).arg(matrix.columns);
}

[[noreturn]] void RaiseConversion(Interpreter& interpreter, const Value& value, const QString& to)
{
    interpreter.Raise(
        QStringLiteral("Cannot convert data of type %1 to type %2.").arg(SizedKindName(value), to));
}

void CheckScalar(Interpreter& interpreter, const Value& value)
{
    if (value.IsArray() || value.GetKind() == Kind::Matrix) {
        interpreter.Raise(QStringLiteral("Cannot use data of type %1 in a scalar operation.")
                              .arg(KindName(value.GetKind())));
    }
}

void WarnOfConversion(Interpreter& interpreter, const Value& value, Kind kind)
{
    interpreter.Warn(
        QStringLiteral("Converting string \"%1\" to %2 %3 value of 0.")
            .arg(value.Get<QString>(),
                kind == Kind::Int ? QStringLiteral("an") : QStringLiteral("a"), KindName(kind)));
}

/// An empty array takes the kind of its target; numbers are converted one by one.
Value ConvertArray(Interpreter& interpreter, const Value& value, Kind kind)
{
    if (value.Count() == 0)
        return Value::Default(kind);
    if (value.GetKind() == Kind::IntArray && kind == Kind::FloatArray) {
        FloatList list;
        for (const int element : value.Get<IntList>())
            list.append(element);
        return list;
    }
    if (value.GetKind() == Kind::FloatArray && kind == Kind::IntArray) {
        IntList list;
        for (const double element : value.Get<FloatList>())
            list.append(Truncate(element));
        return list;
    }
    RaiseConversion(interpreter, value, KindName(kind));
}

double ComponentResult(Interpreter& interpreter, Operator operation, double left, double right)
{
    return ApplyFloat(interpreter, operation, left, right);
}

Value ApplyVectors(Interpreter& interpreter, Operator operation, const Value& l, const Value& r)
{
    const Vector a = l.ToVector();
    const Vector b = r.ToVector();
    const bool both = l.GetKind() == Kind::Vector && r.GetKind() == Kind::Vector;
    if (both && operation == Operator::Multiply)
        return a.x * b.x + a.y * b.y + a.z * b.z;
    if (both && operation == Operator::Cross)
        return Vector{a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
    if (operation == Operator::Cross)
        RaiseIllegal(interpreter, operation, both ? Kind::Vector : Kind::Float);
    return Vector{ComponentResult(interpreter, operation, a.x, b.x),
        ComponentResult(interpreter, operation, a.y, b.y),
        ComponentResult(interpreter, operation, a.z, b.z)};
}

Matrix MatrixFromVector(const Vector& vector, bool asRow)
{
    return {asRow ? 1 : 3, asRow ? 3 : 1, {vector.x, vector.y, vector.z}};
}

Matrix Product(Interpreter& interpreter, const Matrix& a, const Matrix& b)
{
    // A column times a row can be far larger than both.
    if (qint64(a.rows) * b.columns > MAXIMUM_ELEMENTS)
        interpreter.Raise(QStringLiteral("The product of two matrices is out of range."));
    Matrix product{a.rows, b.columns, QVector<double>(a.rows * b.columns, 0.0)};
    for (int row = 0; row < a.rows; ++row) {
        for (int column = 0; column < b.columns; ++column) {
            interpreter.CountStep();
            double sum = 0.0;
            for (int i = 0; i < a.columns; ++i)
                sum += a.At(row, i) * b.At(i, column);
            product.At(row, column) = sum;
        }
    }
    return product;
}

Value MultiplyMatrices(Interpreter& interpreter, const Value& l, const Value& r)
{
    // A vector stands for a row before a matrix and for a column behind one.
    const Matrix a
        = l.GetKind() == Kind::Matrix ? l.Get<Matrix>() : MatrixFromVector(l.ToVector(), true);
    const Matrix b
        = r.GetKind() == Kind::Matrix ? r.Get<Matrix>() : MatrixFromVector(r.ToVector(), false);
    if (a.columns != b.rows)
        RaiseIllegal(interpreter, Operator::Multiply, Kind::Matrix);
    const Matrix product = Product(interpreter, a, b);
    if (l.GetKind() == Kind::Vector && product.columns == 3)
        return Vector{product.At(0, 0), product.At(0, 1), product.At(0, 2)};
    return product;
}

Value ApplyMatrices(Interpreter& interpreter, Operator operation, const Value& l, const Value& r)
{
    const bool numbers = l.IsNumber() || r.IsNumber();
    if (operation == Operator::Multiply && !numbers)
        return MultiplyMatrices(interpreter, l, r);
    Matrix result = l.GetKind() == Kind::Matrix ? l.Get<Matrix>() : r.Get<Matrix>();
    const bool sameSize = l.GetKind() == r.GetKind() && l.Get<Matrix>().rows == r.Get<Matrix>().rows
        && l.Get<Matrix>().columns == r.Get<Matrix>().columns;
    const bool sums = operation == Operator::Add || operation == Operator::Subtract;
    if ((!numbers && !(sameSize && sums)) || operation == Operator::Cross)
        RaiseIllegal(interpreter, operation, Kind::Matrix);
    const auto cell = [](const Value& value, int i) {
        return value.IsNumber() ? value.ToFloat() : value.Get<Matrix>().cells.at(i);
    };
    for (int i = 0; i < result.cells.size(); ++i)
        result.cells[i] = ApplyFloat(interpreter, operation, cell(l, i), cell(r, i));
    return result;
}

} // namespace

int Truncate(double value)
{
    return Value(value).ToInt();
}

double FloatRemainder(double left, double right)
{
    return std::fmod(left, right);
}

void RaiseDivisionByZero(Interpreter& interpreter)
{
    interpreter.Raise(QStringLiteral("Division by zero."));
}

void RaiseTooLong(Interpreter& interpreter)
{
    interpreter.Raise(QStringLiteral("A string is longer than memory allows."));
}

void RaiseIllegal(Interpreter& interpreter, Operator operation, Kind kind)
{
    interpreter.Raise(QStringLiteral("Illegal operation \"%1\" on data of type %2.")
                          .arg(QLatin1String(SymbolOf(operation)), KindName(kind)));
}

int ToInt(Interpreter& interpreter, const Value& value)
{
    if (value.IsInt())
        return value.Get<int>();
    if (value.IsArray() || value.GetKind() == Kind::Matrix)
        RaiseConversion(interpreter, value, KindName(Kind::Int));
    bool exact = true;
    const int number = value.ToInt(&exact);
    if (!exact)
        WarnOfConversion(interpreter, value, Kind::Int);
    return number;
}

double ToFloat(Interpreter& interpreter, const Value& value)
{
    if (value.IsFloat())
        return value.Get<double>();
    if (value.IsArray() || value.GetKind() == Kind::Matrix)
        RaiseConversion(interpreter, value, KindName(Kind::Float));
    bool exact = true;
    const double number = value.ToFloat(&exact);
    if (!exact)
        WarnOfConversion(interpreter, value, Kind::Float);
    return number;
}

bool ToTruth(Interpreter& interpreter, const Value& value)
{
    CheckScalar(interpreter, value);
    if (value.IsString() && value.Get<QString>().isEmpty())
        return false;
    if (value.IsString())
        return ToFloat(interpreter, value) != 0;
    return value.ToBool();
}

Value Convert(Interpreter& interpreter, const Value& value, Kind kind)
{
    if (value.GetKind() == kind || kind == Kind::None)
        return value.Normalized();
    if (value.IsNone())
        return Value::Default(kind);
    if (value.IsArray() && ArrayKindOf(ElementKindOf(kind)) == kind)
        return ConvertArray(interpreter, value, kind);
    if (value.IsArray())
        RaiseConversion(interpreter, value, KindName(kind));
    switch (kind) {
    case Kind::Int: return ToInt(interpreter, value);
    case Kind::Float: return ToFloat(interpreter, value);
    case Kind::String: return value.ToText();
    case Kind::Vector:
        if (value.GetKind() != Kind::Matrix)
            return value.ToVector();
        break;
    case Kind::Matrix:
        if (value.GetKind() == Kind::Vector)
            return MatrixFromVector(value.Get<Vector>(), true);
        break;
    default: break;
    }
    RaiseConversion(interpreter, value, KindName(kind));
}

bool IsComparison(Operator operation)
{
    return operation >= Operator::Less && operation <= Operator::NotEqual;
}

bool Compare(Interpreter& interpreter, Operator operation, const Value& left, const Value& right)
{
    const bool equality = operation == Operator::Equal || operation == Operator::NotEqual;
    if (equality && left.GetKind() == Kind::Matrix && right.GetKind() == Kind::Matrix)
        return (left == right) == (operation == Operator::Equal);
    CheckScalar(interpreter, left);
    CheckScalar(interpreter, right);
    if (left.IsInt() && right.IsInt())
        return CompareOrdered(operation, left.Get<int>(), right.Get<int>());
    if (left.IsString() || right.IsString())
        return CompareOrdered(operation, left.ToText(), right.ToText());
    if (equality && (left.GetKind() == Kind::Vector || right.GetKind() == Kind::Vector))
        return (left.ToVector() == right.ToVector()) == (operation == Operator::Equal);
    return CompareOrdered(operation, left.ToFloat(), right.ToFloat());
}

Value Apply(Interpreter& interpreter, Operator operation, const Value& left, const Value& right)
{
    if (IsComparison(operation))
        return Compare(interpreter, operation, left, right) ? 1 : 0;
    if (left.IsInt() && right.IsInt())
        return ApplyInt(interpreter, operation, left.Get<int>(), right.Get<int>());
    if (left.IsArray() || right.IsArray())
        CheckScalar(interpreter, left.IsArray() ? left : right);
    if (left.IsString() || right.IsString()) {
        if (operation != Operator::Add)
            RaiseIllegal(interpreter, operation, Kind::String);
        const QString a = left.ToText();
        const QString b = right.ToText();
        if (qint64(a.size()) + b.size() > MAXIMUM_TEXT)
            RaiseTooLong(interpreter);
        return QString(a + b);
    }
    if (left.GetKind() == Kind::Matrix || right.GetKind() == Kind::Matrix)
        return ApplyMatrices(interpreter, operation, left, right);
    if (left.GetKind() == Kind::Vector || right.GetKind() == Kind::Vector)
        return ApplyVectors(interpreter, operation, left, right);
    if (left.IsFloat() || right.IsFloat())
        return ApplyFloat(interpreter, operation, left.ToFloat(), right.ToFloat());
    return ApplyInt(interpreter, operation, left.ToInt(), right.ToInt());
}

Value Negate(Interpreter& interpreter, const Value& value)
{
    switch (value.GetKind()) {
    case Kind::Float: return -value.Get<double>();
    case Kind::Vector: {
        const Vector vector = value.Get<Vector>();
        return Vector{-vector.x, -vector.y, -vector.z};
    }
    case Kind::String: RaiseIllegal(interpreter, Operator::Negate, Kind::String);
    case Kind::Matrix: return ApplyMatrices(interpreter, Operator::Multiply, -1, value);
    default: CheckScalar(interpreter, value);
    }
    return ApplyInt(interpreter, Operator::Subtract, 0, value.ToInt());
}

Kind ResultKind(Operator operation, Kind left, Kind right)
{
    if (IsComparison(operation))
        return Kind::Int;
    if (left == Kind::None || right == Kind::None)
        return Kind::None;
    if (left == Kind::String || right == Kind::String)
        return Kind::String;
    const auto numeric = [](Kind kind) { return kind == Kind::Int || kind == Kind::Float; };
    if (numeric(left) && numeric(right))
        return left == Kind::Int && right == Kind::Int ? Kind::Int : Kind::Float;
    if (left == Kind::Vector && right == Kind::Vector)
        return operation == Operator::Multiply ? Kind::Float : Kind::Vector;
    if ((left == Kind::Vector && numeric(right)) || (numeric(left) && right == Kind::Vector))
        return Kind::Vector;
    return Kind::None;
}

} // namespace host::mel
