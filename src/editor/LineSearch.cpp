#include "editor/LineSearch.h"

#include "editor/SearchExpression.h"

namespace {

const QLatin1String WORD_BOUNDARY("\\b");

bool IsWordCode(uint code)
{
    return QChar::isLetterOrNumber(code) || code == '_';
}

bool IsPair(const QStringRef& text, int index)
{
    return text.at(index).isHighSurrogate() && index + 1 < text.size()
        && text.at(index + 1).isLowSurrogate();
}

bool IsWordBehind(const QStringRef& text, int column)
{
    if (column >= text.size())
        return false;
    return IsWordCode(IsPair(text, column)
            ? QChar::surrogateToUcs4(text.at(column), text.at(column + 1))
            : text.at(column).unicode());
}

bool IsWordBefore(const QStringRef& text, int column)
{
    const bool isPair = column > 1 && IsPair(text, column - 2);
    return column > 0 && IsWordBehind(text, column - (isPair ? 2 : 1));
}

/// The plain text that a pattern stands for; empty if it is anything more.
QString PlainText(const QStringRef& pattern, bool ignoresCase)
{
    QString text;
    for (int i = 0; i < pattern.size(); ++i) {
        const bool isEscaped = pattern.at(i) == QLatin1Char('\\') && ++i < pattern.size();
        const QChar character = pattern.at(qMin(i, pattern.size() - 1));
        const bool isWord = character.isLetterOrNumber() || character == QLatin1Char('_');
        // Which letters are the same beyond these, expressions know better.
        if (isWord == isEscaped || (ignoresCase && character.unicode() > 127))
            return {};
        text += character;
    }
    return text;
}

} // namespace

LineSearch::LineSearch(const QRegularExpression& expression)
    : m_expression(expression)
    , m_isSearching(!expression.pattern().isEmpty() && expression.isValid())
{
    if (!m_isSearching)
        return;
    m_expression.optimize();
    PreparePlainText();
}

void LineSearch::PreparePlainText()
{
    const QRegularExpression::PatternOptions options = m_expression.patternOptions();
    const bool ignoresCase = options.testFlag(QRegularExpression::CaseInsensitiveOption);
    if (options
        & ~(QRegularExpression::CaseInsensitiveOption
            | QRegularExpression::UseUnicodePropertiesOption))
        return;
    const QString pattern = m_expression.pattern();
    QStringRef sought = WithoutMatchLimit(pattern);
    const bool isWord = options.testFlag(QRegularExpression::UseUnicodePropertiesOption)
        && sought.size() > 2 * WORD_BOUNDARY.size() && sought.startsWith(WORD_BOUNDARY)
        && sought.endsWith(WORD_BOUNDARY);
    if (isWord)
        sought = sought.mid(WORD_BOUNDARY.size()).chopped(WORD_BOUNDARY.size());
    const QString text = PlainText(sought, ignoresCase);
    if (text.isEmpty())
        return;
    m_isWord = isWord;
    m_matcher = QStringMatcher(text, ignoresCase ? Qt::CaseInsensitive : Qt::CaseSensitive);
}

bool LineSearch::IsWordBoundary(const QStringRef& line, int column)
{
    return IsWordBefore(line, column) != IsWordBehind(line, column);
}

bool LineSearch::IsValidText(const QStringRef& line)
{
    return QStringView(line).isValidUtf16();
}

/// As long as before, so that columns stay what they are.
QString LineSearch::MadeValid(const QStringRef& line)
{
    QString valid = line.toString();
    for (int i = 0; i < valid.size(); ++i) {
        if (IsPair(QStringRef(&valid), i))
            ++i;
        else if (valid.at(i).isSurrogate())
            valid[i] = QChar::ReplacementCharacter;
    }
    return valid;
}
