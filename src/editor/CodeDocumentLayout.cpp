#include "editor/CodeDocumentLayout.h"

#include <QTextBlock>
#include <QTextDocument>

#include <utility>

CodeDocumentLayout::CodeDocumentLayout(QTextDocument* document)
    : QPlainTextDocumentLayout(document)
{
    connect(document, &QTextDocument::contentsChange, this, &CodeDocumentLayout::OnContentsChange);
}

/// Comes before documentChanged, which is told of the colours as well.
void CodeDocumentLayout::OnContentsChange(int position, int, int added)
{
    m_textEnd = position + added;
}

void CodeDocumentLayout::documentChanged(int from, int removed, int added)
{
    const QTextBlock block = document()->findBlock(from);
    const int lineEnd = block.position() + block.length();
    const int textEnd = std::exchange(m_textEnd, -1);
    // New text up to a line end leaves the next line with the rest of what it replaced.
    const bool isOneLine = block.isValid() && from + added <= lineEnd && textEnd < lineEnd
        && document()->blockCount() == m_blockCount;
    m_blockCount = document()->blockCount();
    if (isOneLine)
        QPlainTextDocumentLayout::documentChanged(from, 0, 1);
    else
        QPlainTextDocumentLayout::documentChanged(from, removed, added);
}
