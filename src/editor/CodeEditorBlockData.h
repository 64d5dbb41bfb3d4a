#pragma once

#include <QString>
#include <QTextBlockUserData>
#include <QVector>

/// Where a bracket or a comment marker stands in its line, and whether it opens (+1) or closes
/// (-1).
struct MatchingCharInfo
{
    int position = 0;
    int direction = 0;
};

/// A range of columns within one line, both ends included.
struct PositionInfo
{
    int start = 0;
    int end = 0;
};

/// What the highlighter found in one line, so that typing aids and painting need not read the text
/// again. Owned by the text block. All lists are in the order of their columns.
class CodeEditorBlockData : public QTextBlockUserData
{
public:
    /// Empties the lists and the indent; the non-comment length and the empty mark stay.
    void Clear();

    /// Files a bracket under its kind; any other character is ignored.
    void AppendBrace(QChar character, int position);
    /// The brackets of the same kind as `character`; empty for anything but a bracket.
    QVector<MatchingCharInfo> GetBraces(QChar character) const;

    void AppendBlockComment(int position, int direction);
    void AppendIgnorePosition(int start, int end);
    void AppendSingleLineCommentPosition(int start, int end);
    void AppendBlockCommentPosition(int start, int end);
    bool IsIgnoredPosition(int position) const;
    bool IsSingleLineCommentPosition(int position) const;
    bool IsBlockCommentPosition(int position) const;

    /// The last bracket at or before `column` that nothing on this line closes. False, with
    /// `position` -1, when there is none.
    bool GetLastOpenBrace(int column, QChar& brace, int& position) const;
    /// The last closing bracket at or before `column` that no opener stands behind.
    bool GetLastClosingBrace(int column, QChar& brace, int& position) const;

    /// Column of the last comment opener at or before `column`, -1 without one.
    int OpenBlockCommentPosition(int column) const;
    /// Column of the first comment closer after `column`, -1 without one.
    int CloseBlockCommentPosition(int column) const;

    QString GetIndent() const { return m_indent; }
    void SetIndent(const QString& indent) { m_indent = indent; }
    int GetSmartIndentCount() const { return m_smartIndentCount; }
    void SetSmartIndentCount(int count) { m_smartIndentCount = count; }
    int GetNonCommentLength() const { return m_nonCommentLength; }
    void SetNonCommentLength(int length) { m_nonCommentLength = length; }
    bool IsEmpty() const { return m_empty; }
    void SetEmpty(bool empty) { m_empty = empty; }

private:
    bool FindUnbalanced(int column, int direction, QChar& brace, int& position) const;

    QVector<MatchingCharInfo> m_parentheses;
    QVector<MatchingCharInfo> m_curlyBraces;
    QVector<MatchingCharInfo> m_squareBrackets;
    QVector<MatchingCharInfo> m_blockComments;
    QVector<PositionInfo> m_ignorePositions;
    QVector<PositionInfo> m_singleLineCommentPositions;
    QVector<PositionInfo> m_blockCommentPositions;
    QString m_indent;
    int m_smartIndentCount = 0;
    int m_nonCommentLength = 0;
    bool m_empty = true;
};
