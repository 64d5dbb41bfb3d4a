// Statements and declarations.

#include "mel/Arrays.h"
#include "mel/CodeExpressions.h"
#include "mel/CodeStatements.h"
#include "mel/Compiler.h"
#include "mel/Interpreter.h"

#include <QScopedValueRollback>

namespace host::mel {

namespace {

template <typename T>
const T& As(const ast::Statement& statement)
{
    Q_ASSERT(statement.type == T::THE_TYPE);
    return static_cast<const T&>(statement);
}

} // namespace

StatementCodePointer Compiler::CompileStatement(const ast::Statement& statement)
{
    using Type = ast::Statement::Type;
    switch (statement.type) {
    case Type::Empty: return MakeBlock({});
    case Type::Block: return CompileBlock(As<ast::Block>(statement));
    case Type::Procedure: return CompileProcedure(As<ast::Procedure>(statement));
    case Type::Declaration: return CompileDeclaration(As<ast::Declaration>(statement));
    case Type::If: return CompileIf(As<ast::If>(statement));
    case Type::While: return CompileWhile(As<ast::While>(statement));
    case Type::Do: return CompileDo(As<ast::Do>(statement));
    case Type::For: return CompileFor(As<ast::For>(statement));
    case Type::ForIn: return CompileForIn(As<ast::ForIn>(statement));
    case Type::Switch: return CompileSwitch(As<ast::Switch>(statement));
    case Type::Return: return CompileReturn(As<ast::Return>(statement));
    case Type::Break: return CompileJump(statement, Flow::Break);
    case Type::Continue: return CompileJump(statement, Flow::Continue);
    case Type::Expressions: return CompileExpressions(As<ast::Expressions>(statement));
    }
    return nullptr;
}

StatementCodeList Compiler::CompileStatements(const ast::StatementList& statements)
{
    StatementCodeList code;
    for (const ast::StatementPointer& statement : statements)
        code.push_back(CompileStatement(*statement));
    return code;
}

StatementCodePointer Compiler::CompileBlock(const ast::Block& block)
{
    const BlockScope scope(*this);
    return MakeBlock(CompileStatements(block.statements));
}

/// The body of a loop, in which break and continue are allowed.
StatementCodePointer Compiler::CompileBody(const ast::Statement& statement)
{
    const QScopedValueRollback<int> loops(m_context->loops, m_context->loops + 1);
    return CompileStatement(statement);
}

StatementCodePointer Compiler::CompileExpressions(const ast::Expressions& statement)
{
    return MakeExpressions(LineOf(statement), CompileList(statement.expressions), true);
}

StatementCodePointer Compiler::CompileDeclaration(const ast::Declaration& declaration)
{
    ExpressionCodeList code;
    for (const ast::Declarator& declarator : declaration.declarators) {
        if (ExpressionCodePointer expression = CompileDeclarator(declaration, declarator))
            code.push_back(std::move(expression));
    }
    return MakeExpressions(LineOf(declaration), std::move(code), true);
}

Value Compiler::ConstantValue(const ExpressionCode& code, const ast::Declarator& declarator)
{
    if (!code.IsConstant()) {
        throw CompileError{declarator.end,
            QStringLiteral("\"%1\" can only be given constant values here.").arg(declarator.name)};
    }
    Frame frame{m_interpreter};
    return code.Evaluate(frame);
}

Value Compiler::InitialMatrix(const ast::Declarator& declarator)
{
    if (declarator.sizes.size() != 2 || !declarator.sizes[0] || !declarator.sizes[1]) {
        throw CompileError{
            declarator.end, QStringLiteral("Matrix \"%1\" needs two sizes.").arg(declarator.name)};
    }
    const int rows = ConstantValue(*CompileExpression(*declarator.sizes[0]), declarator).ToInt();
    const int columns = ConstantValue(*CompileExpression(*declarator.sizes[1]), declarator).ToInt();
    if (rows < 1 || columns < 1 || qint64(rows) * columns > MAXIMUM_ELEMENTS) {
        throw CompileError{declarator.end,
            QStringLiteral("The sizes of matrix \"%1\" are out of range.").arg(declarator.name)};
    }
    return Matrix{rows, columns, QVector<double>(rows * columns, 0.0)};
}

Value Compiler::InitialValue(Kind kind, const ast::Declarator& declarator)
{
    if (kind == Kind::Matrix)
        return InitialMatrix(declarator);
    if (declarator.sizes.size() > 1)
        throw CompileError{declarator.end, QStringLiteral("Arrays have one dimension only.")};
    return Value::Default(declarator.sizes.empty() ? kind : ArrayKindOf(kind));
}

ExpressionCodePointer Compiler::CompileDeclarator(
    const ast::Declaration& declaration, const ast::Declarator& declarator)
{
    const Value initial = InitialValue(declaration.kind, declarator);
    if (declaration.isGlobal)
        return CompileGlobalDeclarator(declarator, initial);
    // The variable is not known yet to its own first value.
    ExpressionCodePointer value
        = declarator.value ? CompileFor(*declarator.value, initial.GetKind()) : nullptr;
    const bool sized = initial.IsArray() && declarator.sizes.front();
    ExpressionCodePointer size
        = sized && !value ? CompileExpression(*declarator.sizes.front()) : nullptr;
    const bool known = AtTopLevel() && FindGlobal(declarator.name);
    const Symbol symbol = Declare(declarator.name, initial, initial.GetKind(), declarator.end);
    if (value)
        return MakeAssignment(symbol, ast::Operator::None, std::move(value));
    // Declared again at the top level, a variable keeps its value.
    return known ? nullptr : MakeReset(symbol, initial, std::move(size));
}

/// A global variable gets its first value once, when it is made, and no code runs for it.
ExpressionCodePointer Compiler::CompileGlobalDeclarator(
    const ast::Declarator& declarator, const Value& initial)
{
    Value first = initial;
    const bool isNew = FindGlobal(declarator.name) == nullptr;
    const Kind kind = initial.GetKind();
    if (declarator.value) {
        const ExpressionCodePointer value = CompileFor(*declarator.value, kind);
        if (isNew)
            first = ConstantValue(
                *MakeConversion(kind, CompileFor(*declarator.value, kind)), declarator);
    } else if (initial.IsArray() && declarator.sizes.front()) {
        const ExpressionCodePointer size = CompileExpression(*declarator.sizes.front());
        if (isNew)
            Resize(m_interpreter, first, ConstantValue(*size, declarator).ToInt());
    }
    DeclareGlobal(declarator.name, first, kind, declarator.end);
    return nullptr;
}

StatementCodePointer Compiler::CompileProcedure(const ast::Procedure& statement)
{
    auto made = std::make_unique<Procedure>();
    Procedure& procedure = *made;
    m_module->procedures.push_back(std::move(made));
    procedure.name = statement.name;
    procedure.module = m_module.get();
    procedure.line = LineOf(statement);
    procedure.resultKind = statement.resultKind;
    for (const ast::Parameter& parameter : statement.parameters)
        procedure.parameters.push_back(parameter.kind);
    const bool atTop = AtTopLevel();
    const bool first = !m_globalProcedures.contains(statement.name);
    if (!statement.isGlobal)
        m_localProcedures.insert(statement.name, &procedure);
    else if (atTop && first)
        m_globalProcedures.insert(statement.name, &procedure);
    CompileProcedureBody(statement, procedure);
    // The first definition in a text is known as soon as it has compiled; all others when reached.
    const bool whenReached = statement.isGlobal && !(atTop && first);
    return whenReached ? MakeDefinition(procedure) : MakeBlock({});
}

void Compiler::CompileProcedureBody(const ast::Procedure& statement, Procedure& procedure)
{
    Context context{procedure.slots, {{}}, true, statement.resultKind};
    const QScopedValueRollback<Context*> inside(m_context, &context);
    for (const ast::Parameter& parameter : statement.parameters) {
        const int slot = AddSlot(Value::Default(parameter.kind));
        const bool isArray = ElementKindOf(parameter.kind) != parameter.kind;
        const auto storage = isArray ? Symbol::Storage::Reference : Symbol::Storage::Local;
        if (context.scopes.back().contains(parameter.name)) {
            throw CompileError{parameter.end,
                QStringLiteral("Parameter \"%1\" is named twice.").arg(parameter.name)};
        }
        context.scopes.back().insert(
            parameter.name, Symbol{storage, slot, nullptr, parameter.kind});
    }
    procedure.body = MakeBlock(CompileStatements(statement.body->statements));
    if (statement.resultKind != Kind::None && !context.returnsValue) {
        throw CompileError{
            statement.end, QStringLiteral("Procedure is missing a return statement.")};
    }
}

StatementCodePointer Compiler::CompileIf(const ast::If& statement)
{
    std::vector<BranchCode> branches;
    for (const ast::If::Branch& branch : statement.branches) {
        BranchCode code;
        code.line = m_module->source->LineOf(branch.condition->offset);
        code.condition = CompileExpression(*branch.condition);
        code.body = CompileStatement(*branch.body);
        branches.push_back(std::move(code));
    }
    StatementCodePointer otherwise
        = statement.otherwise ? CompileStatement(*statement.otherwise) : nullptr;
    return MakeIf(std::move(branches), std::move(otherwise));
}

StatementCodePointer Compiler::CompileWhile(const ast::While& statement)
{
    LoopCode loop;
    loop.line = LineOf(statement);
    loop.conditions.push_back(CompileExpression(*statement.condition));
    loop.body = CompileBody(*statement.body);
    return MakeLoop(std::move(loop));
}

StatementCodePointer Compiler::CompileDo(const ast::Do& statement)
{
    LoopCode loop;
    loop.line = LineOf(statement);
    loop.bodyFirst = true;
    loop.body = CompileBody(*statement.body);
    loop.conditions.push_back(CompileExpression(*statement.condition));
    return MakeLoop(std::move(loop));
}

StatementCodePointer Compiler::CompileFor(const ast::For& statement)
{
    LoopCode loop;
    loop.line = LineOf(statement);
    loop.initializers = CompileList(statement.initializers);
    loop.conditions = CompileList(statement.conditions);
    // A variable that the body assigns first may be read by the step, so the body comes first.
    loop.body = CompileBody(*statement.body);
    loop.steps = CompileList(statement.steps);
    return MakeLoop(std::move(loop));
}

StatementCodePointer Compiler::CompileForIn(const ast::ForIn& statement)
{
    ExpressionCodePointer array = CompileExpression(*statement.array);
    const Kind arrayKind = array->GetKind();
    const Kind kind = arrayKind == Kind::None ? Kind::None : ElementKindOf(arrayKind);
    const Symbol element{Symbol::Storage::Local, AddSlot(Value::Default(kind)), nullptr, kind};
    std::optional<Symbol> symbol = FindSymbol(statement.variable->name);
    if (!symbol) {
        symbol = Declare(
            statement.variable->name, Value::Default(kind), kind, statement.variable->end);
    }
    ExpressionCodePointer assignment
        = MakeAssignment(*symbol, ast::Operator::None, MakeVariable(element));
    StatementCodePointer body = CompileBody(*statement.body);
    return MakeForIn(
        LineOf(statement), std::move(array), element.index, std::move(assignment), std::move(body));
}

StatementCodePointer Compiler::CompileSwitch(const ast::Switch& statement)
{
    const QScopedValueRollback<int> switches(m_context->switches, m_context->switches + 1);
    ExpressionCodePointer control = CompileExpression(*statement.control);
    const BlockScope scope(*this);
    std::vector<LabelCode> labels;
    for (const ast::Switch::Label& label : statement.labels)
        labels.push_back(
            {label.value ? CompileExpression(*label.value) : nullptr, label.statement});
    return MakeSwitch(LineOf(statement), std::move(control), std::move(labels),
        CompileStatements(statement.statements));
}

StatementCodePointer Compiler::CompileReturn(const ast::Return& statement)
{
    if (!statement.value)
        return MakeReturn(LineOf(statement), MakeConstant(Value::Default(m_context->resultKind)));
    if (m_context->inProcedure && m_context->resultKind == Kind::None) {
        throw CompileError{statement.end,
            QStringLiteral("A procedure without a return type cannot return a value.")};
    }
    m_context->returnsValue = true;
    ExpressionCodePointer value = CompileFor(*statement.value, m_context->resultKind);
    if (m_context->inProcedure)
        value = MakeConversion(m_context->resultKind, std::move(value));
    return MakeReturn(LineOf(statement), std::move(value));
}

StatementCodePointer Compiler::CompileJump(const ast::Statement& statement, Flow flow)
{
    const bool allowed = m_context->loops > 0 || (flow == Flow::Break && m_context->switches > 0);
    if (!allowed) {
        const QString word
            = flow == Flow::Break ? QStringLiteral("break") : QStringLiteral("continue");
        throw CompileError{
            statement.end, QStringLiteral("\"%1\" stands outside of a loop.").arg(word)};
    }
    return MakeJump(flow);
}

} // namespace host::mel
