// Expressions, from the weakest binding rule to the strongest.

#include "mel/Parser.h"

namespace host::mel {

namespace {

struct OperatorRow
{
    TokenKind token;
    ast::Operator operation;
    int strength; ///< larger binds tighter
};

// clang-format off
constexpr OperatorRow BINARY_OPERATORS[] = {
    {TokenKind::OrOr,         ast::Operator::Or,           1},
    {TokenKind::AndAnd,       ast::Operator::And,          2},
    {TokenKind::EqualEqual,   ast::Operator::Equal,        3},
    {TokenKind::NotEqual,     ast::Operator::NotEqual,     3},
    {TokenKind::Less,         ast::Operator::Less,         4},
    {TokenKind::LessEqual,    ast::Operator::LessEqual,    4},
    {TokenKind::Greater,      ast::Operator::Greater,      4},
    {TokenKind::GreaterEqual, ast::Operator::GreaterEqual, 4},
    {TokenKind::Plus,         ast::Operator::Add,          5},
    {TokenKind::Minus,        ast::Operator::Subtract,     5},
    {TokenKind::Star,         ast::Operator::Multiply,     6},
    {TokenKind::Slash,        ast::Operator::Divide,       6},
    {TokenKind::Percent,      ast::Operator::Remainder,    6},
    {TokenKind::Caret,        ast::Operator::Cross,        6},
};

constexpr OperatorRow ASSIGNMENT_OPERATORS[] = {
    {TokenKind::Assign,        ast::Operator::None,      0},
    {TokenKind::PlusAssign,    ast::Operator::Add,       0},
    {TokenKind::MinusAssign,   ast::Operator::Subtract,  0},
    {TokenKind::StarAssign,    ast::Operator::Multiply,  0},
    {TokenKind::SlashAssign,   ast::Operator::Divide,    0},
    {TokenKind::PercentAssign, ast::Operator::Remainder, 0},
    {TokenKind::CaretAssign,   ast::Operator::Cross,     0},
};

constexpr OperatorRow PREFIX_OPERATORS[] = {
    {TokenKind::Not,   ast::Operator::Not,    0},
    {TokenKind::Minus, ast::Operator::Negate, 0},
    {TokenKind::Plus,  ast::Operator::Plus,   0},
};
// clang-format on

constexpr int WEAKEST = 1;

template <size_t N>
const OperatorRow* FindOperator(const OperatorRow (&rows)[N], TokenKind token)
{
    for (const OperatorRow& row : rows) {
        if (row.token == token)
            return &row;
    }
    return nullptr;
}

int ComponentOf(QStringView name)
{
    if (name.size() != 1 || name[0] < QLatin1Char('x') || name[0] > QLatin1Char('z'))
        return -1;
    return name[0].unicode() - 'x';
}

} // namespace

ast::ExpressionList Parser::ParseExpressions()
{
    ast::ExpressionList expressions;
    do {
        expressions.push_back(ParseExpression());
    } while (TakeIf(TokenKind::Comma));
    return expressions;
}

ast::ExpressionPointer Parser::ParseExpression()
{
    const Nesting nesting(*this);
    ast::ExpressionPointer target = ParseConditional();
    const OperatorRow* row = FindOperator(ASSIGNMENT_OPERATORS, Peek().kind);
    if (!row)
        return target;
    const Token mark = Take();
    auto assignment = MakeNode<ast::Assignment>(target->offset, mark.end);
    assignment->operation = row->operation;
    assignment->target = std::move(target);
    assignment->value = ParseExpression();
    return assignment;
}

ast::ExpressionPointer Parser::ParseConditional()
{
    ast::ExpressionPointer condition = ParseBinary(WEAKEST);
    if (!PeekIs(TokenKind::Question))
        return condition;
    const Token mark = Take();
    auto conditional = MakeNode<ast::Conditional>(condition->offset, mark.end);
    conditional->condition = std::move(condition);
    conditional->yes = ParseExpression();
    Expect(TokenKind::Colon);
    conditional->no = ParseExpression();
    return conditional;
}

ast::ExpressionPointer Parser::ParseBinary(int strength)
{
    ast::ExpressionPointer left = ParseUnary();
    for (int length = 0;; ++length) {
        const Token mark = Peek();
        const OperatorRow* row = FindOperator(BINARY_OPERATORS, mark.kind);
        if (!row || row->strength < strength)
            return left;
        if (length >= MAXIMUM_CHAIN) {
            throw CompileError{
                mark.end, QStringLiteral("More than %1 operators in a row.").arg(MAXIMUM_CHAIN)};
        }
        Take();
        auto binary = MakeNode<ast::Binary>(left->offset, mark.end);
        binary->operation = row->operation;
        binary->left = std::move(left);
        binary->right = ParseBinary(row->strength + 1);
        left = std::move(binary);
    }
}

ast::ExpressionPointer Parser::ParseUnary()
{
    const Token mark = Peek();
    if (const OperatorRow* row = FindOperator(PREFIX_OPERATORS, mark.kind)) {
        const Nesting nesting(*this);
        Take();
        auto unary = MakeNode<ast::Unary>(mark.start, mark.end);
        unary->operation = row->operation;
        unary->operand = ParseUnary();
        return unary;
    }
    if (mark.kind == TokenKind::PlusPlus || mark.kind == TokenKind::MinusMinus) {
        const Nesting nesting(*this);
        Take();
        auto step = MakeNode<ast::Step>(mark.start, mark.end);
        step->delta = mark.kind == TokenKind::PlusPlus ? 1 : -1;
        step->prefix = true;
        step->target = ParseUnary();
        return step;
    }
    return mark.kind == TokenKind::LeftParenthesis ? ParseParenthesized() : ParsePostfix();
}

/// "(int)$x" or "($x + 1)".
ast::ExpressionPointer Parser::ParseParenthesized()
{
    const Token open = Peek();
    const Token type = m_lexer.Next(open.end, Mode::Expression);
    if (!IsType(type.kind)
        || m_lexer.Next(type.end, Mode::Expression).kind != TokenKind::RightParenthesis)
        return ParsePostfix();
    const Nesting nesting(*this);
    Take();
    Take();
    Take();
    auto cast = MakeNode<ast::Cast>(open.start, type.end);
    cast->kind = KindOfType(type.kind);
    cast->operand = ParseUnary();
    return cast;
}

ast::ExpressionPointer Parser::ParsePostfix()
{
    return ParsePostfixes(ParsePrimary());
}

ast::ExpressionPointer Parser::ParsePostfixes(ast::ExpressionPointer base)
{
    for (int length = 0; length < MAXIMUM_NESTING; ++length) {
        const Token mark = Peek();
        if (mark.kind == TokenKind::LeftBracket) {
            base = ParseIndex(std::move(base));
        } else if (mark.kind == TokenKind::Dot) {
            base = ParseComponent(std::move(base));
        } else if (mark.kind == TokenKind::PlusPlus || mark.kind == TokenKind::MinusMinus) {
            Take();
            auto step = MakeNode<ast::Step>(base->offset, mark.end);
            step->delta = mark.kind == TokenKind::PlusPlus ? 1 : -1;
            step->target = std::move(base);
            base = std::move(step);
        } else {
            return base;
        }
    }
    Fail();
}

ast::ExpressionPointer Parser::ParseIndex(ast::ExpressionPointer base)
{
    Expect(TokenKind::LeftBracket);
    auto index = MakeNode<ast::Index>(base->offset, 0);
    index->base = std::move(base);
    index->index = ParseExpression();
    index->end = Expect(TokenKind::RightBracket).end;
    return index;
}

ast::ExpressionPointer Parser::ParseComponent(ast::ExpressionPointer base)
{
    Expect(TokenKind::Dot);
    const Token name = Peek();
    const int number = ComponentOf(m_lexer.Text(name));
    if (number < 0)
        Fail();
    Take();
    auto component = MakeNode<ast::Component>(base->offset, name.end);
    component->base = std::move(base);
    component->component = number;
    return component;
}

ast::ExpressionPointer Parser::ParsePrimary()
{
    const TokenKind kind = Peek().kind;
    if (IsType(kind))
        return ParseConversionCall();
    switch (kind) {
    case TokenKind::Variable: return ParseVariable();
    case TokenKind::Identifier: return ParseCall();
    case TokenKind::Backtick: return ParseBackticks();
    case TokenKind::LeftBrace: return ParseArray();
    case TokenKind::VectorOpen: return ParseVector();
    case TokenKind::LeftParenthesis: {
        Take();
        ast::ExpressionPointer inner = ParseExpression();
        Expect(TokenKind::RightParenthesis);
        return inner;
    }
    default: return ParseLiteral(Mode::Expression);
    }
}

ast::ExpressionPointer Parser::ParseLiteral(Mode mode)
{
    const Token token = Peek(mode);
    auto literal = MakeNode<ast::Literal>(token.start, token.end);
    switch (token.kind) {
    case TokenKind::Int: literal->value = m_lexer.IntValue(token); break;
    case TokenKind::Float: literal->value = m_lexer.FloatValue(token); break;
    case TokenKind::String: literal->value = m_lexer.StringValue(token); break;
    case TokenKind::On:
    case TokenKind::Yes:
    case TokenKind::True: literal->value = 1; break;
    case TokenKind::Off:
    case TokenKind::No:
    case TokenKind::False: literal->value = 0; break;
    default: Fail(mode);
    }
    Take(mode);
    return literal;
}

ast::ExpressionPointer Parser::ParseVariable()
{
    const Token name = Take();
    auto variable = MakeNode<ast::Variable>(name.start, name.end);
    variable->name = TextOf(name);
    return variable;
}

ast::ExpressionPointer Parser::ParseConversionCall()
{
    const Token type = Take();
    auto cast = MakeNode<ast::Cast>(type.start, type.end);
    cast->kind = KindOfType(type.kind);
    Expect(TokenKind::LeftParenthesis);
    cast->operand = ParseExpression();
    Expect(TokenKind::RightParenthesis);
    return cast;
}

ast::ExpressionPointer Parser::ParseCall()
{
    const Token name = Take();
    auto call = MakeNode<ast::Call>(name.start, name.end);
    call->name = TextOf(name);
    Expect(TokenKind::LeftParenthesis);
    if (!PeekIs(TokenKind::RightParenthesis)) {
        for (ast::ExpressionPointer& argument : ParseExpressions())
            call->arguments.push_back({std::move(argument), {}, false});
    }
    Expect(TokenKind::RightParenthesis);
    return call;
}

ast::ExpressionPointer Parser::ParseArray()
{
    const Token open = Take();
    auto array = MakeNode<ast::Array>(open.start, open.end);
    if (!PeekIs(TokenKind::RightBrace))
        array->elements = ParseExpressions();
    array->end = Expect(TokenKind::RightBrace).end;
    return array;
}

ast::ExpressionPointer Parser::ParseVector()
{
    const Token open = Take();
    auto vector = MakeNode<ast::Vector>(open.start, open.end);
    do {
        vector->rows.push_back(ParseExpressions());
    } while (TakeIf(TokenKind::Semicolon));
    vector->end = Expect(TokenKind::VectorClose).end;
    return vector;
}

ast::ExpressionPointer Parser::ParseBackticks()
{
    const Nesting nesting(*this);
    Take();
    if (!PeekIs(TokenKind::Identifier))
        Fail();
    ast::ExpressionPointer inner = ParseCallOrCommand(Place::Backticks);
    Expect(TokenKind::Backtick);
    return inner;
}

} // namespace host::mel
