#pragma once

#include "editor/CodeEditorProperties.h"

#include <QString>

/// What the typing aids go by in one editor: its language and what the settings say for it.
struct EditingOptions
{
    CodeEditorLanguage language = CodeEditorLanguage::Text;
    int tabSize = 4; ///< columns, at least 1
    bool insertSpaces = true;
    bool autoIndent = true;
    bool smartIndent = false;
    bool indentToParentheses = false;
    bool closeBrackets = false;
    bool closeQuotes = false;
    bool backspaceToTabStop = false;
    bool overwrite = false; ///< a typed character replaces the one at the cursor

    /// One step of indent.
    QString IndentStep() const
    {
        return insertSpaces ? QString(tabSize, QLatin1Char(' ')) : QStringLiteral("\t");
    }
};
