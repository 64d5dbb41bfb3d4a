#include "editor/CodeEditorBlockData.h"

#include <algorithm>

namespace {

bool Contains(const QVector<PositionInfo>& ranges, int position)
{
    return std::any_of(ranges.cbegin(), ranges.cend(), [position](const PositionInfo& range) {
        return range.start <= position && position <= range.end;
    });
}

} // namespace

void CodeEditorBlockData::Clear()
{
    m_parentheses.clear();
    m_curlyBraces.clear();
    m_squareBrackets.clear();
    m_blockComments.clear();
    m_ignorePositions.clear();
    m_singleLineCommentPositions.clear();
    m_blockCommentPositions.clear();
    m_indent.clear();
    m_smartIndentCount = 0;
}

void CodeEditorBlockData::AppendBrace(QChar character, int position)
{
    switch (character.unicode()) {
    case '(': m_parentheses.append({position, 1}); break;
    case ')': m_parentheses.append({position, -1}); break;
    case '{': m_curlyBraces.append({position, 1}); break;
    case '}': m_curlyBraces.append({position, -1}); break;
    case '[': m_squareBrackets.append({position, 1}); break;
    case ']': m_squareBrackets.append({position, -1}); break;
    default: break;
    }
}

QVector<MatchingCharInfo> CodeEditorBlockData::GetBraces(QChar character) const
{
    switch (character.unicode()) {
    case '(':
    case ')': return m_parentheses;
    case '{':
    case '}': return m_curlyBraces;
    case '[':
    case ']': return m_squareBrackets;
    default: return {};
    }
}

void CodeEditorBlockData::AppendBlockComment(int position, int direction)
{
    m_blockComments.append({position, direction});
}

void CodeEditorBlockData::AppendIgnorePosition(int start, int end)
{
    m_ignorePositions.append({start, end});
}

void CodeEditorBlockData::AppendSingleLineCommentPosition(int start, int end)
{
    m_singleLineCommentPositions.append({start, end});
}

void CodeEditorBlockData::AppendBlockCommentPosition(int start, int end)
{
    m_blockCommentPositions.append({start, end});
}

bool CodeEditorBlockData::IsIgnoredPosition(int position) const
{
    return Contains(m_ignorePositions, position);
}

bool CodeEditorBlockData::IsSingleLineCommentPosition(int position) const
{
    return Contains(m_singleLineCommentPositions, position);
}

bool CodeEditorBlockData::IsBlockCommentPosition(int position) const
{
    return Contains(m_blockCommentPositions, position);
}

bool CodeEditorBlockData::GetLastOpenBrace(int column, QChar& brace, int& position) const
{
    return FindUnbalanced(column, 1, brace, position);
}

bool CodeEditorBlockData::GetLastClosingBrace(int column, QChar& brace, int& position) const
{
    return FindUnbalanced(column, -1, brace, position);
}

bool CodeEditorBlockData::FindUnbalanced(
    int column, int direction, QChar& brace, int& position) const
{
    const struct
    {
        const QVector<MatchingCharInfo>& braces;
        char opener;
        char closer;
    } kinds[]
        = {{m_parentheses, '(', ')'}, {m_curlyBraces, '{', '}'}, {m_squareBrackets, '[', ']'}};

    position = -1;
    // One balance for all three kinds: a line that closes one kind hides an opener of another.
    // New-line indentation relies on it, so it is not reset between the lists.
    int balance = 0;
    for (const auto& kind : kinds) {
        for (auto entry = kind.braces.crbegin(); entry != kind.braces.crend(); ++entry) {
            if (entry->position > column)
                continue;
            balance += entry->direction;
            if (balance * direction <= 0)
                continue;
            if (entry->position > position) {
                position = entry->position;
                brace = QLatin1Char(direction > 0 ? kind.opener : kind.closer);
            }
            break;
        }
    }
    return position >= 0;
}

int CodeEditorBlockData::OpenBlockCommentPosition(int column) const
{
    for (auto entry = m_blockComments.crbegin(); entry != m_blockComments.crend(); ++entry) {
        if (entry->direction > 0 && entry->position <= column)
            return entry->position;
    }
    return -1;
}

int CodeEditorBlockData::CloseBlockCommentPosition(int column) const
{
    for (const MatchingCharInfo& entry : m_blockComments) {
        if (entry.direction < 0 && entry.position > column)
            return entry.position;
    }
    return -1;
}
