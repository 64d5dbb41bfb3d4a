#pragma once

#include "mel/Ast.h"
#include "mel/Code.h"
#include "mel/Symbol.h"

// Nodes that read and write variables. Those for int and float variables are made for each place a
// variable can live in, as loops spend their time there.
namespace host::mel {

ExpressionCodePointer MakeVariable(const Symbol& symbol);
/// "$x = value" or, with an operation, "$x += value".
ExpressionCodePointer MakeAssignment(
    const Symbol& symbol, ast::Operator operation, ExpressionCodePointer value);
/// "$x = $x + a + b" of a string variable: `parts` are what comes behind it.
ExpressionCodePointer MakeExtension(const Symbol& symbol, ExpressionCodeList parts);
/// "++$x" and the like.
ExpressionCodePointer MakeStep(const Symbol& symbol, int delta, bool prefix);

/// Whether an assignment gives the new value or, as "$a[0]++" does, the old one.
enum class Yields { After, Before };

/// Index `i` of a variable, or of any array.
ExpressionCodePointer MakeElement(ExpressionCodePointer array, ExpressionCodePointer index);
ExpressionCodePointer MakeElementAssignment(ExpressionCodePointer variable,
    ExpressionCodePointer index, ast::Operator operation, ExpressionCodePointer value,
    Yields yields);
ExpressionCodePointer MakeCell(
    ExpressionCodePointer matrix, ExpressionCodePointer row, ExpressionCodePointer column);
ExpressionCodePointer MakeCellAssignment(ExpressionCodePointer matrix, ExpressionCodePointer row,
    ExpressionCodePointer column, ast::Operator operation, ExpressionCodePointer value,
    Yields yields);
/// Makes the variable hold `elements` (may be null: none) default elements.
ExpressionCodePointer MakeReset(
    const Symbol& symbol, const Value& initial, ExpressionCodePointer elements);

} // namespace host::mel
