#include "editor/CodeEditorMarks.h"

#include "editor/TextMatches.h"

#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>

namespace {

/// The word at a column of a line; the rest of the line where no word is.
void LocateColumn(CodeEditorMark& mark, const QTextBlock& block, int column)
{
    const QString text = block.text();
    const int from = qBound(0, column, text.size());
    int to = from;
    while (to < text.size() && IsWordCharacter(text.at(to)))
        ++to;
    mark.start = block.position() + from;
    mark.end = block.position() + (to > from ? to : text.size());
    mark.line = block.blockNumber();
}

enum class Fate { Same, Moved, Gone };

/// What a change of the text does to a span.
Fate OffsetSpan(int& start, int& end, int position, int removed, int added)
{
    const int removedEnd = position + removed;
    if (removedEnd <= start) {
        start += added - removed;
        end += added - removed;
        return Fate::Moved;
    }
    if (position >= end)
        return Fate::Same;
    const bool insideOnly = position >= start && removedEnd <= end;
    if (!insideOnly || (removed > 0 && removed == end - start))
        return Fate::Gone;
    end += added - removed;
    return Fate::Moved;
}

} // namespace

CodeEditorMark LocateMessage(
    const ParserMessage& message, MarkSeverity severity, const QTextDocument& document)
{
    CodeEditorMark mark;
    mark.message = message;
    mark.severity = severity;
    if (message.start < 0 && message.line >= 0) {
        const int line = qMin(message.line, document.blockCount() - 1);
        LocateColumn(mark, document.findBlockByNumber(line), message.column);
        return mark;
    }
    const int last = document.characterCount() - 1;
    mark.start = qBound(0, message.start, last);
    mark.end = qBound(mark.start, message.end, last);
    mark.line = document.findBlock(mark.start).blockNumber();
    return mark;
}

void CodeEditorMarks::SetMessages(
    MarkSeverity severity, const QVector<ParserMessage>& messages, const QTextDocument& document)
{
    QVector<CodeEditorMark>& marks = m_marks[static_cast<int>(severity)];
    marks.clear();
    marks.reserve(messages.size());
    for (const ParserMessage& message : messages)
        marks.append(LocateMessage(message, severity, document));
}

void CodeEditorMarks::Clear()
{
    for (QVector<CodeEditorMark>& marks : m_marks)
        marks.clear();
}

bool CodeEditorMarks::Offset(int position, int removed, int added, int addedLines)
{
    bool hasGone = false;
    for (QVector<CodeEditorMark>& marks : m_marks) {
        const auto goes = [&](CodeEditorMark& mark) {
            const int oldStart = mark.start;
            const Fate fate = OffsetSpan(mark.start, mark.end, position, removed, added);
            hasGone |= fate == Fate::Gone;
            // A span that only grew or shrank begins on the line it began on.
            if (fate == Fate::Moved && position + removed <= oldStart)
                mark.line += addedLines;
            return fate == Fate::Gone;
        };
        marks.erase(std::remove_if(marks.begin(), marks.end(), goes), marks.end());
    }
    return hasGone;
}

const QVector<CodeEditorMark>& CodeEditorMarks::GetMarks(MarkSeverity severity) const
{
    return m_marks[static_cast<int>(severity)];
}

bool CodeEditorMarks::IsEmpty() const
{
    return std::all_of(std::begin(m_marks), std::end(m_marks),
        [](const QVector<CodeEditorMark>& marks) { return marks.isEmpty(); });
}

template <typename Predicate>
QVector<CodeEditorMark> CodeEditorMarks::WorstFirst(Predicate isWanted, int limit) const
{
    QVector<CodeEditorMark> found;
    for (const QVector<CodeEditorMark>& marks : m_marks) {
        for (const CodeEditorMark& mark : marks) {
            if (found.size() >= limit)
                return found;
            if (isWanted(mark))
                found.append(mark);
        }
    }
    return found;
}

QVector<CodeEditorMark> CodeEditorMarks::GetMarksOfLine(int line, int limit) const
{
    return WorstFirst([line](const CodeEditorMark& mark) { return mark.line == line; }, limit);
}

QVector<int> CodeEditorMarks::GetWorstOfLines(int first, int count) const
{
    QVector<int> worst(qMax(0, count), -1);
    for (int severity = MARK_SEVERITIES - 1; severity >= 0; --severity) {
        for (const CodeEditorMark& mark : m_marks[severity]) {
            if (mark.line >= first && mark.line - first < worst.size())
                worst[mark.line - first] = severity;
        }
    }
    return worst;
}

QVector<CodeEditorMark> CodeEditorMarks::GetMarksAt(int position, int limit) const
{
    return WorstFirst(
        [position](const CodeEditorMark& mark) {
            return mark.start <= position && position < qMax(mark.end, mark.start + 1);
        },
        limit);
}

QVector<CodeEditorMark> CodeEditorMarks::GetMarksWithin(int start, int end) const
{
    QVector<CodeEditorMark> found;
    for (int severity = MARK_SEVERITIES - 1; severity >= 0; --severity) {
        for (const CodeEditorMark& mark : m_marks[severity]) {
            if (mark.start < end && qMax(mark.end, mark.start + 1) > start)
                found.append(mark);
        }
    }
    return found;
}
