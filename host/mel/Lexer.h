#pragma once

#include "mel/Token.h"

#include <QString>

namespace host::mel {

/// Cuts a text into tokens, each on demand at a given offset, because what a character means
/// depends on what the parser expects: in an expression "a*b" is a product, among the words of a
/// command it is one word. Keeps no state but the text, which has to outlive it.
class Lexer
{
public:
    enum class Mode { Expression, Words };

    explicit Lexer(const QString& text);

    /// The token at or after `offset`, blanks and comments left out.
    Token Next(int offset, Mode mode) const;
    /// First offset at or after `offset` that is neither blank nor comment.
    int SkipBlanks(int offset) const;
    /// Offset just after the bracket that closes the "(" at `offset`; -1 when nothing does. Strings
    /// and comments in between are skipped.
    int SkipParentheses(int offset) const;

    QStringView Text(const Token& token) const;
    /// The contents of a string token, escapes replaced.
    QString StringValue(const Token& token) const;
    /// The value of an Int token: 32 bits, larger numbers wrap round.
    int IntValue(const Token& token) const;
    double FloatValue(const Token& token) const;
    /// A flag token's text without the blanks that may follow its "-".
    QString FlagText(const Token& token) const;

    static bool IsLetter(ushort c);
    static bool IsDigit(ushort c);
    static bool IsWordCharacter(ushort c) { return IsLetter(c) || IsDigit(c); }
    static bool IsBlank(ushort c);

    /// The character at `offset`, 0 beyond the end.
    ushort At(int offset) const { return offset < m_size ? m_data[offset] : 0; }

private:
    Token NextExpression(int start) const;
    Token NextWord(int start) const;
    Token Name(int start) const;
    Token Number(int start) const;
    Token StringToken(int start) const;
    Token Punctuation(int start) const;
    Token DashWord(int start) const;
    Token BarewordToken(int start) const;
    int SkipName(int offset) const;
    int SkipString(int offset) const;
    int SkipBracketGroup(int offset) const;

    const ushort* m_data;
    int m_size;
};

/// True for "int", "float", "string", "vector" and "matrix".
bool IsType(TokenKind kind);
bool IsKeyword(TokenKind kind);
/// True for on, off, yes, no, true and false.
bool IsBoolWord(TokenKind kind);

} // namespace host::mel
