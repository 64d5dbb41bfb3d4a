#include "mel/CodeExpressions.h"

#include "mel/Interpreter.h"
#include "mel/Operations.h"

namespace host::mel {

using Kind = Value::Kind;

int ExpressionCode::Int(Frame& frame) const
{
    return ToInt(frame.interpreter, Evaluate(frame));
}

double ExpressionCode::Float(Frame& frame) const
{
    return ToFloat(frame.interpreter, Evaluate(frame));
}

bool ExpressionCode::Truth(Frame& frame) const
{
    return ToTruth(frame.interpreter, Evaluate(frame));
}

namespace {

bool AllConstant(const ExpressionCodeList& list)
{
    for (const ExpressionCodePointer& code : list) {
        if (!code->IsConstant())
            return false;
    }
    return true;
}

/// A node that gives an int, whatever is asked of it.
class IntCode : public ExpressionCode
{
public:
    IntCode()
        : ExpressionCode(Kind::Int)
    { }
    Value Evaluate(Frame& frame) const override { return Int(frame); }
    double Float(Frame& frame) const override { return Int(frame); }
    bool Truth(Frame& frame) const override { return Int(frame) != 0; }
    void Execute(Frame& frame) const override { Int(frame); }
};

class FloatCode : public ExpressionCode
{
public:
    FloatCode()
        : ExpressionCode(Kind::Float)
    { }
    Value Evaluate(Frame& frame) const override { return Float(frame); }
    int Int(Frame& frame) const override { return Truncate(Float(frame)); }
    bool Truth(Frame& frame) const override { return Float(frame) != 0; }
    void Execute(Frame& frame) const override { Float(frame); }
};

class Constant : public ExpressionCode
{
public:
    explicit Constant(const Value& value)
        : ExpressionCode(value.GetKind())
        , m_value(value)
        , m_int(value.IsString() ? 0 : value.ToInt())
        , m_float(value.IsString() ? 0 : value.ToFloat())
    { }
    bool IsConstant() const override { return true; }
    Value Evaluate(Frame&) const override { return m_value; }
    int Int(Frame& frame) const override
    {
        return IsNumeric() ? m_int : ExpressionCode::Int(frame);
    }
    double Float(Frame& frame) const override
    {
        return IsNumeric() ? m_float : ExpressionCode::Float(frame);
    }

private:
    const Value m_value;
    const int m_int;
    const double m_float;
};

class NotCode : public IntCode
{
public:
    explicit NotCode(ExpressionCodePointer operand)
        : m_operand(std::move(operand))
    { }
    bool IsConstant() const override { return m_operand->IsConstant(); }
    int Int(Frame& frame) const override { return m_operand->Truth(frame) ? 0 : 1; }

private:
    const ExpressionCodePointer m_operand;
};

/// "-x", and "+x", which only insists on a number or vector.
class SignCode : public ExpressionCode
{
public:
    SignCode(bool negative, ExpressionCodePointer operand)
        : ExpressionCode(operand->GetKind())
        , m_negative(negative)
        , m_operand(std::move(operand))
    { }
    bool IsConstant() const override { return m_operand->IsConstant(); }
    Value Evaluate(Frame& frame) const override
    {
        const Value value = m_operand->Evaluate(frame);
        const Value negated = Negate(frame.interpreter, value);
        return m_negative ? negated : value;
    }

private:
    const bool m_negative;
    const ExpressionCodePointer m_operand;
};

/// The parts that every node with two operands has.
template <typename Base>
class TwoOperands : public Base
{
public:
    template <typename... Arguments>
    TwoOperands(Operator operation, ExpressionCodePointer left, ExpressionCodePointer right,
        Arguments... arguments)
        : Base(arguments...)
        , m_operation(operation)
        , m_left(std::move(left))
        , m_right(std::move(right))
    { }
    bool IsConstant() const override { return m_left->IsConstant() && m_right->IsConstant(); }

protected:
    const Operator m_operation;
    const ExpressionCodePointer m_left;
    const ExpressionCodePointer m_right;
};

class IntBinary : public TwoOperands<IntCode>
{
public:
    using TwoOperands::TwoOperands;
    int Int(Frame& frame) const override
    {
        const int left = m_left->Int(frame);
        return ApplyInt(frame.interpreter, m_operation, left, m_right->Int(frame));
    }
};

class FloatBinary : public TwoOperands<FloatCode>
{
public:
    using TwoOperands::TwoOperands;
    double Float(Frame& frame) const override
    {
        const double left = m_left->Float(frame);
        return ApplyFloat(frame.interpreter, m_operation, left, m_right->Float(frame));
    }
};

class IntComparison : public TwoOperands<IntCode>
{
public:
    using TwoOperands::TwoOperands;
    int Int(Frame& frame) const override
    {
        const int left = m_left->Int(frame);
        return CompareOrdered(m_operation, left, m_right->Int(frame)) ? 1 : 0;
    }
};

class FloatComparison : public TwoOperands<IntCode>
{
public:
    using TwoOperands::TwoOperands;
    int Int(Frame& frame) const override
    {
        const double left = m_left->Float(frame);
        return CompareOrdered(m_operation, left, m_right->Float(frame)) ? 1 : 0;
    }
};

class LogicalBinary : public TwoOperands<IntCode>
{
public:
    using TwoOperands::TwoOperands;
    int Int(Frame& frame) const override
    {
        const bool left = m_left->Truth(frame);
        const bool decided = left == (m_operation == Operator::Or);
        return (decided ? left : m_right->Truth(frame)) ? 1 : 0;
    }
};

class AnyBinary : public TwoOperands<ExpressionCode>
{
public:
    using TwoOperands::TwoOperands;
    Value Evaluate(Frame& frame) const override
    {
        const Value left = m_left->Evaluate(frame);
        return Apply(frame.interpreter, m_operation, left, m_right->Evaluate(frame));
    }
};

class ConditionalCode : public ExpressionCode
{
public:
    ConditionalCode(
        ExpressionCodePointer condition, ExpressionCodePointer yes, ExpressionCodePointer no)
        : ExpressionCode(yes->GetKind())
        , m_condition(std::move(condition))
        , m_yes(std::move(yes))
        , m_no(std::move(no))
    { }
    bool IsConstant() const override
    {
        return m_condition->IsConstant() && m_yes->IsConstant() && m_no->IsConstant();
    }
    Value Evaluate(Frame& frame) const override { return Chosen(frame).Evaluate(frame); }
    int Int(Frame& frame) const override { return Chosen(frame).Int(frame); }
    double Float(Frame& frame) const override { return Chosen(frame).Float(frame); }
    void Execute(Frame& frame) const override { Chosen(frame).Execute(frame); }

private:
    const ExpressionCode& Chosen(Frame& frame) const
    {
        return m_condition->Truth(frame) ? *m_yes : *m_no;
    }

    const ExpressionCodePointer m_condition;
    const ExpressionCodePointer m_yes;
    const ExpressionCodePointer m_no;
};

class IntConversion : public IntCode
{
public:
    explicit IntConversion(ExpressionCodePointer operand)
        : m_operand(std::move(operand))
    { }
    bool IsConstant() const override { return m_operand->IsConstant(); }
    int Int(Frame& frame) const override { return m_operand->Int(frame); }

private:
    const ExpressionCodePointer m_operand;
};

class FloatConversion : public FloatCode
{
public:
    explicit FloatConversion(ExpressionCodePointer operand)
        : m_operand(std::move(operand))
    { }
    bool IsConstant() const override { return m_operand->IsConstant(); }
    double Float(Frame& frame) const override { return m_operand->Float(frame); }

private:
    const ExpressionCodePointer m_operand;
};

class AnyConversion : public ExpressionCode
{
public:
    AnyConversion(Kind kind, ExpressionCodePointer operand)
        : ExpressionCode(kind)
        , m_operand(std::move(operand))
    { }
    bool IsConstant() const override { return m_operand->IsConstant(); }
    Value Evaluate(Frame& frame) const override
    {
        return Convert(frame.interpreter, m_operand->Evaluate(frame), GetKind());
    }

private:
    const ExpressionCodePointer m_operand;
};

/// The elements decide the kind together: a string makes all of them strings.
class ArrayCode : public ExpressionCode
{
public:
    ArrayCode(Value::Kind kind, ExpressionCodeList elements)
        : ExpressionCode(kind)
        , m_elements(std::move(elements))
    { }
    bool IsConstant() const override { return AllConstant(m_elements); }
    Value Evaluate(Frame& frame) const override;

private:
    const ExpressionCodeList m_elements;
};

template <typename List, typename T>
Value MakeList(Interpreter& interpreter, const QVector<Value>& values, Kind kind)
{
    List list;
    list.reserve(values.size());
    for (const Value& value : values)
        list.append(Convert(interpreter, value, kind).template Get<T>());
    return list;
}

Value ArrayCode::Evaluate(Frame& frame) const
{
    if (m_elements.empty())
        return {}; // Becomes an empty array of whatever kind it is assigned to.
    QVector<Value> values;
    values.reserve(static_cast<int>(m_elements.size()));
    for (const ExpressionCodePointer& element : m_elements)
        values.append(element->Evaluate(frame));
    Value::Kind kind = values.first().GetKind();
    for (const Value& value : qAsConst(values)) {
        if (value.IsArray() || value.GetKind() == Value::Kind::Matrix) {
            frame.interpreter.Raise(QStringLiteral("An array cannot hold data of type %1.")
                                        .arg(KindName(value.GetKind())));
        }
        kind = CommonKind(kind, value.GetKind());
    }
    switch (kind) {
    case Value::Kind::Float: return MakeList<FloatList, double>(frame.interpreter, values, kind);
    case Value::Kind::String: return MakeList<StringList, QString>(frame.interpreter, values, kind);
    case Value::Kind::Vector: return MakeList<VectorList, Vector>(frame.interpreter, values, kind);
    default: return MakeList<IntList, int>(frame.interpreter, values, Value::Kind::Int);
    }
}

class VectorCode : public ExpressionCode
{
public:
    explicit VectorCode(ExpressionCodeList parts)
        : ExpressionCode(Kind::Vector)
        , m_parts(std::move(parts))
    { }
    bool IsConstant() const override { return AllConstant(m_parts); }
    Value Evaluate(Frame& frame) const override
    {
        double parts[3] = {0, 0, 0};
        for (size_t i = 0; i < m_parts.size(); ++i)
            parts[i] = m_parts[i]->Float(frame);
        return Vector{parts[0], parts[1], parts[2]};
    }

private:
    const ExpressionCodeList m_parts;
};

class MatrixCode : public ExpressionCode
{
public:
    MatrixCode(ExpressionCodeList cells, int columns)
        : ExpressionCode(Kind::Matrix)
        , m_cells(std::move(cells))
        , m_columns(columns)
    { }
    bool IsConstant() const override { return AllConstant(m_cells); }
    Value Evaluate(Frame& frame) const override
    {
        Matrix matrix{static_cast<int>(m_cells.size()) / m_columns, m_columns, {}};
        for (const ExpressionCodePointer& cell : m_cells)
            matrix.cells.append(cell->Float(frame));
        return matrix;
    }

private:
    const ExpressionCodeList m_cells;
    const int m_columns;
};

class ComponentCode : public FloatCode
{
public:
    ComponentCode(ExpressionCodePointer vector, int component)
        : m_vector(std::move(vector))
        , m_component(component)
    { }
    bool IsConstant() const override { return m_vector->IsConstant(); }
    double Float(Frame& frame) const override
    {
        const Value value = m_vector->Evaluate(frame);
        if (value.GetKind() != Value::Kind::Vector) {
            frame.interpreter.Raise(QStringLiteral("Data of type %1 has no component \".%2\".")
                                        .arg(KindName(value.GetKind()), QChar('x' + m_component)));
        }
        const Vector vector = value.Get<Vector>();
        return m_component == 0 ? vector.x : m_component == 1 ? vector.y : vector.z;
    }

private:
    const ExpressionCodePointer m_vector;
    const int m_component;
};

class JoinedText : public ExpressionCode
{
public:
    explicit JoinedText(ExpressionCodeList parts)
        : ExpressionCode(Kind::String)
        , m_parts(std::move(parts))
    { }
    bool IsConstant() const override { return AllConstant(m_parts); }
    Value Evaluate(Frame& frame) const override
    {
        QString text;
        for (const ExpressionCodePointer& part : m_parts)
            text += part->Evaluate(frame).ToText();
        return text;
    }

private:
    const ExpressionCodeList m_parts;
};

class CatchCode : public IntCode
{
public:
    CatchCode(ExpressionCodePointer guarded, bool quiet)
        : m_guarded(std::move(guarded))
        , m_quiet(quiet)
    { }
    int Int(Frame& frame) const override
    {
        return frame.interpreter.Catch(*m_guarded, frame, m_quiet);
    }

private:
    const ExpressionCodePointer m_guarded;
    const bool m_quiet;
};

} // namespace

ExpressionCodePointer MakeConstant(const Value& value)
{
    return std::make_unique<Constant>(value);
}

ExpressionCodePointer MakeUnary(Operator operation, ExpressionCodePointer operand)
{
    if (operation == Operator::Not)
        return std::make_unique<NotCode>(std::move(operand));
    return std::make_unique<SignCode>(operation == Operator::Negate, std::move(operand));
}

ExpressionCodePointer MakeBinary(
    Operator operation, ExpressionCodePointer left, ExpressionCodePointer right)
{
    if (operation == Operator::And || operation == Operator::Or)
        return std::make_unique<LogicalBinary>(operation, std::move(left), std::move(right));
    const bool numeric = left->IsNumeric() && right->IsNumeric() && operation != Operator::Cross;
    const bool ints = left->GetKind() == Kind::Int && right->GetKind() == Kind::Int;
    if (numeric && IsComparison(operation)) {
        if (ints)
            return std::make_unique<IntComparison>(operation, std::move(left), std::move(right));
        return std::make_unique<FloatComparison>(operation, std::move(left), std::move(right));
    }
    if (numeric && ints)
        return std::make_unique<IntBinary>(operation, std::move(left), std::move(right));
    if (numeric)
        return std::make_unique<FloatBinary>(operation, std::move(left), std::move(right));
    const Kind kind = ResultKind(operation, left->GetKind(), right->GetKind());
    return std::make_unique<AnyBinary>(operation, std::move(left), std::move(right), kind);
}

Kind CommonKind(Kind first, Kind second)
{
    if (first == second)
        return first;
    if (first == Kind::None || second == Kind::None)
        return Kind::None;
    if (first == Kind::String || second == Kind::String)
        return Kind::String;
    if (first == Kind::Vector || second == Kind::Vector)
        return Kind::Vector;
    return Kind::Float;
}

ExpressionCodePointer MakeConditional(
    ExpressionCodePointer condition, ExpressionCodePointer yes, ExpressionCodePointer no)
{
    const auto scalar = [](Kind kind) { return kind >= Kind::Int && kind <= Kind::Vector; };
    if (scalar(yes->GetKind()) && scalar(no->GetKind())) {
        const Kind kind = CommonKind(yes->GetKind(), no->GetKind());
        yes = MakeConversion(kind, std::move(yes));
        no = MakeConversion(kind, std::move(no));
    } else if (yes->GetKind() != no->GetKind()) {
        yes = std::make_unique<AnyConversion>(Kind::None, std::move(yes));
    }
    return std::make_unique<ConditionalCode>(std::move(condition), std::move(yes), std::move(no));
}

ExpressionCodePointer MakeConversion(Kind kind, ExpressionCodePointer operand)
{
    if (operand->GetKind() == kind)
        return operand;
    if (kind == Kind::Int)
        return std::make_unique<IntConversion>(std::move(operand));
    if (kind == Kind::Float)
        return std::make_unique<FloatConversion>(std::move(operand));
    return std::make_unique<AnyConversion>(kind, std::move(operand));
}

ExpressionCodePointer MakeArray(ExpressionCodeList elements)
{
    Kind kind = elements.empty() ? Kind::Int : elements.front()->GetKind();
    for (const ExpressionCodePointer& element : elements)
        kind = CommonKind(kind, element->GetKind());
    // An array without elements takes any kind, so its own is left open.
    const Kind arrayKind = elements.empty() ? Kind::None : ArrayKindOf(kind);
    return std::make_unique<ArrayCode>(arrayKind, std::move(elements));
}

ExpressionCodePointer MakeVector(ExpressionCodeList parts)
{
    return std::make_unique<VectorCode>(std::move(parts));
}

ExpressionCodePointer MakeMatrix(ExpressionCodeList cells, int columns)
{
    return std::make_unique<MatrixCode>(std::move(cells), columns);
}

ExpressionCodePointer MakeComponent(ExpressionCodePointer vector, int component)
{
    return std::make_unique<ComponentCode>(std::move(vector), component);
}

ExpressionCodePointer MakeJoinedText(ExpressionCodeList parts)
{
    return std::make_unique<JoinedText>(std::move(parts));
}

ExpressionCodePointer MakeCatch(ExpressionCodePointer guarded, bool quiet)
{
    return std::make_unique<CatchCode>(std::move(guarded), quiet);
}

} // namespace host::mel
