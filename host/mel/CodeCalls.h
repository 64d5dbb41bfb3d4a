#pragma once

#include "mel/Code.h"
#include "mel/GlobalScope.h"

namespace host::mel {

struct ArgumentCode
{
    ExpressionCodePointer value;
    QString spelling; ///< as typed, of a number or truth word of a command
    bool isFlag = false;
};

/// What the compiler knows of a call.
struct CallSite
{
    QString name;
    int line = 0;
    bool isCommand = false; ///< words, not a list in parentheses
    const Procedure* local = nullptr; ///< of the same text; not owned
    ProcedureCell* cell = nullptr; ///< the global procedure of that name; not owned
    Value::Kind kind = Value::Kind::None; ///< of the result, when it can be told beforehand
    std::vector<ArgumentCode> arguments;
};

/// Calls whatever has the name when it runs: the local procedure, the global one, a function of the
/// language, a command, or what the script path offers.
ExpressionCodePointer MakeCall(CallSite site);

} // namespace host::mel
