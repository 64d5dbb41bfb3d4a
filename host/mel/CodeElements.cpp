// Nodes for the elements of arrays and the cells of matrices.

#include "mel/Arrays.h"
#include "mel/CodeVariables.h"
#include "mel/Interpreter.h"
#include "mel/Operations.h"

namespace host::mel {

namespace {

using Kind = Value::Kind;

Kind ElementKind(Kind array)
{
    return array == Kind::None ? Kind::None : ElementKindOf(array);
}

/// Reads without copying the array when it is a variable.
class ElementCode : public ExpressionCode
{
public:
    ElementCode(ExpressionCodePointer array, ExpressionCodePointer index)
        : ExpressionCode(ElementKind(array->GetKind()))
        , m_array(std::move(array))
        , m_index(std::move(index))
    { }
    Value Evaluate(Frame& frame) const override
    {
        const int index = m_index->Int(frame);
        if (const Value* variable = m_array->Reference(frame))
            return Element(frame.interpreter, *variable, index);
        return Element(frame.interpreter, m_array->Evaluate(frame), index);
    }
    int Int(Frame& frame) const override
    {
        const Value* variable = m_array->Reference(frame);
        if (!variable || m_array->GetKind() != Kind::IntArray)
            return ExpressionCode::Int(frame);
        return AtOrZero(frame, variable->Get<IntList>(), m_index->Int(frame));
    }
    double Float(Frame& frame) const override
    {
        const Value* variable = m_array->Reference(frame);
        if (!variable || m_array->GetKind() != Kind::FloatArray)
            return ExpressionCode::Float(frame);
        return AtOrZero(frame, variable->Get<FloatList>(), m_index->Int(frame));
    }

private:
    template <typename T>
    static T AtOrZero(Frame& frame, const QVector<T>& list, int index)
    {
        if (index < 0)
            CheckIndex(frame.interpreter, index);
        return index < list.size() ? list.at(index) : T();
    }

    const ExpressionCodePointer m_array;
    const ExpressionCodePointer m_index;
};

class ElementAssignment : public ExpressionCode
{
public:
    ElementAssignment(ExpressionCodePointer variable, ExpressionCodePointer index,
        Operator operation, ExpressionCodePointer value, Yields yields)
        : ExpressionCode(ElementKind(variable->GetKind()))
        , m_variable(std::move(variable))
        , m_index(std::move(index))
        , m_operation(operation)
        , m_value(std::move(value))
        , m_yields(yields)
    { }
    Value Evaluate(Frame& frame) const override
    {
        const int index = m_index->Int(frame);
        Value value = m_value->Evaluate(frame);
        Value& array = *m_variable->Reference(frame);
        if (array.IsNone()) // The first element decides what kind of array it is.
            array = Value::Default(ArrayKindOf(value.GetKind()));
        Value before;
        if (m_operation != Operator::None) {
            before = Element(frame.interpreter, array, index);
            value = Apply(frame.interpreter, m_operation, before, value);
        }
        SetElement(frame.interpreter, array, index, value);
        return m_yields == Yields::Before ? before : Element(frame.interpreter, array, index);
    }

private:
    const ExpressionCodePointer m_variable;
    const ExpressionCodePointer m_index;
    const Operator m_operation;
    const ExpressionCodePointer m_value;
    const Yields m_yields;
};

class CellCode : public ExpressionCode
{
public:
    CellCode(ExpressionCodePointer matrix, ExpressionCodePointer row, ExpressionCodePointer column)
        : ExpressionCode(Kind::Float)
        , m_matrix(std::move(matrix))
        , m_row(std::move(row))
        , m_column(std::move(column))
    { }
    Value Evaluate(Frame& frame) const override { return Float(frame); }
    int Int(Frame& frame) const override { return Truncate(Float(frame)); }
    double Float(Frame& frame) const override
    {
        const int row = m_row->Int(frame);
        const int column = m_column->Int(frame);
        if (Value* variable = m_matrix->Reference(frame))
            return Cell(frame.interpreter, *variable, row, column);
        Value matrix = m_matrix->Evaluate(frame);
        return Cell(frame.interpreter, matrix, row, column);
    }

private:
    const ExpressionCodePointer m_matrix;
    const ExpressionCodePointer m_row;
    const ExpressionCodePointer m_column;
};

class CellAssignment : public ExpressionCode
{
public:
    CellAssignment(ExpressionCodePointer matrix, ExpressionCodePointer row,
        ExpressionCodePointer column, Operator operation, ExpressionCodePointer value,
        Yields yields)
        : ExpressionCode(Kind::Float)
        , m_matrix(std::move(matrix))
        , m_row(std::move(row))
        , m_column(std::move(column))
        , m_operation(operation)
        , m_value(std::move(value))
        , m_yields(yields)
    { }
    Value Evaluate(Frame& frame) const override
    {
        const int row = m_row->Int(frame);
        const int column = m_column->Int(frame);
        const double value = m_value->Float(frame);
        double& cell = Cell(frame.interpreter, *m_matrix->Reference(frame), row, column);
        const double before = cell;
        cell = m_operation == Operator::None
            ? value
            : ApplyFloat(frame.interpreter, m_operation, cell, value);
        return m_yields == Yields::Before ? before : cell;
    }

private:
    const ExpressionCodePointer m_matrix;
    const ExpressionCodePointer m_row;
    const ExpressionCodePointer m_column;
    const Operator m_operation;
    const ExpressionCodePointer m_value;
    const Yields m_yields;
};

} // namespace

ExpressionCodePointer MakeElement(ExpressionCodePointer array, ExpressionCodePointer index)
{
    return std::make_unique<ElementCode>(std::move(array), std::move(index));
}

ExpressionCodePointer MakeElementAssignment(ExpressionCodePointer variable,
    ExpressionCodePointer index, Operator operation, ExpressionCodePointer value, Yields yields)
{
    return std::make_unique<ElementAssignment>(
        std::move(variable), std::move(index), operation, std::move(value), yields);
}

ExpressionCodePointer MakeCell(
    ExpressionCodePointer matrix, ExpressionCodePointer row, ExpressionCodePointer column)
{
    return std::make_unique<CellCode>(std::move(matrix), std::move(row), std::move(column));
}

ExpressionCodePointer MakeCellAssignment(ExpressionCodePointer matrix, ExpressionCodePointer row,
    ExpressionCodePointer column, Operator operation, ExpressionCodePointer value, Yields yields)
{
    return std::make_unique<CellAssignment>(
        std::move(matrix), std::move(row), std::move(column), operation, std::move(value), yields);
}

} // namespace host::mel
