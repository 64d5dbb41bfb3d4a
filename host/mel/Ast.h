#pragma once

#include "engine/Value.h"

#include <memory>
#include <vector>

/// The syntax tree: plain records, made by the parser, read by the compiler, then thrown away.
/// `offset` is where a construct begins, `end` just after the token that names it; both count code
/// units of the text.
namespace host::mel::ast {

enum class Operator {
    Add,
    Subtract,
    Multiply,
    Divide,
    Remainder,
    Cross, ///< "^"
    Less,
    LessEqual,
    Greater,
    GreaterEqual,
    Equal,
    NotEqual,
    And,
    Or,
    Not,
    Negate,
    Plus,
    None, ///< of a plain assignment
};

struct Expression
{
    enum class Type {
        Literal,
        Variable,
        Index,
        Component,
        Unary,
        Binary,
        Conditional,
        Assignment,
        Step,
        Cast,
        Call,
        Array,
        Vector,
        Pieces,
    };

    explicit Expression(Type expressionType)
        : type(expressionType)
    { }
    virtual ~Expression() = default;

    const Type type;
    int offset = 0;
    int end = 0;
};

using ExpressionPointer = std::unique_ptr<Expression>;
using ExpressionList = std::vector<ExpressionPointer>;

/// Ties a record to its Type, so that it can be made and cast in one place.
template <Expression::Type TYPE>
struct ExpressionOf : Expression
{
    static constexpr Type THE_TYPE = TYPE;
    ExpressionOf()
        : Expression(TYPE)
    { }
};

struct Literal : ExpressionOf<Expression::Type::Literal>
{
    Value value;
};

struct Variable : ExpressionOf<Expression::Type::Variable>
{
    QString name; ///< with its "$"
};

struct Index : ExpressionOf<Expression::Type::Index>
{
    ExpressionPointer base;
    ExpressionPointer index;
};

struct Component : ExpressionOf<Expression::Type::Component>
{
    ExpressionPointer base;
    int component = 0; ///< 0, 1, 2 for x, y, z
};

struct Unary : ExpressionOf<Expression::Type::Unary>
{
    Operator operation = Operator::Not;
    ExpressionPointer operand;
};

struct Binary : ExpressionOf<Expression::Type::Binary>
{
    Operator operation = Operator::Add;
    ExpressionPointer left;
    ExpressionPointer right;
};

struct Conditional : ExpressionOf<Expression::Type::Conditional>
{
    ExpressionPointer condition;
    ExpressionPointer yes;
    ExpressionPointer no;
};

struct Assignment : ExpressionOf<Expression::Type::Assignment>
{
    Operator operation = Operator::None;
    ExpressionPointer target;
    ExpressionPointer value;
};

/// "++" and "--", before or after their operand.
struct Step : ExpressionOf<Expression::Type::Step>
{
    int delta = 1;
    bool prefix = false;
    ExpressionPointer target;
};

struct Cast : ExpressionOf<Expression::Type::Cast>
{
    Value::Kind kind = Value::Kind::Int;
    ExpressionPointer operand;
};

/// One argument of a call, or one word of a command.
struct Argument
{
    ExpressionPointer value;
    QString spelling; ///< of a number or truth word, as typed
    bool isFlag = false;
};

/// A call "name(a, b)" or a command "name a b"; they differ in how arguments are read only.
struct Call : ExpressionOf<Expression::Type::Call>
{
    QString name;
    bool isCommand = false;
    std::vector<Argument> arguments;
};

struct Array : ExpressionOf<Expression::Type::Array>
{
    ExpressionList elements;
};

/// One row makes a vector, several (or a long one) a matrix.
struct Vector : ExpressionOf<Expression::Type::Vector>
{
    std::vector<ExpressionList> rows;
};

/// An unquoted word with variables inside its brackets; the pieces are joined as text.
struct Pieces : ExpressionOf<Expression::Type::Pieces>
{
    ExpressionList parts;
};

struct Statement
{
    enum class Type {
        Empty,
        Block,
        Procedure,
        Declaration,
        If,
        While,
        Do,
        For,
        ForIn,
        Switch,
        Return,
        Break,
        Continue,
        Expressions,
    };

    explicit Statement(Type statementType)
        : type(statementType)
    { }
    virtual ~Statement() = default;

    const Type type;
    int offset = 0;
    int end = 0;
};

using StatementPointer = std::unique_ptr<Statement>;
using StatementList = std::vector<StatementPointer>;

template <Statement::Type TYPE>
struct StatementOf : Statement
{
    static constexpr Type THE_TYPE = TYPE;
    StatementOf()
        : Statement(TYPE)
    { }
};

using Empty = StatementOf<Statement::Type::Empty>;
using Break = StatementOf<Statement::Type::Break>;
using Continue = StatementOf<Statement::Type::Continue>;

struct Block : StatementOf<Statement::Type::Block>
{
    StatementList statements;
};

struct Declarator
{
    QString name;
    int end = 0;
    ExpressionList sizes; ///< one entry per pair of brackets; null for empty ones
    ExpressionPointer value; ///< may be null
};

struct Declaration : StatementOf<Statement::Type::Declaration>
{
    bool isGlobal = false;
    Value::Kind kind = Value::Kind::Int; ///< without the declarators' brackets
    std::vector<Declarator> declarators;
};

struct Parameter
{
    QString name;
    Value::Kind kind = Value::Kind::Int; ///< brackets included
    int end = 0;
};

struct Procedure : StatementOf<Statement::Type::Procedure>
{
    QString name;
    bool isGlobal = false;
    Value::Kind resultKind = Value::Kind::None;
    std::vector<Parameter> parameters;
    std::unique_ptr<Block> body;
};

/// A chain of "else if" is one record, as long chains are common.
struct If : StatementOf<Statement::Type::If>
{
    struct Branch
    {
        ExpressionPointer condition;
        StatementPointer body;
    };
    std::vector<Branch> branches;
    StatementPointer otherwise; ///< may be null
};

struct While : StatementOf<Statement::Type::While>
{
    ExpressionPointer condition;
    StatementPointer body;
};

struct Do : StatementOf<Statement::Type::Do>
{
    StatementPointer body;
    ExpressionPointer condition;
};

struct For : StatementOf<Statement::Type::For>
{
    ExpressionList initializers;
    ExpressionList conditions;
    ExpressionList steps;
    StatementPointer body;
};

struct ForIn : StatementOf<Statement::Type::ForIn>
{
    std::unique_ptr<Variable> variable;
    ExpressionPointer array;
    StatementPointer body;
};

struct Switch : StatementOf<Statement::Type::Switch>
{
    struct Label
    {
        ExpressionPointer value; ///< null for "default"
        size_t statement = 0; ///< the body begins at this one
    };
    ExpressionPointer control;
    std::vector<Label> labels;
    StatementList statements;
};

struct Return : StatementOf<Statement::Type::Return>
{
    ExpressionPointer value; ///< may be null
};

struct Expressions : StatementOf<Statement::Type::Expressions>
{
    ExpressionList expressions;
};

} // namespace host::mel::ast
