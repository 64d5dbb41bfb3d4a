#include "output/LongLines.h"

#include "output/TextTail.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace {

/// User state of a block. The console has no highlighter, which is who uses these otherwise, and
/// unlike a block's format it does not pass on to the blocks made behind it.
constexpr int CONTINUES = 1;
constexpr int NEAR = 256; ///< characters that a piece may be shorter, to end behind a blank

/// How many of the characters from `from` on make a piece of at most `room`.
int PieceLength(const QString& line, int from, int room)
{
    for (int length = room; length > qMax(0, room - NEAR); --length) {
        if (line.at(from + length - 1).isSpace())
            return length;
    }
    return line.at(from + room).isLowSurrogate() ? room - 1 : room;
}

} // namespace

LongLines::LongLines(QTextDocument* document, int longestWhole, int piece)
    : m_document(document)
    , m_longestWhole(longestWhole)
    , m_piece(piece)
{ }

bool LongLines::Continues(const QTextBlock& block)
{
    return block.userState() == CONTINUES && block.position() > 0;
}

bool LongLines::IsNeededFor(const QString& text) const
{
    if (m_breaks > 0)
        return true;
    int length = m_document->lastBlock().length() - 1;
    if (length + text.size() <= m_longestWhole)
        return false;
    for (int from = 0; from <= text.size();) {
        const int end = LineEnd(text, from);
        if (length + end - from > m_longestWhole)
            return true;
        length = 0;
        from = end + 1;
    }
    return false;
}

void LongLines::Append(const QString& text)
{
    const int limit = GetLineLimit();
    // The document would drop blocks, not lines.
    m_document->setMaximumBlockCount(0);
    QTextCursor cursor(m_document);
    cursor.movePosition(QTextCursor::End);
    cursor.beginEditBlock();
    int end = LineEnd(text, 0);
    AppendLine(cursor, text.left(end));
    while (end < text.size()) {
        const int from = end + BreakLength(text, end);
        end = LineEnd(text, from);
        cursor.insertBlock();
        AppendLine(cursor, text.mid(from, end - from));
    }
    cursor.endEditBlock();
    SetLineLimit(limit);
}

void LongLines::AppendLine(QTextCursor& cursor, const QString& line)
{
    int length = cursor.block().length() - 1;
    const int longest = Continues(cursor.block()) ? m_piece : m_longestWhole;
    if (length + line.size() <= longest) {
        cursor.insertText(line);
        return;
    }
    int from = 0;
    while (length + line.size() - from > m_piece) {
        if (length < m_piece) {
            const int count = PieceLength(line, from, m_piece - length);
            cursor.insertText(line.mid(from, count));
            from += count;
        }
        cursor.insertBlock();
        cursor.block().setUserState(CONTINUES);
        ++m_breaks;
        length = 0;
    }
    cursor.insertText(line.mid(from));
}

void LongLines::Forget()
{
    const int limit = GetLineLimit();
    m_breaks = 0;
    m_document->setMaximumBlockCount(limit);
}

int LongLines::GetLineCount() const
{
    return m_document->blockCount() - m_breaks;
}

int LongLines::GetLineLimit() const
{
    const int limit = m_document->maximumBlockCount();
    return limit > 0 ? limit - m_breaks : 0;
}

void LongLines::SetLineLimit(int lines)
{
    if (m_breaks > 0 && lines > 0)
        DropLines(GetLineCount() - lines);
    m_document->setMaximumBlockCount(lines > 0 ? lines + m_breaks : 0);
}

void LongLines::DropLines(int count)
{
    QTextBlock block = m_document->firstBlock();
    int breaks = 0;
    for (int passed = 0; block.isValid(); block = block.next()) {
        const bool continues = Continues(block);
        breaks += continues ? 1 : 0;
        if (!continues && passed++ == count)
            break;
    }
    if (count <= 0 || !block.isValid())
        return;
    QTextCursor cursor(m_document);
    cursor.setPosition(block.position(), QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    m_breaks -= breaks;
}

QString LongLines::WithoutBreaks(const QString& text, int start) const
{
    if (m_breaks == 0)
        return text;
    QString joined;
    joined.reserve(text.size());
    int from = 0;
    QTextBlock block = m_document->findBlock(start).next();
    for (; block.isValid() && block.position() <= start + text.size(); block = block.next()) {
        if (!Continues(block))
            continue;
        const int gap = block.position() - 1 - start;
        joined += text.midRef(from, gap - from);
        from = gap + 1;
    }
    return joined += text.midRef(from);
}
