#pragma once

#include <QString>

enum class CodeEditorType : qint32 {
    Buffer = 0, ///< kept by the program itself, known by its label
    File = 1, ///< a file that the user chose, known by its path
};

enum class CodeEditorLanguage : qint32 { Text = 0, Mel = 1, Python = 2 };

/// What identifies one open script. Copied freely; the cursor and scroll position belong to the
/// editor alone.
struct CodeEditorProperties
{
    CodeEditorType type = CodeEditorType::Buffer;
    CodeEditorLanguage language = CodeEditorLanguage::Text;
    QString filePath; ///< absolute; of a buffer, the file that keeps its text between sessions
    QString label; ///< shown on the tab
};
