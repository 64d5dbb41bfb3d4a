#pragma once

#include <QPointer>
#include <QTextCursor>

class CodeEditor;

/// Where somebody was in an editor: cursor, selection and scroll position, to be exactly there
/// again. Does not own the editor, which may go. A value; interface thread.
class RememberedView
{
public:
    /// Keeps what was taken before until Restore or Forget.
    void Take(CodeEditor* editor);
    /// Does nothing when nothing was taken.
    void Restore();
    void Forget();

    /// Null when nothing was taken.
    const CodeEditor* GetEditor() const;

private:
    QPointer<CodeEditor> m_editor; ///< null: nothing was taken
    QTextCursor m_cursor;
    int m_verticalValue = 0; ///< of the scroll bars
    int m_horizontalValue = 0;
};
