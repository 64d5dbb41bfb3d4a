// Expressions.

#include "mel/CodeExpressions.h"
#include "mel/Compiler.h"
#include "mel/Interpreter.h"

namespace host::mel {

namespace {

template <typename T>
const T& As(const ast::Expression& expression)
{
    Q_ASSERT(expression.type == T::THE_TYPE);
    return static_cast<const T&>(expression);
}

bool IsArrayKind(Value::Kind kind)
{
    return kind >= Value::Kind::IntArray;
}

} // namespace

ExpressionCodePointer Compiler::CompileExpression(const ast::Expression& expression)
{
    using Type = ast::Expression::Type;
    switch (expression.type) {
    case Type::Literal: return MakeConstant(As<ast::Literal>(expression).value);
    case Type::Variable: return MakeVariable(GetSymbol(As<ast::Variable>(expression)));
    case Type::Index: return CompileIndex(As<ast::Index>(expression));
    case Type::Component: {
        const auto& component = As<ast::Component>(expression);
        return MakeComponent(CompileExpression(*component.base), component.component);
    }
    case Type::Unary: {
        const auto& unary = As<ast::Unary>(expression);
        return MakeUnary(unary.operation, CompileExpression(*unary.operand));
    }
    case Type::Binary: return CompileBinary(As<ast::Binary>(expression));
    case Type::Conditional: return CompileConditional(As<ast::Conditional>(expression));
    case Type::Assignment: return CompileAssignment(As<ast::Assignment>(expression));
    case Type::Step: return CompileStep(As<ast::Step>(expression));
    case Type::Cast: {
        const auto& cast = As<ast::Cast>(expression);
        return MakeConversion(cast.kind, CompileExpression(*cast.operand));
    }
    case Type::Call: return CompileCall(As<ast::Call>(expression));
    case Type::Array: return CompileArray(As<ast::Array>(expression), Kind::None);
    case Type::Vector: return CompileVector(As<ast::Vector>(expression), Kind::None);
    case Type::Pieces: return MakeJoinedText(CompileList(As<ast::Pieces>(expression).parts));
    }
    return nullptr;
}

/// For a target of that kind: the elements of an array literal are converted one by one.
ExpressionCodePointer Compiler::CompileFor(const ast::Expression& expression, Kind kind)
{
    if (expression.type == ast::Expression::Type::Array && IsArrayKind(kind))
        return CompileArray(As<ast::Array>(expression), ElementKindOf(kind));
    if (expression.type == ast::Expression::Type::Vector && kind == Kind::Matrix)
        return CompileVector(As<ast::Vector>(expression), kind);
    return CompileExpression(expression);
}

ExpressionCodeList Compiler::CompileList(const ast::ExpressionList& expressions)
{
    ExpressionCodeList code;
    code.reserve(expressions.size());
    for (const ast::ExpressionPointer& expression : expressions)
        code.push_back(CompileExpression(*expression));
    return code;
}

ExpressionCodePointer Compiler::CompileIndex(const ast::Index& index)
{
    if (index.base->type == ast::Expression::Type::Index) {
        const auto& row = As<ast::Index>(*index.base);
        return MakeCell(CompileExpression(*row.base), CompileExpression(*row.index),
            CompileExpression(*index.index));
    }
    ExpressionCodePointer array = CompileExpression(*index.base);
    if (array->GetKind() != Kind::None && !IsArrayKind(array->GetKind())) {
        throw CompileError{index.end,
            QStringLiteral("Data of type %1 has no elements.").arg(KindName(array->GetKind()))};
    }
    return MakeElement(std::move(array), CompileExpression(*index.index));
}

ExpressionCodePointer Compiler::CompileBinary(const ast::Binary& binary)
{
    ExpressionCodePointer left = CompileExpression(*binary.left);
    return MakeBinary(binary.operation, std::move(left), CompileExpression(*binary.right));
}

ExpressionCodePointer Compiler::CompileConditional(const ast::Conditional& conditional)
{
    ExpressionCodePointer condition = CompileExpression(*conditional.condition);
    ExpressionCodePointer yes = CompileExpression(*conditional.yes);
    return MakeConditional(
        std::move(condition), std::move(yes), CompileExpression(*conditional.no));
}

ExpressionCodePointer Compiler::CompileAssignment(const ast::Assignment& assignment)
{
    switch (assignment.target->type) {
    case ast::Expression::Type::Variable: return CompileVariableAssignment(assignment);
    case ast::Expression::Type::Index: return CompileElementAssignment(assignment);
    case ast::Expression::Type::Component:
        throw CompileError{
            assignment.end, QStringLiteral("Components of a vector cannot be assigned.")};
    default: throw CompileError{assignment.end, QStringLiteral("Syntax error")};
    }
}

/// "$text = $text + a + b" as what it means; null for anything else.
ExpressionCodePointer Compiler::CompileExtension(
    const Symbol& symbol, const ast::Assignment& assignment)
{
    std::vector<const ast::Expression*> pieces; // the last one first
    const ast::Expression* left = assignment.value.get();
    while (left->type == ast::Expression::Type::Binary
        && As<ast::Binary>(*left).operation == ast::Operator::Add) {
        pieces.push_back(As<ast::Binary>(*left).right.get());
        left = As<ast::Binary>(*left).left.get();
    }
    const QString& name = As<ast::Variable>(*assignment.target).name;
    const bool extends = left->type == ast::Expression::Type::Variable
        && As<ast::Variable>(*left).name == name && !pieces.empty();
    if (!extends || symbol.kind != Kind::String || assignment.operation != ast::Operator::None)
        return nullptr;
    ExpressionCodeList parts;
    for (auto piece = pieces.rbegin(); piece != pieces.rend(); ++piece)
        parts.push_back(CompileExpression(**piece));
    return MakeExtension(symbol, std::move(parts));
}

ExpressionCodePointer Compiler::CompileVariableAssignment(const ast::Assignment& assignment)
{
    const auto& variable = As<ast::Variable>(*assignment.target);
    std::optional<Symbol> symbol = FindSymbol(variable.name);
    if (symbol) {
        if (ExpressionCodePointer extension = CompileExtension(*symbol, assignment))
            return extension;
    }
    if (!symbol && assignment.operation != ast::Operator::None)
        symbol = GetSymbol(variable);
    ExpressionCodePointer value = CompileFor(*assignment.value, symbol ? symbol->kind : Kind::None);
    if (!symbol)
        symbol = FindSymbol(variable.name); // The value may have declared it: "$a = ($a = 1)".
    if (!symbol) {
        const Kind kind = value->GetKind();
        // How large a matrix is shows only in its value.
        const Value initial = kind == Kind::Matrix ? Value() : Value::Default(kind);
        symbol = Declare(
            variable.name, initial, kind == Kind::Matrix ? Kind::None : kind, variable.end);
    }
    return MakeAssignment(*symbol, assignment.operation, std::move(value));
}

ExpressionCodePointer Compiler::CompileElementAssignment(const ast::Assignment& assignment)
{
    const auto& target = As<ast::Index>(*assignment.target);
    ExpressionCodePointer value = CompileExpression(*assignment.value);
    if (target.base->type == ast::Expression::Type::Variable) {
        const auto& variable = As<ast::Variable>(*target.base);
        const Kind kind = ArrayKindOf(value->GetKind());
        if (!FindSymbol(variable.name) && assignment.operation == ast::Operator::None)
            Declare(variable.name, Value::Default(kind), kind, variable.end);
    }
    return CompileElementChange(target, assignment.operation, std::move(value), Yields::After);
}

ExpressionCodePointer Compiler::CompileElementChange(
    const ast::Index& target, ast::Operator operation, ExpressionCodePointer value, Yields yields)
{
    const bool isCell = target.base->type == ast::Expression::Type::Index;
    const ast::Expression& base = isCell ? *As<ast::Index>(*target.base).base : *target.base;
    if (base.type != ast::Expression::Type::Variable)
        throw CompileError{target.end, QStringLiteral("Syntax error")};
    const Symbol symbol = GetSymbol(As<ast::Variable>(base));
    const bool fits = isCell ? symbol.kind == Kind::Matrix : IsArrayKind(symbol.kind);
    if (symbol.kind != Kind::None && !fits) {
        throw CompileError{target.end,
            QStringLiteral("Data of type %1 has no elements.").arg(KindName(symbol.kind))};
    }
    ExpressionCodePointer index = CompileExpression(*target.index);
    if (!isCell) {
        return MakeElementAssignment(
            MakeVariable(symbol), std::move(index), operation, std::move(value), yields);
    }
    return MakeCellAssignment(MakeVariable(symbol),
        CompileExpression(*As<ast::Index>(*target.base).index), std::move(index), operation,
        std::move(value), yields);
}

ExpressionCodePointer Compiler::CompileStep(const ast::Step& step)
{
    if (step.target->type == ast::Expression::Type::Index) {
        return CompileElementChange(As<ast::Index>(*step.target), ast::Operator::Add,
            MakeConstant(step.delta), step.prefix ? Yields::After : Yields::Before);
    }
    if (step.target->type != ast::Expression::Type::Variable)
        throw CompileError{step.end, QStringLiteral("Syntax error")};
    return MakeStep(GetSymbol(As<ast::Variable>(*step.target)), step.delta, step.prefix);
}

ExpressionCodePointer Compiler::CompileArray(const ast::Array& array, Kind elementKind)
{
    ExpressionCodeList elements = CompileList(array.elements);
    for (ExpressionCodePointer& element : elements) {
        if (elementKind != Kind::None)
            element = MakeConversion(elementKind, std::move(element));
    }
    return MakeArray(std::move(elements));
}

/// One short row is a vector, unless a matrix is wanted.
ExpressionCodePointer Compiler::CompileVector(const ast::Vector& vector, Kind kind)
{
    constexpr size_t VECTOR_PARTS = 3;
    ExpressionCodeList cells;
    const size_t columns = vector.rows.front().size();
    for (const ast::ExpressionList& row : vector.rows) {
        if (row.size() != columns) {
            throw CompileError{
                vector.end, QStringLiteral("The rows of a matrix must have the same length.")};
        }
        for (ExpressionCodePointer& cell : CompileList(row))
            cells.push_back(std::move(cell));
    }
    if (vector.rows.size() == 1 && columns <= VECTOR_PARTS && kind != Kind::Matrix)
        return MakeVector(std::move(cells));
    return MakeMatrix(std::move(cells), static_cast<int>(columns));
}

ExpressionCodePointer Compiler::CompileCall(const ast::Call& call)
{
    if (call.name == QLatin1String("catch") || call.name == QLatin1String("catchQuiet"))
        return CompileCatch(call);
    CallSite site;
    site.name = call.name;
    site.line = m_module->source->LineOf(call.offset);
    site.isCommand = call.isCommand;
    site.local = m_localProcedures.value(call.name);
    site.cell = &m_interpreter.Globals().Cell(call.name);
    site.kind = ResultKindOf(call.name);
    for (const ast::Argument& argument : call.arguments) {
        site.arguments.push_back(
            {CompileExpression(*argument.value), argument.spelling, argument.isFlag});
    }
    return MakeCall(std::move(site));
}

/// The argument of catch must not be worked out before, so it is a form and no function.
ExpressionCodePointer Compiler::CompileCatch(const ast::Call& call)
{
    if (call.arguments.size() != 1) {
        throw CompileError{
            call.end, QStringLiteral("Wrong number of arguments on call to %1.").arg(call.name)};
    }
    return MakeCatch(
        CompileExpression(*call.arguments.front().value), call.name == QLatin1String("catchQuiet"));
}

} // namespace host::mel
