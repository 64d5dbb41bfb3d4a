// Tokens and statements.

#include "mel/Parser.h"

namespace host::mel {

Value::Kind KindOfType(TokenKind type)
{
    switch (type) {
    case TokenKind::IntType: return Value::Kind::Int;
    case TokenKind::FloatType: return Value::Kind::Float;
    case TokenKind::StringType: return Value::Kind::String;
    case TokenKind::VectorType: return Value::Kind::Vector;
    case TokenKind::MatrixType: return Value::Kind::Matrix;
    default: return Value::Kind::None;
    }
}

Parser::Nesting::Nesting(Parser& parser)
    : m_parser(parser)
{
    if (m_parser.m_nesting >= MAXIMUM_NESTING) {
        throw CompileError{m_parser.Peek().end,
            QStringLiteral("Nested too deeply: more than %1 levels.").arg(MAXIMUM_NESTING)};
    }
    ++m_parser.m_nesting;
}

Parser::Parser(const QString& text, IsCommand isCommand)
    : m_lexer(text)
    , m_isCommand(std::move(isCommand))
{ }

Parser::Result Parser::Parse()
{
    Result result;
    try {
        while (!PeekIs(TokenKind::End))
            result.statements.push_back(ParseStatement());
    } catch (const CompileError& error) {
        result.error = error;
    }
    return result;
}

const Token& Parser::Peek(Mode mode)
{
    if (m_nextPosition != m_position || m_nextMode != mode) {
        m_next = m_lexer.Next(m_position, mode);
        m_nextPosition = m_position;
        m_nextMode = mode;
    }
    return m_next;
}

Token Parser::Take(Mode mode)
{
    const Token token = Peek(mode);
    m_position = token.end;
    return token;
}

bool Parser::TakeIf(TokenKind kind)
{
    if (!PeekIs(kind))
        return false;
    Take();
    return true;
}

Token Parser::Expect(TokenKind kind)
{
    if (!PeekIs(kind))
        Fail();
    return Take();
}

void Parser::Fail(Mode mode)
{
    const Token token = Peek(mode);
    if (token.kind == TokenKind::UnterminatedString)
        throw CompileError{token.end, QStringLiteral("Unterminated string.")};
    throw CompileError{token.end, QStringLiteral("Syntax error")};
}

ast::StatementPointer Parser::ParseStatement()
{
    const Nesting nesting(*this);
    const TokenKind kind = Peek().kind;
    if (IsType(kind))
        return ParseTypeStatement();
    if (IsKeyword(kind) && !IsBoolWord(kind))
        return ParseStatementOfKeyword(kind);
    if (kind == TokenKind::LeftBrace)
        return ParseBlock();
    if (kind == TokenKind::Semicolon) {
        const Token token = Take();
        return MakeNode<ast::Empty>(token.start, token.end);
    }
    return ParseExpressionStatement();
}

ast::StatementPointer Parser::ParseStatementOfKeyword(TokenKind kind)
{
    switch (kind) {
    case TokenKind::Global: return ParseGlobal();
    case TokenKind::Proc: return ParseProcedure(false);
    case TokenKind::If: return ParseIf();
    case TokenKind::While: return ParseWhile();
    case TokenKind::Do: return ParseDo();
    case TokenKind::For: return ParseFor();
    case TokenKind::Switch: return ParseSwitch();
    case TokenKind::Return: return ParseReturn();
    case TokenKind::Break: {
        const Token token = Take();
        EndStatement();
        return MakeNode<ast::Break>(token.start, token.end);
    }
    case TokenKind::Continue: {
        const Token token = Take();
        EndStatement();
        return MakeNode<ast::Continue>(token.start, token.end);
    }
    default: Fail();
    }
}

/// The last statement of a text may lack its ";".
void Parser::EndStatement()
{
    if (!PeekIs(TokenKind::End))
        Expect(TokenKind::Semicolon);
}

std::unique_ptr<ast::Block> Parser::ParseBlock()
{
    const Token open = Expect(TokenKind::LeftBrace);
    auto block = MakeNode<ast::Block>(open.start, open.end);
    while (!PeekIs(TokenKind::RightBrace)) {
        if (PeekIs(TokenKind::End))
            Fail();
        block->statements.push_back(ParseStatement());
    }
    block->end = Take().end;
    return block;
}

ast::StatementPointer Parser::ParseGlobal()
{
    Take();
    if (PeekIs(TokenKind::Proc))
        return ParseProcedure(true);
    if (!IsType(Peek().kind))
        Fail();
    return ParseDeclaration(true);
}

ast::StatementPointer Parser::ParseProcedure(bool isGlobal)
{
    const Token keyword = Take();
    auto procedure = MakeNode<ast::Procedure>(keyword.start, keyword.end);
    procedure->isGlobal = isGlobal;
    if (IsType(Peek().kind)) {
        procedure->resultKind = KindOfType(Take().kind);
        if (TakeIf(TokenKind::LeftBracket)) {
            Expect(TokenKind::RightBracket);
            procedure->resultKind = ArrayKindOf(procedure->resultKind);
        }
    }
    const Token name = Expect(TokenKind::Identifier);
    procedure->name = TextOf(name);
    Expect(TokenKind::LeftParenthesis);
    if (!PeekIs(TokenKind::RightParenthesis)) {
        do {
            procedure->parameters.push_back(ParseParameter());
        } while (TakeIf(TokenKind::Comma));
    }
    Expect(TokenKind::RightParenthesis);
    procedure->body = ParseBlock();
    procedure->end = procedure->body->end;
    return procedure;
}

ast::Parameter Parser::ParseParameter()
{
    if (!IsType(Peek().kind))
        Fail();
    ast::Parameter parameter;
    parameter.kind = KindOfType(Take().kind);
    const Token name = Expect(TokenKind::Variable);
    parameter.name = TextOf(name);
    parameter.end = name.end;
    while (TakeIf(TokenKind::LeftBracket)) {
        if (!PeekIs(TokenKind::RightBracket))
            ParseExpression(); // A size means nothing here.
        parameter.end = Expect(TokenKind::RightBracket).end;
        if (parameter.kind != Value::Kind::Matrix)
            parameter.kind = ArrayKindOf(parameter.kind);
    }
    if (parameter.kind == Value::Kind::None)
        throw CompileError{parameter.end, QStringLiteral("Syntax error")};
    return parameter;
}

/// "int $x" declares, "int(5)" converts.
ast::StatementPointer Parser::ParseTypeStatement()
{
    const Token type = Peek();
    if (m_lexer.Next(type.end, Mode::Expression).kind == TokenKind::LeftParenthesis)
        return ParseExpressionStatement();
    return ParseDeclaration(false);
}

ast::StatementPointer Parser::ParseDeclaration(bool isGlobal)
{
    const Token type = Take();
    auto declaration = MakeNode<ast::Declaration>(type.start, type.end);
    declaration->isGlobal = isGlobal;
    declaration->kind = KindOfType(type.kind);
    do {
        declaration->declarators.push_back(ParseDeclarator());
    } while (TakeIf(TokenKind::Comma));
    EndStatement();
    return declaration;
}

ast::Declarator Parser::ParseDeclarator()
{
    const Token name = Expect(TokenKind::Variable);
    ast::Declarator declarator;
    declarator.name = TextOf(name);
    declarator.end = name.end;
    while (TakeIf(TokenKind::LeftBracket)) {
        const bool sized = !PeekIs(TokenKind::RightBracket);
        declarator.sizes.push_back(sized ? ParseExpression() : nullptr);
        declarator.end = Expect(TokenKind::RightBracket).end;
    }
    if (TakeIf(TokenKind::Assign))
        declarator.value = ParseExpression();
    return declarator;
}

ast::ExpressionPointer Parser::ParseCondition()
{
    Expect(TokenKind::LeftParenthesis);
    ast::ExpressionPointer condition = ParseExpression();
    Expect(TokenKind::RightParenthesis);
    return condition;
}

ast::StatementPointer Parser::ParseIf()
{
    const Token keyword = Peek();
    auto statement = MakeNode<ast::If>(keyword.start, keyword.end);
    do {
        Expect(TokenKind::If);
        ast::If::Branch branch;
        branch.condition = ParseCondition();
        branch.body = ParseStatement();
        statement->branches.push_back(std::move(branch));
        if (!TakeIf(TokenKind::Else))
            return statement;
    } while (PeekIs(TokenKind::If));
    statement->otherwise = ParseStatement();
    return statement;
}

ast::StatementPointer Parser::ParseWhile()
{
    const Token keyword = Take();
    auto statement = MakeNode<ast::While>(keyword.start, keyword.end);
    statement->condition = ParseCondition();
    statement->body = ParseStatement();
    return statement;
}

ast::StatementPointer Parser::ParseDo()
{
    const Token keyword = Take();
    auto statement = MakeNode<ast::Do>(keyword.start, keyword.end);
    statement->body = ParseStatement();
    Expect(TokenKind::While);
    statement->condition = ParseCondition();
    EndStatement();
    return statement;
}

ast::StatementPointer Parser::ParseFor()
{
    const Token keyword = Take();
    Expect(TokenKind::LeftParenthesis);
    const Token first = Peek();
    if (first.kind == TokenKind::Variable
        && m_lexer.Next(first.end, Mode::Expression).kind == TokenKind::In)
        return ParseForIn(keyword);
    auto statement = MakeNode<ast::For>(keyword.start, keyword.end);
    if (!PeekIs(TokenKind::Semicolon))
        statement->initializers = ParseExpressions();
    Expect(TokenKind::Semicolon);
    if (!PeekIs(TokenKind::Semicolon))
        statement->conditions = ParseExpressions();
    Expect(TokenKind::Semicolon);
    if (!PeekIs(TokenKind::RightParenthesis))
        statement->steps = ParseExpressions();
    Expect(TokenKind::RightParenthesis);
    statement->body = ParseStatement();
    return statement;
}

ast::StatementPointer Parser::ParseForIn(const Token& keyword)
{
    auto statement = MakeNode<ast::ForIn>(keyword.start, keyword.end);
    const Token name = Take();
    statement->variable = MakeNode<ast::Variable>(name.start, name.end);
    statement->variable->name = TextOf(name);
    Expect(TokenKind::In);
    statement->array = ParseExpression();
    Expect(TokenKind::RightParenthesis);
    statement->body = ParseStatement();
    return statement;
}

ast::StatementPointer Parser::ParseSwitch()
{
    const Token keyword = Take();
    auto statement = MakeNode<ast::Switch>(keyword.start, keyword.end);
    statement->control = ParseCondition();
    Expect(TokenKind::LeftBrace);
    while (!TakeIf(TokenKind::RightBrace)) {
        const TokenKind kind = Peek().kind;
        if (kind == TokenKind::End)
            Fail();
        if (kind != TokenKind::Case && kind != TokenKind::Default) {
            statement->statements.push_back(ParseStatement());
            continue;
        }
        Take();
        ast::Switch::Label label;
        label.statement = statement->statements.size();
        if (kind == TokenKind::Case)
            label.value = ParseExpression();
        Expect(TokenKind::Colon);
        statement->labels.push_back(std::move(label));
    }
    return statement;
}

ast::StatementPointer Parser::ParseReturn()
{
    const Token keyword = Take();
    auto statement = MakeNode<ast::Return>(keyword.start, keyword.end);
    if (!PeekIs(TokenKind::Semicolon) && !PeekIs(TokenKind::End))
        statement->value = ParseExpression();
    EndStatement();
    return statement;
}

ast::StatementPointer Parser::ParseExpressionStatement()
{
    const Token first = Peek();
    auto statement = MakeNode<ast::Expressions>(first.start, first.end);
    if (first.kind == TokenKind::Identifier)
        statement->expressions.push_back(ParseCallOrCommand(Place::Statement));
    else
        statement->expressions.push_back(ParseExpression());
    while (TakeIf(TokenKind::Comma))
        statement->expressions.push_back(ParseExpression());
    EndStatement();
    return statement;
}

} // namespace host::mel
