#include "language/DocumentCopy.h"

#include <QTextBlock>
#include <QTextDocument>

namespace {

/// Characters. Large enough for few of them, small enough to be changed in no time.
constexpr int PIECE_SIZE = 64 * 1024;
constexpr int BLOCKS_BETWEEN_LOOKS = 16; ///< at the clock

} // namespace

DocumentCopy::DocumentCopy(const QTextDocument* document)
    : m_document(document)
{ }

bool DocumentCopy::TakeSlice(const QDeadlineTimer& deadline)
{
    // The document counts a line end behind its last line as well.
    const int end = m_document->characterCount() - 1;
    QTextBlock block = m_document->findBlock(m_length);
    for (int count = 1; m_length < end; ++count) {
        if (m_pieces.isEmpty() || m_pieces.last().size() >= PIECE_SIZE)
            m_pieces.append(QString());
        const QString text = block.text();
        QString& piece = m_pieces.last();
        piece += text.midRef(m_length - block.position());
        block = block.next();
        if (block.isValid())
            piece += QLatin1Char('\n');
        m_length = block.isValid() ? block.position() : end;
        const bool looks = count % BLOCKS_BETWEEN_LOOKS == 0 || text.size() >= PIECE_SIZE;
        if (looks && deadline.hasExpired())
            break;
    }
    return m_length == end;
}

void DocumentCopy::OnContentsChange(int position, int removed, int added)
{
    if (position >= m_length)
        return;
    // Long insertions are left to the slices, as is what the document counts beyond its own end.
    const bool isWithin = position + removed <= m_length && added <= PIECE_SIZE
        && position + added < m_document->characterCount();
    if (isWithin)
        Replace(position, removed, TextBetween(position, position + added));
    else
        Truncate(position);
}

void DocumentCopy::Truncate(int length)
{
    while (m_length > length) {
        QString& last = m_pieces.last();
        const int dropped = qMin(m_length - length, last.size());
        last.chop(dropped);
        m_length -= dropped;
        if (last.isEmpty())
            m_pieces.removeLast();
    }
}

void DocumentCopy::Replace(int position, int removed, const QString& text)
{
    int index = 0;
    int offset = position;
    while (offset >= m_pieces[index].size())
        offset -= m_pieces[index++].size();
    m_length += text.size() - removed;
    const int first = index;
    const int insertAt = offset;
    while (removed > 0) {
        QString& piece = m_pieces[index++];
        const int dropped = qMin(removed, piece.size() - offset);
        piece.remove(offset, dropped);
        removed -= dropped;
        offset = 0;
    }
    m_pieces[first].insert(insertAt, text);
}

QString DocumentCopy::TextBetween(int start, int end) const
{
    QString text;
    QTextBlock block = m_document->findBlock(start);
    for (int position = start; position < end; block = block.next()) {
        const QString line = block.text() + QLatin1Char('\n');
        text += line.midRef(position - block.position(), end - position);
        position = start + text.size();
    }
    return text;
}
