#include "editor/RememberedView.h"

#include "editor/CodeEditor.h"

#include <QScrollBar>

void RememberedView::Take(CodeEditor* editor)
{
    if (m_editor)
        return;
    m_editor = editor;
    m_cursor = editor->textCursor();
    m_verticalValue = editor->GetVerticalScrollBarValue();
    m_horizontalValue = editor->horizontalScrollBar()->value();
}

void RememberedView::Restore()
{
    if (!m_editor)
        return;
    m_editor->setTextCursor(m_cursor);
    // The cursor has scrolled the text to itself.
    m_editor->SetVerticalScrollBarValue(m_verticalValue);
    m_editor->horizontalScrollBar()->setValue(m_horizontalValue);
    Forget();
}

void RememberedView::Forget()
{
    m_editor.clear();
}

const CodeEditor* RememberedView::GetEditor() const
{
    return m_editor;
}
