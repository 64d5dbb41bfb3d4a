// Colours and line data of a code editor.

#include "editor/CodeEditor.h"
#include "language/MelHighlighter.h"
#include "language/PythonHighlighter.h"

#include <QTextBlock>

#include <utility>

/// A highlighter that goes takes its colours along, which shows lines anew: nobody may ask it then.
void CodeEditor::DropHighlighter()
{
    delete std::exchange(m_highlighter, nullptr);
}

void CodeEditor::SetHighlighterFromLanguage()
{
    DropHighlighter();
    switch (m_language) {
    case CodeEditorLanguage::Mel: m_highlighter = new MelHighlighter(document()); break;
    case CodeEditorLanguage::Python: m_highlighter = new PythonHighlighter(document()); break;
    case CodeEditorLanguage::Text: m_highlighter = new Highlighter(document()); break;
    }
}

void CodeEditor::HighlightVisibleLines()
{
    if (!m_highlighter)
        return;
    const int first = firstVisibleBlock().blockNumber();
    const int lines = viewport()->height() / qMax(1, fontMetrics().lineSpacing());
    m_highlighter->EnsureHighlighted(first, first + lines + 1);
}

CodeEditorBlockData* CodeEditor::GetBlockData(const QTextBlock& block) const
{
    return m_highlighter ? m_highlighter->GetBlockData(block) : nullptr;
}
