#pragma once

#include "engine/Value.h"
#include "mel/Source.h"

#include <memory>
#include <vector>

/// What the compiler makes of a syntax tree: a second tree whose nodes know the places of their
/// variables and run themselves. Numbers of known type travel as plain int and double, without a
/// Value around them. Running never changes a node; a failure leaves as a ScriptError.
namespace host::mel {

class Interpreter;
struct Module;
struct Procedure;

/// The variables of one running procedure or text, and where it is. Lives on the C++ stack.
struct Frame
{
    Interpreter& interpreter;
    const Source* source = nullptr;
    const Procedure* procedure = nullptr; ///< null for a text
    Frame* caller = nullptr;
    Value* slots = nullptr;
    Value** references = nullptr; ///< of array parameters: the caller's variables
    int line = 0; ///< being executed, from 1
    Value result = {}; ///< of a return statement
};

class ExpressionCode
{
public:
    explicit ExpressionCode(Value::Kind kind)
        : m_kind(kind)
    { }
    virtual ~ExpressionCode() = default;

    /// The kind of every value it gives; None when that is known only as it runs.
    Value::Kind GetKind() const { return m_kind; }
    bool IsNumeric() const { return m_kind == Value::Kind::Int || m_kind == Value::Kind::Float; }
    /// Needs no variable and calls nothing: can be worked out while compiling.
    virtual bool IsConstant() const { return false; }

    virtual Value Evaluate(Frame& frame) const = 0;
    virtual int Int(Frame& frame) const;
    virtual double Float(Frame& frame) const;
    virtual bool Truth(Frame& frame) const;
    /// The value is not wanted.
    virtual void Execute(Frame& frame) const { Evaluate(frame); }
    /// The value as that of a whole text: None where Evaluate would complain of a missing one.
    virtual Value Perform(Frame& frame) const { return Evaluate(frame); }
    /// The variable itself; null for anything else.
    virtual Value* Reference(Frame&) const { return nullptr; }

private:
    const Value::Kind m_kind;
};

using ExpressionCodePointer = std::unique_ptr<ExpressionCode>;
using ExpressionCodeList = std::vector<ExpressionCodePointer>;

/// How a statement ended.
enum class Flow { Next, Break, Continue, Return };

class StatementCode
{
public:
    virtual ~StatementCode() = default;
    virtual Flow Run(Frame& frame) const = 0;
    /// The last statement of a text: gives its value, None when it has none.
    virtual Value RunForValue(Frame& frame) const
    {
        return Run(frame) == Flow::Return ? frame.result : Value();
    }
};

using StatementCodePointer = std::unique_ptr<StatementCode>;
using StatementCodeList = std::vector<StatementCodePointer>;

struct Procedure
{
    QString name;
    const Module* module = nullptr; ///< owns it
    int line = 0;
    Value::Kind resultKind = Value::Kind::None;
    /// Parameter i lives in slot i; an array is reached through reference i.
    std::vector<Value::Kind> parameters;
    std::vector<Value> slots; ///< what its variables hold at first
    StatementCodePointer body;
};

/// A compiled text. Lives as long as it runs or one of its global procedures is known.
struct Module : std::enable_shared_from_this<Module>
{
    std::shared_ptr<const Source> source;
    std::vector<std::unique_ptr<Procedure>> procedures;
    std::vector<Value> slots;
    StatementCodeList statements;
};

/// Shares the procedure together with the module that it needs.
std::shared_ptr<const Procedure> Share(const Procedure& procedure);

} // namespace host::mel
