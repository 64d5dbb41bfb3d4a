#pragma once

#include "mel/Ast.h"
#include "mel/CodeCalls.h"
#include "mel/CodeVariables.h"
#include "mel/CompileError.h"
#include "mel/Symbol.h"

#include <QHash>

#include <optional>
#include <unordered_map>

namespace host {
class CommandRegistry;
}

namespace host::mel {

class Interpreter;

/// Turns one text into code: finds the place and kind of every variable, so that running needs no
/// names. The global variables and procedures of a text become known when all of it has compiled;
/// after an error nothing has changed. Used once per text.
class Compiler
{
public:
    struct Result
    {
        std::shared_ptr<const Module> module; ///< null after an error
        std::optional<CompileError> error;
    };

    Compiler(Interpreter& interpreter, const CommandRegistry& commands);
    ~Compiler();

    Result Compile(const std::shared_ptr<const Source>& source);

private:
    using Kind = Value::Kind;
    struct Context;
    class ContextScope;
    class BlockScope;

    // Names
    std::optional<Symbol> FindSymbol(const QString& name) const;
    Symbol GetSymbol(const ast::Variable& variable) const;
    Symbol Declare(const QString& name, const Value& initial, Kind kind, int end);
    Symbol DeclareLocal(const QString& name, const Value& initial, Kind kind, int end);
    void WarnOfDuplicate(const QString& name, int end) const;
    Symbol DeclareGlobal(const QString& name, const Value& initial, Kind kind, int end);
    GlobalVariable* FindGlobal(const QString& name) const;
    int AddSlot(const Value& initial);
    bool AtTopLevel() const;
    Kind ResultKindOf(const QString& name) const;
    void Publish();

    // Statements
    void CompileTexts(ast::StatementList statements);
    StatementCodePointer CompileStatement(const ast::Statement& statement);
    StatementCodePointer CompileBody(const ast::Statement& statement);
    StatementCodeList CompileStatements(const ast::StatementList& statements);
    StatementCodePointer CompileBlock(const ast::Block& block);
    StatementCodePointer CompileExpressions(const ast::Expressions& statement);
    StatementCodePointer CompileDeclaration(const ast::Declaration& declaration);
    ExpressionCodePointer CompileDeclarator(
        const ast::Declaration& declaration, const ast::Declarator& declarator);
    ExpressionCodePointer CompileGlobalDeclarator(
        const ast::Declarator& declarator, const Value& initial);
    Value InitialValue(Kind kind, const ast::Declarator& declarator);
    Value InitialMatrix(const ast::Declarator& declarator);
    Value ConstantValue(const ExpressionCode& code, const ast::Declarator& declarator);
    StatementCodePointer CompileProcedure(const ast::Procedure& statement);
    void CompileProcedureBody(const ast::Procedure& statement, Procedure& procedure);
    StatementCodePointer CompileIf(const ast::If& statement);
    StatementCodePointer CompileWhile(const ast::While& statement);
    StatementCodePointer CompileDo(const ast::Do& statement);
    StatementCodePointer CompileFor(const ast::For& statement);
    StatementCodePointer CompileForIn(const ast::ForIn& statement);
    StatementCodePointer CompileSwitch(const ast::Switch& statement);
    StatementCodePointer CompileReturn(const ast::Return& statement);
    StatementCodePointer CompileJump(const ast::Statement& statement, Flow flow);

    // Expressions
    ExpressionCodePointer CompileExpression(const ast::Expression& expression);
    ExpressionCodePointer CompileFor(const ast::Expression& expression, Kind kind);
    ExpressionCodeList CompileList(const ast::ExpressionList& expressions);
    ExpressionCodePointer CompileIndex(const ast::Index& index);
    ExpressionCodePointer CompileBinary(const ast::Binary& binary);
    ExpressionCodePointer CompileConditional(const ast::Conditional& conditional);
    ExpressionCodePointer CompileAssignment(const ast::Assignment& assignment);
    ExpressionCodePointer CompileVariableAssignment(const ast::Assignment& assignment);
    ExpressionCodePointer CompileExtension(const Symbol& symbol, const ast::Assignment& assignment);
    ExpressionCodePointer CompileElementAssignment(const ast::Assignment& assignment);
    ExpressionCodePointer CompileStep(const ast::Step& step);
    ExpressionCodePointer CompileElementChange(const ast::Index& target, ast::Operator operation,
        ExpressionCodePointer value, Yields yields);
    ExpressionCodePointer CompileArray(const ast::Array& array, Kind elementKind);
    ExpressionCodePointer CompileVector(const ast::Vector& vector, Kind kind);
    ExpressionCodePointer CompileCall(const ast::Call& call);
    ExpressionCodePointer CompileCatch(const ast::Call& call);

    int LineOf(const ast::Statement& statement) const;

    Interpreter& m_interpreter;
    const CommandRegistry& m_commands;
    std::shared_ptr<Module> m_module;
    Context* m_context = nullptr; ///< of the procedure or text at hand
    QHash<QString, Procedure*> m_localProcedures; ///< declared so far
    QHash<QString, Procedure*> m_globalProcedures; ///< the first of each name
    std::unordered_map<QString, std::unique_ptr<GlobalVariable>> m_newGlobals;
};

/// What the compiler keeps per procedure, and for the statements outside all of them.
struct Compiler::Context
{
    std::vector<Value>& slots;
    std::vector<QHash<QString, Symbol>> scopes; ///< innermost last
    bool inProcedure = false;
    Kind resultKind = Kind::None;
    bool returnsValue = false; ///< a return statement with a value was seen
    int loops = 0; ///< around the statement at hand
    int switches = 0; ///< inside the innermost loop or outside all
};

/// One pair of braces while it lives.
class Compiler::BlockScope
{
public:
    explicit BlockScope(Compiler& compiler)
        : m_context(*compiler.m_context)
    {
        m_context.scopes.emplace_back();
    }
    ~BlockScope() { m_context.scopes.pop_back(); }
    BlockScope(const BlockScope&) = delete;
    BlockScope& operator=(const BlockScope&) = delete;

private:
    Context& m_context;
};

} // namespace host::mel
