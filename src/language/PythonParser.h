#pragma once

#include "language/BaseParser.h"

#include <QStringView>

/// Imports, classes, functions and the main guard of a Python script, its TODO notes, and the
/// mistakes that can be told without a grammar: brackets, unterminated strings, indentation.
/// Deliberately shallow, so that it can run after every pause in typing.
class PythonParser : public BaseParser
{
public:
    void ClearAll() override;
    void Parse(const QString& text, const QString& filePath) override;
    bool IsPython() const override { return true; }

private:
    // The scan
    void ParseLineStart();
    void ParseStatement(QChar first);
    void ParseInsideLine();
    void ParseCharacter(QChar character);
    void Newline(bool first);
    bool IsInsideBrackets() const;
    bool StatementFollows();
    void CloseBracketsBeforeStatement();

    // Indentation
    void ParseNewIndent();
    void ValidateIndent();
    void MatchDedent();
    void IndentError(const QString& message);
    void ResetIndentStack();
    int GetIndentLevel() const;
    int GetStatementLevel();

    // Texts
    void ParseString(QChar quote, int start, bool first);
    void ParseDocString(const QString& closing);
    void ParseComment();

    // Statements: true when it was one, with the position moved to its last character
    bool ParseDecorator();
    bool ParseImport();
    bool ParseImportAs(int module, int moduleEnd, int alias);
    bool ParseImportList(int start);
    bool ParseFromImport();
    bool AppendFromImports(int start, const QString& module);
    bool ParseMain();
    bool ParseClass();
    bool ParseMethod();
    bool ParseDefinition(int name, ParserItemType type);
    ParserItemType MethodType() const;

    bool m_atLineStart = false; ///< in the white space that leads a logical line
    int m_lineStartPosition = 0;
    bool m_expectIndent = false; ///< the last logical line ended with a colon
    QStringView m_currentIndent; ///< a part of the script, as all indents here
    QVector<QStringView> m_indentStack; ///< of the open blocks; the base entry is empty
    QVector<QStringView> m_decorators; ///< directly above the current statement
    bool m_indentErrorReported = false;
    bool m_mixedIndentWarned = false;
    int m_nextWord = -1; ///< a word's start found while inside brackets
};
