#pragma once

#include "language/Highlighter.h"
#include "language/WordSet.h"

/// Colours MEL: keywords, the host's commands and procedures, variables, calls and definitions,
/// numbers, strings and comments.
class MelHighlighter : public Highlighter
{
    Q_OBJECT

public:
    explicit MelHighlighter(QTextDocument* document);

protected:
    void HighlightEarlyRules(QStringView text, LineRoles& roles) const override;
    void HighlightKeywords(QStringView text, LineRoles& roles) const override;
    void HighlightRules(QStringView text, LineRoles& roles) const override;
    void UpdateSmartIndentData(
        CodeEditorBlockData& data, QStringView text, int codeEnd) const override;

private:
    // The host's vocabulary, asked for once per process
    static WordSet sMelKeywords;
    static WordSet sMelCommands;
};
