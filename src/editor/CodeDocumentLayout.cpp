#include "editor/CodeDocumentLayout.h"

#include <QTextBlock>
#include <QTextDocument>

void CodeDocumentLayout::documentChanged(int from, int removed, int added)
{
    const QTextBlock block = document()->findBlock(from);
    const bool isOneLine = block.isValid() && from + added <= block.position() + block.length()
        && document()->blockCount() == m_blockCount;
    m_blockCount = document()->blockCount();
    if (isOneLine)
        QPlainTextDocumentLayout::documentChanged(from, 0, 1);
    else
        QPlainTextDocumentLayout::documentChanged(from, removed, added);
}
