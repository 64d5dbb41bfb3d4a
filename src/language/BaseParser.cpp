#include "language/BaseParser.h"

#include <QStringView>

#include <algorithm>

namespace {

bool IsWordCharacter(QChar character)
{
    return character.isLetterOrNumber() || character.isMark() || character == QLatin1Char('_');
}

bool ContainsWord(QStringView text, QLatin1String word)
{
    for (int found = text.indexOf(word); found >= 0; found = text.indexOf(word, found + 1)) {
        const int end = found + word.size();
        const bool startsHere = found == 0 || !IsWordCharacter(text.at(found - 1));
        if (startsHere && (end == text.size() || !IsWordCharacter(text.at(end))))
            return true;
    }
    return false;
}

bool IsNameCharacter(QChar character)
{
    const ushort code = character.unicode();
    return (code >= 'a' && code <= 'z') || (code >= 'A' && code <= 'Z')
        || (code >= '0' && code <= '9') || code == '_';
}

} // namespace

void BaseParser::ClearAll()
{
    m_items.clear();
    m_errors.clear();
    m_warnings.clear();
    m_infos.clear();
    m_parenthesesDepth = 0;
    m_bracesDepth = 0;
    m_bracketsDepth = 0;
    m_parenthesesErrorReported = false;
}

void BaseParser::Parse(const QString& text, const QString& filePath)
{
    ClearAll();
    m_script = QString(text.size() + 1, Qt::Uninitialized);
    QChar* end = std::replace_copy(text.cbegin(), text.cend(), m_script.data(),
        QChar(QChar::ParagraphSeparator), QChar(QChar::LineFeed));
    *end = QChar::LineFeed;
    m_position = 0;
    m_filePath = filePath;
}

void BaseParser::AppendError(const QString& message, int start, int end)
{
    m_errors.append({message, start, end, -1, -1});
}

void BaseParser::AppendWarning(const QString& message, int start, int end)
{
    m_warnings.append({message, start, end, -1, -1});
}

void BaseParser::AppendInfo(const QString& message, int start, int end)
{
    m_infos.append({message, start, end, -1, -1});
}

void BaseParser::AppendItem(const QString& name, ParserItemType type, int position, int level)
{
    m_items.append({name, type, position, level});
}

void BaseParser::ParenthesesError(QChar expected, int start, int end)
{
    ReportBracket(QLatin1String("Expected a '%1'"), expected, start, end);
}

void BaseParser::UnexpectedParenthesesError(QChar found, int start, int end)
{
    ReportBracket(QLatin1String("Unexpected '%1'"), found, start, end);
}

void BaseParser::ReportBracket(QLatin1String message, QChar bracket, int start, int end)
{
    if (m_parenthesesErrorReported)
        return;
    AppendError(QString(message).arg(bracket), start, end);
    m_parenthesesErrorReported = true;
}

QString BaseParser::GetLineFromScript(int from) const
{
    return m_script.mid(from, LineEnd(from) - from);
}

int BaseParser::LineEnd(int from) const
{
    const int end = m_script.indexOf(QLatin1Char('\n'), from);
    return end < 0 ? m_script.length() : end;
}

int BaseParser::NextNonSpace(int from) const
{
    const auto found = std::find_if_not(m_script.cbegin() + from, m_script.cend(),
        [](QChar character) { return character.isSpace(); });
    return int(found - m_script.cbegin());
}

int BaseParser::SkipSpaceInLine(int from) const
{
    const auto found = std::find_if_not(m_script.cbegin() + from, m_script.cend(),
        [](QChar character) { return character.isSpace() && character != QChar(QChar::LineFeed); });
    return int(found - m_script.cbegin());
}

int BaseParser::NameEnd(int from, QChar extra) const
{
    const auto found = std::find_if_not(m_script.cbegin() + from, m_script.cend(),
        [extra](QChar character) { return IsNameCharacter(character) || character == extra; });
    return int(found - m_script.cbegin());
}

bool BaseParser::StartsWith(int from, QLatin1String word) const
{
    return m_script.length() - from >= word.size()
        && std::equal(word.cbegin(), word.cend(), m_script.cbegin() + from,
            [](char expected, QChar found) { return found == QLatin1Char(expected); });
}

bool BaseParser::IsEscaped(int position) const
{
    int backslash = position;
    while (backslash > 0 && m_script.at(backslash - 1) == QLatin1Char('\\'))
        --backslash;
    return (position - backslash) % 2 != 0;
}

bool BaseParser::ParseQuoted(QChar quote, int start)
{
    const int last = m_script.length() - 1;
    // The last character is a line feed, and no string goes on behind it.
    for (++m_position; m_position <= last; ++m_position) {
        const QChar character = m_script.at(m_position);
        if (character == quote && !IsEscaped(m_position))
            return true;
        if (character != QLatin1Char('\n'))
            continue;
        if (m_position == last || !IsEscaped(m_position))
            break;
    }
    AppendError(QStringLiteral("Unterminated String"), start, m_position);
    return false;
}

void BaseParser::TodoCheck(int start, int textEnd, int end)
{
    static const QString MESSAGE = QStringLiteral("TODO:");
    if (ContainsWord(QStringView(m_script).mid(start, textEnd - start), QLatin1String("TODO")))
        AppendInfo(MESSAGE, start, end);
}
