// Names: variables, procedures and when they become known.

#include "mel/Compiler.h"

#include "engine/Engine.h"
#include "mel/Interpreter.h"
#include "mel/Parser.h"

namespace host::mel {

Compiler::Compiler(Interpreter& interpreter, const CommandRegistry& commands)
    : m_interpreter(interpreter)
    , m_commands(commands)
{ }

Compiler::~Compiler() = default;

Compiler::Result Compiler::Compile(const std::shared_ptr<const Source>& source)
{
    const GlobalScope& globals = m_interpreter.Globals();
    Parser parser(source->Text(), [&](const QString& name) {
        return !globals.FindProcedure(name) && m_commands.FindCommand(name) != nullptr;
    });
    Parser::Result parsed = parser.Parse();
    m_module = std::make_shared<Module>();
    m_module->source = source;
    try {
        Context context{m_module->slots, {{}}};
        m_context = &context;
        CompileTexts(std::move(parsed.statements));
    } catch (const CompileError& error) {
        return {nullptr, error};
    }
    // What comes first in the text is told first, so the parser's error waited.
    if (parsed.error)
        return {nullptr, parsed.error};
    Publish();
    return {m_module, std::nullopt};
}

void Compiler::Publish()
{
    GlobalScope& globals = m_interpreter.Globals();
    for (auto& [name, variable] : m_newGlobals)
        globals.AddVariable(name, std::move(variable));
    for (const Procedure* procedure : qAsConst(m_globalProcedures))
        globals.Define(Share(*procedure));
}

/// Each statement's tree goes as soon as it is compiled, so that its memory serves the next one.
void Compiler::CompileTexts(ast::StatementList statements)
{
    for (ast::StatementPointer& statement : statements) {
        if (statement->type != ast::Statement::Type::Empty)
            m_module->statements.push_back(CompileStatement(*statement));
        statement.reset();
    }
}

int Compiler::LineOf(const ast::Statement& statement) const
{
    return m_module->source->LineOf(statement.offset);
}

bool Compiler::AtTopLevel() const
{
    return !m_context->inProcedure && m_context->scopes.size() == 1;
}

GlobalVariable* Compiler::FindGlobal(const QString& name) const
{
    const auto found = m_newGlobals.find(name);
    return found != m_newGlobals.end() ? found->second.get()
                                       : m_interpreter.Globals().FindVariable(name);
}

/// A procedure sees its own variables only; a text also the global ones.
std::optional<Symbol> Compiler::FindSymbol(const QString& name) const
{
    const auto& scopes = m_context->scopes;
    for (auto scope = scopes.rbegin(); scope != scopes.rend(); ++scope) {
        const auto found = scope->constFind(name);
        if (found != scope->constEnd())
            return *found;
    }
    GlobalVariable* global = m_context->inProcedure ? nullptr : FindGlobal(name);
    if (!global)
        return std::nullopt;
    return Symbol{Symbol::Storage::Global, 0, global, global->CurrentKind()};
}

Symbol Compiler::GetSymbol(const ast::Variable& variable) const
{
    const std::optional<Symbol> symbol = FindSymbol(variable.name);
    if (!symbol) {
        throw CompileError{
            variable.end, QStringLiteral("\"%1\" is an undeclared variable.").arg(variable.name)};
    }
    return *symbol;
}

int Compiler::AddSlot(const Value& initial)
{
    m_context->slots.push_back(initial);
    return static_cast<int>(m_context->slots.size()) - 1;
}

Symbol Compiler::Declare(const QString& name, const Value& initial, Kind kind, int end)
{
    return AtTopLevel() ? DeclareGlobal(name, initial, kind, end)
                        : DeclareLocal(name, initial, kind, end);
}

[[noreturn]] static void ThrowRedeclaration(const QString& name, int end)
{
    throw CompileError{end,
        QStringLiteral("Invalid redeclaration of variable \"%1\" as a different type.").arg(name)};
}

static bool SameSize(const Value& first, const Value& second)
{
    if (first.GetKind() != Value::Kind::Matrix || second.GetKind() != Value::Kind::Matrix)
        return true;
    const Matrix& a = first.Get<Matrix>();
    const Matrix& b = second.Get<Matrix>();
    return a.rows == b.rows && a.columns == b.columns;
}

/// Told on request only: declaring a variable again is legal and common.
void Compiler::WarnOfDuplicate(const QString& name, int end) const
{
    Engine& engine = m_interpreter.GetEngine();
    if (!engine.echo.duplicateVariableWarnings)
        return;
    engine.output.Warning(m_interpreter.CompilePlace(*m_module->source, end)
        + QStringLiteral("Variable \"%1\" is declared again.").arg(name));
}

Symbol Compiler::DeclareLocal(const QString& name, const Value& initial, Kind kind, int end)
{
    QHash<QString, Symbol>& scope = m_context->scopes.back();
    const auto found = scope.constFind(name);
    if (found != scope.constEnd() && found->kind != Kind::None) {
        const Value& known = found->storage == Symbol::Storage::Local
            ? m_context->slots[static_cast<size_t>(found->index)]
            : Value();
        if (found->kind != kind || !SameSize(known, initial))
            ThrowRedeclaration(name, end);
        WarnOfDuplicate(name, end);
        return *found;
    }
    const Symbol symbol{Symbol::Storage::Local, AddSlot(initial), nullptr, kind};
    scope.insert(name, symbol);
    return symbol;
}

Symbol Compiler::DeclareGlobal(const QString& name, const Value& initial, Kind kind, int end)
{
    GlobalVariable* variable = FindGlobal(name);
    if (!variable) {
        auto made = std::make_unique<GlobalVariable>();
        variable = made.get();
        m_newGlobals.emplace(name, std::move(made));
    }
    if (variable->CurrentKind() == Kind::None) {
        variable->kind = kind;
        variable->value = initial;
    } else if (variable->CurrentKind() != kind || !SameSize(variable->value, initial)) {
        ThrowRedeclaration(name, end);
    }
    const Symbol symbol{Symbol::Storage::Global, 0, variable, kind};
    if (!AtTopLevel())
        m_context->scopes.back().insert(name, symbol);
    return symbol;
}

Value::Kind Compiler::ResultKindOf(const QString& name) const
{
    if (const Procedure* local = m_localProcedures.value(name))
        return local->resultKind;
    if (const Procedure* own = m_globalProcedures.value(name))
        return own->resultKind;
    if (const Procedure* known = m_interpreter.Globals().FindProcedure(name))
        return known->resultKind;
    const Function* function = m_commands.FindFunction(name);
    return function ? function->resultKind : Kind::None;
}

} // namespace host::mel
