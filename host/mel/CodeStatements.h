#pragma once

#include "mel/Code.h"

namespace host::mel {

// Each node notes the line it begins on while it runs.

StatementCodePointer MakeBlock(StatementCodeList statements);
/// `givesValue`: the value of the last expression counts as that of the text.
StatementCodePointer MakeExpressions(int line, ExpressionCodeList expressions, bool givesValue);

struct BranchCode
{
    int line = 0;
    ExpressionCodePointer condition;
    StatementCodePointer body;
};
/// `otherwise` may be null.
StatementCodePointer MakeIf(std::vector<BranchCode> branches, StatementCodePointer otherwise);

struct LoopCode
{
    int line = 0;
    ExpressionCodeList initializers;
    ExpressionCodeList conditions; ///< all are worked out, the last decides; none is true
    ExpressionCodeList steps;
    StatementCodePointer body;
    bool bodyFirst = false; ///< "do ... while"
};
StatementCodePointer MakeLoop(LoopCode loop);
/// `assignment` assigns the element that it reads from `element`, a hidden variable of the loop.
StatementCodePointer MakeForIn(int line, ExpressionCodePointer array, int elementSlot,
    ExpressionCodePointer assignment, StatementCodePointer body);

struct LabelCode
{
    ExpressionCodePointer value; ///< null for "default"
    size_t statement = 0;
};
StatementCodePointer MakeSwitch(int line, ExpressionCodePointer control,
    std::vector<LabelCode> labels, StatementCodeList statements);

/// Break, continue, or return without a value.
StatementCodePointer MakeJump(Flow flow);
StatementCodePointer MakeReturn(int line, ExpressionCodePointer value);
/// Makes a procedure known when it is reached.
StatementCodePointer MakeDefinition(const Procedure& procedure);

} // namespace host::mel
