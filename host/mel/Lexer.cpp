#include "mel/Lexer.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace host::mel {

namespace {

constexpr const char* KEYWORDS[] = {"break", "case", "continue", "default", "do", "else", "false",
    "float", "for", "global", "if", "in", "int", "matrix", "no", "off", "on", "proc", "return",
    "string", "switch", "true", "vector", "while", "yes"};
constexpr int FIRST_KEYWORD = static_cast<int>(TokenKind::Break);
static_assert(FIRST_KEYWORD + std::size(KEYWORDS) - 1 == static_cast<size_t>(TokenKind::Yes),
    "the kinds of keywords follow the table");

// Longer ones first: the first that fits is taken.
constexpr const char* PUNCTUATION[]
    = {"++", "--", "+=", "-=", "*=", "/=", "%=", "^=", "==", "!=", "<=", ">=", "<<", ">>", "&&",
        "||", "..", "+", "-", "*", "/", "%", "^", "!", "<", ">", "?", ":", "=", "(", ")", "[", "]",
        "{", "}", ",", ";", ".", "`"};
constexpr int FIRST_PUNCTUATION = static_cast<int>(TokenKind::PlusPlus);
static_assert(
    FIRST_PUNCTUATION + std::size(PUNCTUATION) - 1 == static_cast<size_t>(TokenKind::Backtick),
    "the kinds of punctuation follow the table");

TokenKind KeywordKind(QStringView word)
{
    const auto less = [](const char* keyword, QStringView text) {
        return text.compare(QLatin1String(keyword)) > 0;
    };
    const auto found = std::lower_bound(std::begin(KEYWORDS), std::end(KEYWORDS), word, less);
    if (found == std::end(KEYWORDS) || word != QLatin1String(*found))
        return TokenKind::Identifier;
    return static_cast<TokenKind>(FIRST_KEYWORD + (found - std::begin(KEYWORDS)));
}

bool IsLineEnd(ushort c)
{
    return c == '\n' || c == '\r';
}

bool IsHexDigit(ushort c)
{
    return Lexer::IsDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

bool IsBarewordCharacter(ushort c)
{
    return Lexer::IsWordCharacter(c) || c == '|' || c == ':' || c == '.' || c == '*' || c == '?';
}

QChar Unescaped(QChar c)
{
    switch (c.unicode()) {
    case 'n': return QLatin1Char('\n');
    case 't': return QLatin1Char('\t');
    case 'r': return QLatin1Char('\r');
    default: return c;
    }
}

} // namespace

Lexer::Lexer(const QString& text)
    : m_data(reinterpret_cast<const ushort*>(text.constData()))
    , m_size(text.size())
{ }

bool Lexer::IsLetter(ushort c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

bool Lexer::IsDigit(ushort c)
{
    return c >= '0' && c <= '9';
}

bool Lexer::IsBlank(ushort c)
{
    return c == ' ' || c == '\t' || c == '\f' || c == '\v' || IsLineEnd(c);
}

int Lexer::SkipBlanks(int offset) const
{
    while (offset < m_size) {
        if (IsBlank(At(offset))) {
            ++offset;
        } else if (At(offset) == '/' && At(offset + 1) == '/') {
            while (offset < m_size && !IsLineEnd(At(offset)))
                ++offset;
        } else if (At(offset) == '/' && At(offset + 1) == '*') {
            offset += 2;
            while (offset < m_size && !(At(offset) == '*' && At(offset + 1) == '/'))
                ++offset;
            offset = std::min(offset + 2, m_size);
        } else {
            break;
        }
    }
    return offset;
}

int Lexer::SkipString(int offset) const
{
    for (++offset; offset < m_size && At(offset) != '"'; ++offset) {
        if (At(offset) == '\\')
            ++offset;
    }
    return std::min(offset + 1, m_size);
}

int Lexer::SkipParentheses(int offset) const
{
    int depth = 0;
    while ((offset = SkipBlanks(offset)) < m_size) {
        const ushort c = At(offset);
        if (c == '"') {
            offset = SkipString(offset);
            continue;
        }
        ++offset;
        if (c == '(')
            ++depth;
        else if (c == ')' && --depth == 0)
            return offset;
    }
    return -1;
}

Token Lexer::Next(int offset, Mode mode) const
{
    const int start = SkipBlanks(offset);
    if (start >= m_size)
        return {TokenKind::End, m_size, m_size};
    return mode == Mode::Expression ? NextExpression(start) : NextWord(start);
}

Token Lexer::NextExpression(int start) const
{
    const ushort c = At(start);
    if (c == '"')
        return StringToken(start);
    if (c == '$') {
        if (!IsLetter(At(start + 1)))
            return {TokenKind::Invalid, start, start + 1};
        return {TokenKind::Variable, start, SkipName(start + 1)};
    }
    if (IsLetter(c))
        return Name(start);
    if (IsDigit(c) || (c == '.' && IsDigit(At(start + 1))))
        return Number(start);
    return Punctuation(start);
}

Token Lexer::NextWord(int start) const
{
    const ushort c = At(start);
    if (c == '-')
        return DashWord(start);
    if (IsBarewordCharacter(c))
        return BarewordToken(start);
    return NextExpression(start);
}

int Lexer::SkipName(int offset) const
{
    while (IsWordCharacter(At(offset)))
        ++offset;
    return offset;
}

Token Lexer::Name(int start) const
{
    int end = SkipName(start);
    // A dot belongs to the name only between two parts of it.
    while (At(end) == '.' && IsWordCharacter(At(end + 1)))
        end = SkipName(end + 1);
    return {KeywordKind(QStringView(m_data + start, end - start)), start, end};
}

Token Lexer::Number(int start) const
{
    int end = start;
    if (At(start) == '0' && (At(start + 1) == 'x' || At(start + 1) == 'X')
        && IsHexDigit(At(start + 2))) {
        end += 2;
        while (IsHexDigit(At(end)))
            ++end;
        return {TokenKind::Int, start, end};
    }
    const auto skipDigits = [&] {
        while (IsDigit(At(end)))
            ++end;
    };
    skipDigits();
    TokenKind kind = TokenKind::Int;
    if (At(end) == '.' && At(end + 1) != '.') {
        kind = TokenKind::Float;
        ++end;
        skipDigits();
    }
    if (At(end) == 'e' || At(end) == 'E') {
        const int sign = At(end + 1) == '-' || At(end + 1) == '+' ? 1 : 0;
        if (IsDigit(At(end + 1 + sign))) {
            kind = TokenKind::Float;
            end += 1 + sign;
            skipDigits();
        }
    }
    return {kind, start, end};
}

Token Lexer::StringToken(int start) const
{
    int end = start + 1;
    while (end < m_size && At(end) != '"') {
        if (IsLineEnd(At(end)))
            return {TokenKind::UnterminatedString, start, end};
        const bool escape = At(end) == '\\';
        const bool wideLineEnd = escape && At(end + 1) == '\r' && At(end + 2) == '\n';
        end += wideLineEnd ? 3 : escape ? 2 : 1;
    }
    if (end >= m_size)
        return {TokenKind::UnterminatedString, start, m_size};
    return {TokenKind::String, start, end + 1};
}

Token Lexer::Punctuation(int start) const
{
    for (size_t i = 0; i < std::size(PUNCTUATION); ++i) {
        const char* mark = PUNCTUATION[i];
        if (At(start) != static_cast<ushort>(mark[0]))
            continue;
        if (mark[1] == '\0' || At(start + 1) == static_cast<ushort>(mark[1])) {
            const int length = static_cast<int>(std::strlen(mark));
            return {static_cast<TokenKind>(FIRST_PUNCTUATION + i), start, start + length};
        }
    }
    return {TokenKind::Invalid, start, start + 1};
}

/// "-flag", "- flag" or a negative number; directly after a word it is none of them.
Token Lexer::DashWord(int start) const
{
    if (start > 0 && IsBarewordCharacter(At(start - 1)))
        return Punctuation(start);
    const int next = SkipBlanks(start + 1);
    if (IsLetter(At(next)))
        return {TokenKind::Flag, start, SkipName(next)};
    if (IsDigit(At(next)) || (At(next) == '.' && IsDigit(At(next + 1)))) {
        const Token number = Number(next);
        return {number.kind, start, number.end};
    }
    return Punctuation(start);
}

/// Offset after the "]" that closes the "[" at `offset`; -1 when the word is over before.
int Lexer::SkipBracketGroup(int offset) const
{
    int depth = 0;
    for (; offset < m_size && At(offset) != ';' && At(offset) != '"'; ++offset) {
        if (At(offset) == '[')
            ++depth;
        else if (At(offset) == ']' && --depth == 0)
            return offset + 1;
    }
    return -1;
}

Token Lexer::BarewordToken(int start) const
{
    int end = start;
    for (;;) {
        while (IsBarewordCharacter(At(end)))
            ++end;
        if (At(end) != '[')
            break;
        const int groupEnd = SkipBracketGroup(end);
        if (groupEnd < 0)
            return {TokenKind::Invalid, start, end + 1};
        end = groupEnd;
    }
    if (IsDigit(At(start)) || At(start) == '.') {
        const Token number = NextExpression(start);
        // The sign of an exponent is no character of a word, so the number may reach further.
        if ((number.kind == TokenKind::Int || number.kind == TokenKind::Float) && number.end >= end)
            return number;
    }
    if (IsLetter(At(start)) && SkipName(start) == end) {
        const TokenKind kind = KeywordKind(QStringView(m_data + start, end - start));
        if (kind != TokenKind::Identifier)
            return {kind, start, end};
    }
    return {TokenKind::Bareword, start, end};
}

QStringView Lexer::Text(const Token& token) const
{
    return QStringView(m_data + token.start, token.end - token.start);
}

QString Lexer::StringValue(const Token& token) const
{
    QString value;
    const int end = token.end - 1;
    value.reserve(end - token.start);
    for (int i = token.start + 1; i < end; ++i) {
        if (At(i) != '\\') {
            value += QChar(At(i));
            continue;
        }
        ++i;
        if (At(i) == '\r' && At(i + 1) == '\n')
            ++i;
        else if (!IsLineEnd(At(i)))
            value += Unescaped(QChar(At(i)));
        // A line end after a backslash continues the string: both vanish.
    }
    return value;
}

int Lexer::IntValue(const Token& token) const
{
    const bool negative = At(token.start) == '-';
    int i = negative ? SkipBlanks(token.start + 1) : token.start;
    const bool hex = At(i) == '0' && (At(i + 1) == 'x' || At(i + 1) == 'X');
    std::uint32_t value = 0;
    for (i += hex ? 2 : 0; i < token.end; ++i) {
        const ushort c = At(i);
        const std::uint32_t digit = IsDigit(c) ? c - '0' : (c | 0x20) - 'a' + 10;
        value = value * (hex ? 16 : 10) + digit;
    }
    return static_cast<int>(negative ? 0u - value : value);
}

double Lexer::FloatValue(const Token& token) const
{
    const bool negative = At(token.start) == '-';
    const int start = negative ? SkipBlanks(token.start + 1) : token.start;
    const QString text(reinterpret_cast<const QChar*>(m_data) + start, token.end - start);
    // The C locale is QString's own.
    return negative ? -text.toDouble() : text.toDouble();
}

QString Lexer::FlagText(const Token& token) const
{
    const int name = SkipBlanks(token.start + 1);
    return QLatin1Char('-')
        + QString(reinterpret_cast<const QChar*>(m_data) + name, token.end - name);
}

bool IsType(TokenKind kind)
{
    return kind == TokenKind::IntType || kind == TokenKind::FloatType
        || kind == TokenKind::StringType || kind == TokenKind::VectorType
        || kind == TokenKind::MatrixType;
}

bool IsKeyword(TokenKind kind)
{
    return kind >= TokenKind::Break && kind <= TokenKind::Yes;
}

bool IsBoolWord(TokenKind kind)
{
    return kind == TokenKind::On || kind == TokenKind::Off || kind == TokenKind::Yes
        || kind == TokenKind::No || kind == TokenKind::True || kind == TokenKind::False;
}

} // namespace host::mel
