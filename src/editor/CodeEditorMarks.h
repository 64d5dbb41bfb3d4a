#pragma once

#include "language/ParserMessage.h"

#include <QVector>

class QTextDocument;

enum class MarkSeverity { Error = 0, Warning = 1, Info = 2 };
constexpr int MARK_SEVERITIES = 3;

/// One message tied to a place in a document.
struct CodeEditorMark
{
    ParserMessage message;
    int start = 0; ///< the marked span; `end` is behind its last character
    int end = 0;
    int line = 0; ///< of `start`, from 0
    MarkSeverity severity = MarkSeverity::Error;
};

/// Where characters of a text were replaced.
struct PositionChange
{
    int position = 0;
    int removed = 0;
    int added = 0;
    int addedLines = 0; ///< may be negative
};

/// What the checkers said about one document, tied to the text and carried along while it is
/// edited. Owned by the document's editor, which tells it of every change; knows no widget.
/// Spans always have start <= end. Every operation is linear in the number of messages at most (and
/// of changes) and independent of the size of the document.
class CodeEditorMarks
{
public:
    /// Replaces all messages of a severity. Places outside the text are moved to its nearest end; a
    /// message with line and column gets the word there, or the rest of the line.
    void SetMessages(MarkSeverity severity, const QVector<ParserMessage>& messages,
        const QTextDocument& document);
    void Clear();

    /// Follows changes of the text, ascending and all by the positions before: spans behind one
    /// move, spans around it grow or shrink, spans whose edge or whole text was removed go. True
    /// when a mark went.
    bool Offset(const QVector<PositionChange>& changes);

    /// In the order in which they were reported.
    const QVector<CodeEditorMark>& GetMarks(MarkSeverity severity) const;
    int GetCount(MarkSeverity severity) const { return GetMarks(severity).size(); }
    bool IsEmpty() const;

    /// The marks that begin on the line (from 0), worst first, at most `limit` of them.
    QVector<CodeEditorMark> GetMarksOfLine(int line, int limit) const;
    /// For each of `count` lines from `first` on the MarkSeverity of its worst mark, -1 without
    /// any.
    QVector<int> GetWorstOfLines(int first, int count) const;
    /// The marks whose span holds the character at `position`, worst first. An empty span holds
    /// the character behind it.
    QVector<CodeEditorMark> GetMarksAt(int position, int limit) const;
    /// The marks whose span touches the characters from `start` to before `end`, infos first, so
    /// that painting in this order leaves the worst on top.
    QVector<CodeEditorMark> GetMarksWithin(int start, int end) const;

private:
    template <typename Predicate>
    QVector<CodeEditorMark> WorstFirst(Predicate isWanted, int limit) const;

    QVector<CodeEditorMark> m_marks[MARK_SEVERITIES];
};

/// The place of a message in the text: `start`, `end` and `line` of the result.
CodeEditorMark LocateMessage(
    const ParserMessage& message, MarkSeverity severity, const QTextDocument& document);
