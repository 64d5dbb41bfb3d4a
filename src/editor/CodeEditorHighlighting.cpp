// Colours and line data of a code editor.

#include "editor/CodeEditor.h"
#include "language/MelHighlighter.h"
#include "language/PythonHighlighter.h"

#include <QTextBlock>

void CodeEditor::UpdateHighlighter()
{
    delete m_highlighter;
    switch (m_language) {
    case CodeEditorLanguage::Mel: m_highlighter = new MelHighlighter(document()); break;
    case CodeEditorLanguage::Python: m_highlighter = new PythonHighlighter(document()); break;
    case CodeEditorLanguage::Text: m_highlighter = new Highlighter(document()); break;
    }
}

void CodeEditor::HighlightVisibleLines()
{
    const int first = firstVisibleBlock().blockNumber();
    const int lines = viewport()->height() / qMax(1, fontMetrics().lineSpacing());
    m_highlighter->EnsureHighlighted(first, first + lines + 1);
}

CodeEditorBlockData* CodeEditor::GetBlockData(const QTextBlock& block) const
{
    return m_highlighter ? m_highlighter->GetBlockData(block) : nullptr;
}
