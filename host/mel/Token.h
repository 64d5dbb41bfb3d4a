#pragma once

#include <cstdint>

namespace host::mel {

enum class TokenKind : std::uint8_t {
    End,
    Invalid, ///< a character that begins nothing
    UnterminatedString,
    Identifier, ///< a name that is no keyword, dots between its parts included
    Variable,
    Int,
    Float,
    String,
    Flag, ///< word mode only
    Bareword, ///< word mode only
    // Keywords, in the order of KEYWORDS.
    Break,
    Case,
    Continue,
    Default,
    Do,
    Else,
    False,
    FloatType,
    For,
    Global,
    If,
    In,
    IntType,
    MatrixType,
    No,
    Off,
    On,
    Proc,
    Return,
    StringType,
    Switch,
    True,
    VectorType,
    While,
    Yes,
    // Punctuation, in the order of PUNCTUATION.
    PlusPlus,
    MinusMinus,
    PlusAssign,
    MinusAssign,
    StarAssign,
    SlashAssign,
    PercentAssign,
    CaretAssign,
    EqualEqual,
    NotEqual,
    LessEqual,
    GreaterEqual,
    VectorOpen,
    VectorClose,
    AndAnd,
    OrOr,
    DotDot,
    Plus,
    Minus,
    Star,
    Slash,
    Percent,
    Caret,
    Not,
    Less,
    Greater,
    Question,
    Colon,
    Assign,
    LeftParenthesis,
    RightParenthesis,
    LeftBracket,
    RightBracket,
    LeftBrace,
    RightBrace,
    Comma,
    Semicolon,
    Dot,
    Backtick,
};

/// A piece of the text: code units from `start` up to `end`.
struct Token
{
    TokenKind kind = TokenKind::End;
    int start = 0;
    int end = 0;
};

} // namespace host::mel
