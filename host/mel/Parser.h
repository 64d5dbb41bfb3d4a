#pragma once

#include "mel/Ast.h"
#include "mel/CompileError.h"
#include "mel/Lexer.h"

#include <QHash>

#include <functional>
#include <optional>

namespace host::mel {

// The grammar. { } repeats, [ ] is optional; tokens stand in quotes or capitals.
//
//   script       { statement }
//   statement    ";" | block | procedure | declaration ";" | if | while | do | for | switch
//                | "return" [ expression ] ";" | "break" ";" | "continue" ";"
//                | call-or-command ";" | expressions ";"
//   block        "{" { statement } "}"
//   procedure    [ "global" ] "proc" [ type [ "[" "]" ] ] NAME "(" [ parameter { "," parameter } ]
//                ")" block
//   parameter    type VARIABLE [ "[" [ expression ] "]" ]
//   declaration  [ "global" ] type declarator { "," declarator }
//   declarator   VARIABLE { "[" [ expression ] "]" } [ "=" expression ]
//   if           "if" "(" expression ")" statement [ "else" statement ]
//   while        "while" "(" expression ")" statement
//   do           "do" statement "while" "(" expression ")" ";"
//   for          "for" "(" [ expressions ] ";" [ expressions ] ";" [ expressions ] ")" statement
//                | "for" "(" VARIABLE "in" expression ")" statement
//   switch       "switch" "(" expression ")" "{" { "case" expression ":" | "default" ":"
//                | statement } "}"
//
//   expressions  expression { "," expression }
//   expression   conditional [ ( "=" | "+=" | "-=" | "*=" | "/=" | "%=" | "^=" ) expression ]
//   conditional  binary [ "?" expression ":" expression ]
//   binary       unary { OPERATOR unary }               by the strength of the operators
//   unary        ( "!" | "-" | "+" | "++" | "--" ) unary | "(" type ")" unary | postfix
//   postfix      primary { "[" expression "]" | "." ( "x" | "y" | "z" ) | "++" | "--" }
//   primary      NUMBER | STRING | TRUTH-WORD | VARIABLE | "(" expression ")"
//                | type "(" expression ")" | NAME "(" [ expressions ] ")"
//                | "`" call-or-command "`" | array | vector
//   array        "{" [ expressions ] "}"
//   vector       "<<" expressions { ";" expressions } ">>"
//
//   call-or-command   an expression that begins with NAME "(" when it reaches the end of the
//                     statement (or the closing backtick), else NAME { word }
//   word         FLAG | STRING | NUMBER | TRUTH-WORD | BAREWORD | "(" expression ")" | array |
//   vector
//                | "`" call-or-command "`" | VARIABLE { "[" expression "]" | "." ( "x" | "y" | "z"
//                ) }

/// Turns a text into a syntax tree, one function per rule. Takes time in proportion to the text:
/// whether a name begins a call or a command is decided once per place and remembered. Nesting is
/// limited, so that no text can exhaust the stack.
class Parser
{
public:
    /// Tells commands from procedures and functions: "name (a) -5" passes a command two words.
    using IsCommand = std::function<bool(const QString& name)>;

    struct Result
    {
        ast::StatementList statements; ///< those before the error
        std::optional<CompileError> error;
    };

    /// `text` has to outlive the parser.
    explicit Parser(const QString& text, IsCommand isCommand = {});

    Result Parse();

    static constexpr int MAXIMUM_NESTING = 200;
    /// Operators that follow each other on one level make a tree as deep as they are many.
    static constexpr int MAXIMUM_CHAIN = 2000;

private:
    class Nesting;
    using Mode = Lexer::Mode;

    // Tokens
    const Token& Peek(Mode mode = Mode::Expression);
    bool PeekIs(TokenKind kind) { return Peek().kind == kind; }
    Token Take(Mode mode = Mode::Expression);
    bool TakeIf(TokenKind kind);
    Token Expect(TokenKind kind);
    [[noreturn]] void Fail(Mode mode = Mode::Expression);
    QString TextOf(const Token& token) const { return m_lexer.Text(token).toString(); }

    // Statements
    ast::StatementPointer ParseStatement();
    ast::StatementPointer ParseStatementOfKeyword(TokenKind kind);
    std::unique_ptr<ast::Block> ParseBlock();
    ast::StatementPointer ParseGlobal();
    ast::StatementPointer ParseProcedure(bool isGlobal);
    ast::Parameter ParseParameter();
    ast::StatementPointer ParseDeclaration(bool isGlobal);
    ast::Declarator ParseDeclarator();
    ast::StatementPointer ParseTypeStatement();
    ast::StatementPointer ParseIf();
    ast::StatementPointer ParseWhile();
    ast::StatementPointer ParseDo();
    ast::StatementPointer ParseFor();
    ast::StatementPointer ParseForIn(const Token& keyword);
    ast::StatementPointer ParseSwitch();
    ast::StatementPointer ParseReturn();
    ast::StatementPointer ParseExpressionStatement();
    ast::ExpressionPointer ParseCondition();
    void EndStatement();

    // Expressions
    ast::ExpressionList ParseExpressions();
    ast::ExpressionPointer ParseExpression();
    ast::ExpressionPointer ParseConditional();
    ast::ExpressionPointer ParseBinary(int strength);
    ast::ExpressionPointer ParseUnary();
    ast::ExpressionPointer ParseParenthesized();
    ast::ExpressionPointer ParsePostfix();
    ast::ExpressionPointer ParsePostfixes(ast::ExpressionPointer base);
    ast::ExpressionPointer ParseIndex(ast::ExpressionPointer base);
    ast::ExpressionPointer ParseComponent(ast::ExpressionPointer base);
    ast::ExpressionPointer ParsePrimary();
    ast::ExpressionPointer ParseLiteral(Mode mode);
    ast::ExpressionPointer ParseVariable();
    ast::ExpressionPointer ParseConversionCall();
    ast::ExpressionPointer ParseCall();
    ast::ExpressionPointer ParseArray();
    ast::ExpressionPointer ParseVector();
    ast::ExpressionPointer ParseBackticks();

    // Commands
    enum class Place { Statement, Backticks };
    ast::ExpressionPointer ParseCallOrCommand(Place place);
    bool IsCall(Token name, Place place);
    bool DecideIsCall(const Token& name, Place place);
    bool IsCallByAttempt(Place place);
    bool PassesDashWord(const Token& name, int close) const;
    static bool EndsCommand(TokenKind kind, Place place);
    ast::ExpressionPointer ParseCommand(Place place);
    ast::Argument ParseWord();
    ast::ExpressionPointer ParseWordVariable();
    ast::ExpressionPointer ParseBareword();
    ast::ExpressionPointer ParsePiecesInBrackets(const Token& word);

    const Lexer m_lexer;
    const IsCommand m_isCommand;
    int m_position = 0; ///< everything before it has been taken
    int m_nesting = 0;
    Token m_next; ///< what Peek found
    int m_nextPosition = -1; ///< where it was found; -1 for nowhere
    Mode m_nextMode = Mode::Expression;
    QHash<int, bool> m_isCall; ///< by the offset of the name
};

/// Guards one level of nesting while it lives.
class Parser::Nesting
{
public:
    explicit Nesting(Parser& parser);
    ~Nesting() { --m_parser.m_nesting; }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

private:
    Parser& m_parser;
};

/// A record of the syntax tree that begins at `offset` and is named by what ends at `end`.
template <typename T>
std::unique_ptr<T> MakeNode(int offset, int end)
{
    auto node = std::make_unique<T>();
    node->offset = offset;
    node->end = end;
    return node;
}

/// The type that a type word names.
Value::Kind KindOfType(TokenKind type);

} // namespace host::mel
