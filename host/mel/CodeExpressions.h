#pragma once

#include "mel/Ast.h"
#include "mel/Code.h"

// Nodes for everything in expressions but variables and calls.
namespace host::mel {

ExpressionCodePointer MakeConstant(const Value& value);
ExpressionCodePointer MakeUnary(ast::Operator operation, ExpressionCodePointer operand);
ExpressionCodePointer MakeBinary(
    ast::Operator operation, ExpressionCodePointer left, ExpressionCodePointer right);
ExpressionCodePointer MakeConditional(
    ExpressionCodePointer condition, ExpressionCodePointer yes, ExpressionCodePointer no);
/// Gives a value of that kind, or an error. Gives `operand` back when it is of the kind already.
ExpressionCodePointer MakeConversion(Value::Kind kind, ExpressionCodePointer operand);
ExpressionCodePointer MakeArray(ExpressionCodeList elements);
ExpressionCodePointer MakeVector(ExpressionCodeList parts);
/// Row by row; every row has `columns` cells.
ExpressionCodePointer MakeMatrix(ExpressionCodeList cells, int columns);
ExpressionCodePointer MakeComponent(ExpressionCodePointer vector, int component);
ExpressionCodePointer MakeJoinedText(ExpressionCodeList parts);
ExpressionCodePointer MakeCatch(ExpressionCodePointer guarded, bool quiet);

/// The kind that values of both kinds convert to; None when only the values tell.
Value::Kind CommonKind(Value::Kind first, Value::Kind second);

} // namespace host::mel
