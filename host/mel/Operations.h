#pragma once

#include "engine/Value.h"
#include "mel/Ast.h"

namespace host::mel {

class Interpreter;
using ast::Operator;

// What the operators and conversions of the language do with values. Whatever cannot be done is
// raised as an error of the running script.

/// Code units of a string; beyond it a script is out of control.
constexpr int MAXIMUM_TEXT = 1 << 27;

/// Converts as an assignment to a variable of that kind does. A string without a number warns.
Value Convert(Interpreter& interpreter, const Value& value, Value::Kind kind);
/// The same as plain C++ values.
int ToInt(Interpreter& interpreter, const Value& value);
double ToFloat(Interpreter& interpreter, const Value& value);
bool ToTruth(Interpreter& interpreter, const Value& value);
/// Nearest int, toward 0.
int Truncate(double value);

Value Apply(Interpreter& interpreter, Operator operation, const Value& left, const Value& right);
Value Negate(Interpreter& interpreter, const Value& value);
bool Compare(Interpreter& interpreter, Operator operation, const Value& left, const Value& right);
/// The kind of Apply's results; None when only the values tell.
Value::Kind ResultKind(Operator operation, Value::Kind left, Value::Kind right);
bool IsComparison(Operator operation);

[[noreturn]] void RaiseDivisionByZero(Interpreter& interpreter);
[[noreturn]] void RaiseTooLong(Interpreter& interpreter);
[[noreturn]] void RaiseIllegal(Interpreter& interpreter, Operator operation, Value::Kind kind);

/// int arithmetic wraps round at 32 bits.
inline int ApplyInt(Interpreter& interpreter, Operator operation, int left, int right)
{
    const auto a = static_cast<unsigned>(left);
    const auto b = static_cast<unsigned>(right);
    switch (operation) {
    case Operator::Add: return static_cast<int>(a + b);
    case Operator::Subtract: return static_cast<int>(a - b);
    case Operator::Multiply: return static_cast<int>(a * b);
    case Operator::Divide:
        if (right == 0)
            RaiseDivisionByZero(interpreter);
        return right == -1 ? static_cast<int>(0u - a) : left / right;
    case Operator::Remainder:
        if (right == 0)
            RaiseDivisionByZero(interpreter);
        return right == -1 ? 0 : left % right;
    default: RaiseIllegal(interpreter, operation, Value::Kind::Int);
    }
}

double FloatRemainder(double left, double right);

inline double ApplyFloat(Interpreter& interpreter, Operator operation, double left, double right)
{
    switch (operation) {
    case Operator::Add: return left + right;
    case Operator::Subtract: return left - right;
    case Operator::Multiply: return left * right;
    case Operator::Divide:
        if (right == 0)
            RaiseDivisionByZero(interpreter);
        return left / right;
    case Operator::Remainder:
        if (right == 0)
            RaiseDivisionByZero(interpreter);
        return FloatRemainder(left, right);
    default: RaiseIllegal(interpreter, operation, Value::Kind::Float);
    }
}

template <typename T>
bool CompareOrdered(Operator operation, const T& left, const T& right)
{
    switch (operation) {
    case Operator::Less: return left < right;
    case Operator::LessEqual: return left <= right;
    case Operator::Greater: return left > right;
    case Operator::GreaterEqual: return left >= right;
    case Operator::Equal: return left == right;
    default: return left != right;
    }
}

} // namespace host::mel
