#pragma once

#include "language/BaseParser.h"

/// Procedures and global variables of a MEL script, its TODO notes, and a warning where the host's
/// line numbers would mislead. Errors are found but not recorded: the host reports its own when the
/// script runs. A subclass that overrides AppendError sees them.
class MelParser : public BaseParser
{
public:
    void ClearAll() override;
    void Parse(const QString& text, const QString& filePath) override;
    bool IsMel() const override { return true; }

protected:
    void AppendError(const QString& message, int start, int end) override;

private:
    void NoEmptyLinesAtStartCheck();
    void ParseCharacter(QChar character);
    void ParseWord(QChar first);
    void ParseStatementEnd();
    void ParseBracket(QChar bracket);
    bool ParseString(int start);
    void ParseComment();
    void ParseSingleLineComment();
    void ParseMultiLineComment();
    bool ParseGlobalProc();
    bool ParseProc();
    void ParseProcHeader(int matchEnd, ParserItemType type);
    void ParseProcStructure(int start);
    bool ParseGlobalVariable();
    int ReturnTypeEnd(int from) const;

    bool m_inProcedure = false;
    int m_procedureDepth = 0; ///< of braces, where the current procedure was declared
};
