#include "mel/CodeStatements.h"

#include "mel/Interpreter.h"
#include "mel/Operations.h"

namespace host::mel {

namespace {

class Block : public StatementCode
{
public:
    explicit Block(StatementCodeList statements)
        : m_statements(std::move(statements))
    { }
    Flow Run(Frame& frame) const override
    {
        for (const StatementCodePointer& statement : m_statements) {
            const Flow flow = statement->Run(frame);
            if (flow != Flow::Next)
                return flow;
        }
        return Flow::Next;
    }

private:
    const StatementCodeList m_statements;
};

class Expressions : public StatementCode
{
public:
    Expressions(int line, ExpressionCodeList expressions, bool givesValue)
        : m_line(line)
        , m_expressions(std::move(expressions))
        , m_givesValue(givesValue)
    { }
    Flow Run(Frame& frame) const override
    {
        frame.line = m_line;
        for (const ExpressionCodePointer& expression : m_expressions)
            expression->Execute(frame);
        return Flow::Next;
    }
    Value RunForValue(Frame& frame) const override
    {
        frame.line = m_line;
        Value value;
        for (const ExpressionCodePointer& expression : m_expressions)
            value = expression->Perform(frame);
        return m_givesValue ? value : Value();
    }

private:
    const int m_line;
    const ExpressionCodeList m_expressions;
    const bool m_givesValue;
};

class If : public StatementCode
{
public:
    If(std::vector<BranchCode> branches, StatementCodePointer otherwise)
        : m_branches(std::move(branches))
        , m_otherwise(std::move(otherwise))
    { }
    Flow Run(Frame& frame) const override
    {
        for (const BranchCode& branch : m_branches) {
            frame.line = branch.line;
            if (branch.condition->Truth(frame))
                return branch.body->Run(frame);
        }
        return m_otherwise ? m_otherwise->Run(frame) : Flow::Next;
    }

private:
    const std::vector<BranchCode> m_branches;
    const StatementCodePointer m_otherwise;
};

class Loop : public StatementCode
{
public:
    explicit Loop(LoopCode code)
        : m_code(std::move(code))
    { }
    Flow Run(Frame& frame) const override
    {
        frame.line = m_code.line;
        for (const ExpressionCodePointer& initializer : m_code.initializers)
            initializer->Execute(frame);
        bool first = m_code.bodyFirst;
        while (first || Continues(frame)) {
            first = false;
            const Flow flow = m_code.body->Run(frame);
            if (flow == Flow::Return)
                return flow;
            if (flow == Flow::Break)
                break;
            frame.line = m_code.line;
            frame.interpreter.CountStep();
            for (const ExpressionCodePointer& step : m_code.steps)
                step->Execute(frame);
        }
        return Flow::Next;
    }

private:
    bool Continues(Frame& frame) const
    {
        frame.line = m_code.line;
        bool continues = true;
        for (const ExpressionCodePointer& condition : m_code.conditions)
            continues = condition->Truth(frame);
        return continues;
    }

    const LoopCode m_code;
};

class ForIn : public StatementCode
{
public:
    ForIn(int line, ExpressionCodePointer array, int elementSlot, ExpressionCodePointer assignment,
        StatementCodePointer body)
        : m_line(line)
        , m_array(std::move(array))
        , m_elementSlot(elementSlot)
        , m_assignment(std::move(assignment))
        , m_body(std::move(body))
    { }
    Flow Run(Frame& frame) const override
    {
        frame.line = m_line;
        const Value array = m_array->Evaluate(frame);
        if (!array.IsArray() && !array.IsNone()) {
            frame.interpreter.Raise(
                QStringLiteral("Cannot loop over data of type %1.").arg(KindName(array.GetKind())));
        }
        for (int i = 0, count = array.Count(); i < count; ++i) {
            frame.line = m_line;
            frame.interpreter.CountStep();
            frame.slots[m_elementSlot] = array.At(i);
            m_assignment->Execute(frame);
            const Flow flow = m_body->Run(frame);
            if (flow == Flow::Return)
                return flow;
            if (flow == Flow::Break)
                break;
        }
        return Flow::Next;
    }

private:
    const int m_line;
    const ExpressionCodePointer m_array;
    const int m_elementSlot;
    const ExpressionCodePointer m_assignment;
    const StatementCodePointer m_body;
};

class Switch : public StatementCode
{
public:
    Switch(int line, ExpressionCodePointer control, std::vector<LabelCode> labels,
        StatementCodeList statements)
        : m_line(line)
        , m_control(std::move(control))
        , m_labels(std::move(labels))
        , m_statements(std::move(statements))
    { }
    Flow Run(Frame& frame) const override
    {
        frame.line = m_line;
        for (size_t i = FindStart(frame); i < m_statements.size(); ++i) {
            const Flow flow = m_statements[i]->Run(frame);
            if (flow == Flow::Break)
                break;
            if (flow != Flow::Next)
                return flow;
        }
        return Flow::Next;
    }

private:
    /// "default" may stand anywhere, but counts only when nothing else fits.
    size_t FindStart(Frame& frame) const
    {
        const Value control = m_control->Evaluate(frame);
        size_t start = m_statements.size();
        for (const LabelCode& label : m_labels) {
            if (!label.value) {
                start = label.statement;
                continue;
            }
            const Value value = label.value->Evaluate(frame);
            if (Compare(frame.interpreter, Operator::Equal, control, value))
                return label.statement;
        }
        return start;
    }

    const int m_line;
    const ExpressionCodePointer m_control;
    const std::vector<LabelCode> m_labels;
    const StatementCodeList m_statements;
};

class Jump : public StatementCode
{
public:
    explicit Jump(Flow flow)
        : m_flow(flow)
    { }
    Flow Run(Frame&) const override { return m_flow; }

private:
    const Flow m_flow;
};

class Return : public StatementCode
{
public:
    Return(int line, ExpressionCodePointer value)
        : m_line(line)
        , m_value(std::move(value))
    { }
    Flow Run(Frame& frame) const override
    {
        frame.line = m_line;
        frame.result = m_value->Evaluate(frame);
        return Flow::Return;
    }

private:
    const int m_line;
    const ExpressionCodePointer m_value;
};

class Definition : public StatementCode
{
public:
    explicit Definition(const Procedure& procedure)
        : m_procedure(procedure)
    { }
    Flow Run(Frame& frame) const override
    {
        frame.interpreter.Globals().Define(Share(m_procedure));
        return Flow::Next;
    }

private:
    const Procedure& m_procedure;
};

} // namespace

StatementCodePointer MakeBlock(StatementCodeList statements)
{
    return std::make_unique<Block>(std::move(statements));
}

StatementCodePointer MakeExpressions(int line, ExpressionCodeList expressions, bool givesValue)
{
    return std::make_unique<Expressions>(line, std::move(expressions), givesValue);
}

StatementCodePointer MakeIf(std::vector<BranchCode> branches, StatementCodePointer otherwise)
{
    return std::make_unique<If>(std::move(branches), std::move(otherwise));
}

StatementCodePointer MakeLoop(LoopCode loop)
{
    return std::make_unique<Loop>(std::move(loop));
}

StatementCodePointer MakeForIn(int line, ExpressionCodePointer array, int elementSlot,
    ExpressionCodePointer assignment, StatementCodePointer body)
{
    return std::make_unique<ForIn>(
        line, std::move(array), elementSlot, std::move(assignment), std::move(body));
}

StatementCodePointer MakeSwitch(int line, ExpressionCodePointer control,
    std::vector<LabelCode> labels, StatementCodeList statements)
{
    return std::make_unique<Switch>(
        line, std::move(control), std::move(labels), std::move(statements));
}

StatementCodePointer MakeJump(Flow flow)
{
    return std::make_unique<Jump>(flow);
}

StatementCodePointer MakeReturn(int line, ExpressionCodePointer value)
{
    return std::make_unique<Return>(line, std::move(value));
}

StatementCodePointer MakeDefinition(const Procedure& procedure)
{
    return std::make_unique<Definition>(procedure);
}

} // namespace host::mel
