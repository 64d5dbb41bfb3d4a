// Commands and their words, and how they are told from calls.

#include "mel/Parser.h"

namespace host::mel {

ast::ExpressionPointer Parser::ParseCallOrCommand(Place place)
{
    return IsCall(Peek(), place) ? ParseExpression() : ParseCommand(place);
}

// Takes a copy of the token: reading on replaces what Peek gave.
bool Parser::IsCall(Token name, Place place)
{
    const auto known = m_isCall.constFind(name.start);
    if (known != m_isCall.constEnd())
        return *known;
    const bool isCall = DecideIsCall(name, place);
    m_isCall.insert(name.start, isCall);
    return isCall;
}

/// True when an expression that begins with `name` reaches the end of the statement. What follows
/// the closing parenthesis tells, but for an operator: "f($a) + 1" is an expression, "f ($a) *:b" a
/// command, and only reading on finds out.
bool Parser::DecideIsCall(const Token& name, Place place)
{
    const int open = m_lexer.SkipBlanks(name.end);
    if (m_lexer.At(open) != '(')
        return false;
    const int close = m_lexer.SkipParentheses(open);
    if (close < 0)
        return true;
    const TokenKind next = m_lexer.Next(close, Mode::Expression).kind;
    if (EndsCommand(next, place))
        return true;
    const bool isOperator = next >= TokenKind::PlusPlus && next < TokenKind::LeftParenthesis;
    const bool isPostfix
        = next == TokenKind::LeftBracket || next == TokenKind::Dot || next == TokenKind::Comma;
    return (isOperator || isPostfix) && !PassesDashWord(name, close) && IsCallByAttempt(place);
}

/// "setAttr ($a) -5" and "select ($a) -add ($b)" would be expressions too; for a command, a blank
/// before the dash and none behind it decide.
bool Parser::PassesDashWord(const Token& name, int close) const
{
    const int dash = m_lexer.SkipBlanks(close);
    const ushort next = m_lexer.At(dash + 1);
    return m_lexer.At(dash) == '-' && dash > close && (Lexer::IsWordCharacter(next) || next == '.')
        && m_isCommand && m_isCommand(TextOf(name));
}

bool Parser::IsCallByAttempt(Place place)
{
    const int position = m_position;
    const int nesting = m_nesting;
    bool isCall = false;
    try {
        ParseExpression();
        isCall = EndsCommand(Peek().kind, place);
    } catch (const CompileError&) {
        // Then it has to be a command; what is wrong with that one is told when it is read.
    }
    m_position = position;
    m_nesting = nesting;
    return isCall;
}

/// A backtick ends the command that stands between backticks; in a statement it begins a word.
bool Parser::EndsCommand(TokenKind kind, Place place)
{
    return kind == TokenKind::Semicolon || kind == TokenKind::End
        || (kind == TokenKind::Backtick && place == Place::Backticks)
        || (kind == TokenKind::Comma && place == Place::Statement);
}

ast::ExpressionPointer Parser::ParseCommand(Place place)
{
    const Nesting nesting(*this);
    const Token name = Take();
    auto call = MakeNode<ast::Call>(name.start, name.end);
    call->name = TextOf(name);
    call->isCommand = true;
    while (!EndsCommand(Peek(Mode::Words).kind, place))
        call->arguments.push_back(ParseWord());
    return call;
}

ast::Argument Parser::ParseWord()
{
    const Token token = Peek(Mode::Words);
    ast::Argument word;
    switch (token.kind) {
    case TokenKind::Flag: {
        auto flag = MakeNode<ast::Literal>(token.start, token.end);
        flag->value = m_lexer.FlagText(Take(Mode::Words));
        return {std::move(flag), {}, true};
    }
    case TokenKind::Variable: return {ParseWordVariable(), {}, false};
    case TokenKind::Bareword: return {ParseBareword(), {}, false};
    case TokenKind::Backtick: return {ParseBackticks(), {}, false};
    case TokenKind::LeftParenthesis:
    case TokenKind::LeftBrace:
    case TokenKind::VectorOpen: return {ParsePrimary(), {}, false};
    case TokenKind::String: return {ParseLiteral(Mode::Words), {}, false};
    default:
        word.spelling = TextOf(token);
        word.value = ParseLiteral(Mode::Words);
        return word;
    }
}

/// Indices and components belong to a variable only when they follow it directly.
ast::ExpressionPointer Parser::ParseWordVariable()
{
    ast::ExpressionPointer word = ParseVariable();
    for (int length = 0; length < MAXIMUM_NESTING; ++length) {
        const ushort next = m_lexer.At(m_position + 1);
        if (m_lexer.At(m_position) == '[')
            word = ParseIndex(std::move(word));
        else if (m_lexer.At(m_position) == '.' && next >= 'x' && next <= 'z'
            && !Lexer::IsWordCharacter(m_lexer.At(m_position + 2)))
            word = ParseComponent(std::move(word));
        else
            return word;
    }
    Fail(Mode::Words);
}

ast::ExpressionPointer Parser::ParseBareword()
{
    const Token word = Peek(Mode::Words);
    if (m_lexer.Text(word).contains(QLatin1Char('$')))
        return ParsePiecesInBrackets(word);
    Take(Mode::Words);
    auto literal = MakeNode<ast::Literal>(word.start, word.end);
    literal->value = TextOf(word);
    return literal;
}

/// "reg.slot[$i]": text and the expressions that begin with a variable take turns.
ast::ExpressionPointer Parser::ParsePiecesInBrackets(const Token& word)
{
    auto pieces = MakeNode<ast::Pieces>(word.start, word.end);
    m_position = word.start;
    while (m_position < word.end) {
        const int start = m_position;
        if (m_lexer.At(start) == '$') {
            pieces->parts.push_back(ParseBinary(0));
            continue;
        }
        while (m_position < word.end && m_lexer.At(m_position) != '$')
            ++m_position;
        const Token text{TokenKind::Bareword, start, m_position};
        auto literal = MakeNode<ast::Literal>(text.start, text.end);
        literal->value = TextOf(text);
        pieces->parts.push_back(std::move(literal));
    }
    if (m_position != word.end)
        Fail();
    return pieces;
}

} // namespace host::mel
