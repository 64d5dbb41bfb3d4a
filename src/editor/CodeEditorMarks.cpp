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

/// Per change the sums over all up to it.
QVector<PositionChange> SumsOf(const QVector<PositionChange>& changes)
{
    QVector<PositionChange> sums = changes;
    for (int i = 1; i < sums.size(); ++i) {
        sums[i].removed += sums[i - 1].removed;
        sums[i].added += sums[i - 1].added;
        sums[i].addedLines += sums[i - 1].addedLines;
    }
    return sums;
}

/// False when the mark goes.
bool OffsetMark(CodeEditorMark& mark, const QVector<PositionChange>& changes,
    const QVector<PositionChange>& sums)
{
    const auto endsBefore = [](const PositionChange& change, int start) {
        return change.position + change.removed <= start;
    };
    auto change = std::lower_bound(changes.cbegin(), changes.cend(), mark.start, endsBefore);
    const int before = int(change - changes.cbegin());
    int growth = 0;
    for (; change != changes.cend() && change->position < mark.end; ++change) {
        const bool isInside
            = change->position >= mark.start && change->position + change->removed <= mark.end;
        const bool isAll = change->removed > 0 && change->removed == mark.end - mark.start;
        if (!isInside || isAll)
            return false;
        growth += change->added - change->removed;
    }
    const PositionChange shift = before > 0 ? sums.at(before - 1) : PositionChange();
    mark.start += shift.added - shift.removed;
    mark.end += shift.added - shift.removed + growth;
    mark.line += shift.addedLines;
    return true;
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

bool CodeEditorMarks::Offset(const QVector<PositionChange>& changes)
{
    const QVector<PositionChange> shifts = SumsOf(changes);
    bool hasGone = false;
    for (QVector<CodeEditorMark>& marks : m_marks) {
        const auto goes = [&](CodeEditorMark& mark) {
            const bool isGone = !OffsetMark(mark, changes, shifts);
            hasGone |= isGone;
            return isGone;
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
