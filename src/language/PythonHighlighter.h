#pragma once

#include "language/Highlighter.h"
#include "language/WordSet.h"

/// Colours Python: keywords, built-in names, the host's commands, calls and definitions, numbers,
/// decorators, strings, docstrings and comments.
class PythonHighlighter : public Highlighter
{
    Q_OBJECT

public:
    explicit PythonHighlighter(QTextDocument* document);

protected:
    void HighlightEarlyRules(QStringView text, LineRoles& roles) const override;
    void HighlightBuiltins(QStringView text, LineRoles& roles) const override;
    void HighlightKeywords(QStringView text, LineRoles& roles) const override;
    void HighlightRules(QStringView text, LineRoles& roles) const override;
    void UpdateSmartIndentData(
        CodeEditorBlockData& data, QStringView text, int codeEnd) const override;

private:
    // The host's vocabulary, asked for once per process
    static WordSet sPythonKeywords;
    static WordSet sPythonBuiltins;
    static WordSet sPythonMelCommands;
};
