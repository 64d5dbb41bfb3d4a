#pragma once

#include "editor/CodeEditor.h"
#include "editor/SearchExpression.h"

#include <QRegularExpression>

// Texts and expressions as the tests about finding write them.

inline QRegularExpression Literal(const char* text)
{
    return CreateSearchRegEx(text, true, false, false);
}

inline QRegularExpression Typed(const char* text)
{
    return WithMatchLimit(CreateSearchRegEx(text, true, false, true));
}

/// The text with the selection between "[" and "]"; a bare cursor is "[]".
inline QString Marked(const CodeEditor& editor)
{
    QString text = editor.GetText();
    text.insert(editor.GetSelectedEndPosition(), ']');
    return text.insert(editor.GetSelectedStartPosition(), '[');
}

/// The reverse of Marked.
inline void SetMarked(CodeEditor& editor, QString marked)
{
    const int start = marked.indexOf('[');
    marked.remove(start, 1);
    const int end = marked.indexOf(']');
    marked.remove(end, 1);
    editor.SetText(marked);
    editor.SetCursorSelection(start, end);
}
