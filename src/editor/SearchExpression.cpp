#include "editor/SearchExpression.h"

#include <QRegularExpression>

namespace {

// Half a millisecond of trying on today's machines. Honest expressions take a step or two per
// character of a line.
constexpr char MATCH_LIMIT[] = "(*LIMIT_MATCH=250000)";

bool IsTypedAsExpression(const QRegularExpression& expression)
{
    return expression.captureCount() > 0
        || expression.pattern().startsWith(QLatin1String(MATCH_LIMIT));
}

/// What a backslash and this character stand for; null when for themselves.
QString Escaped(QChar character, const QRegularExpressionMatch& match)
{
    if (character == QLatin1Char('n'))
        return QStringLiteral("\n");
    if (character == QLatin1Char('t'))
        return QStringLiteral("\t");
    if (character == QLatin1Char('\\'))
        return QStringLiteral("\\");
    const int group = character.unicode() - '0';
    if (group < 1 || group > 9 || group > match.regularExpression().captureCount())
        return {};
    // A group that took no part stands for nothing, which is not null.
    const QString captured = match.captured(group);
    return captured.isNull() ? QStringLiteral("") : captured;
}

} // namespace

QRegularExpression CreateSearchRegEx(
    const QString& text, bool matchCase, bool matchWord, bool useRegularExpression)
{
    if (text.isEmpty())
        return {};
    QString pattern = useRegularExpression ? text : QRegularExpression::escape(text);
    if (matchWord)
        pattern = QStringLiteral("\\b%1\\b").arg(pattern);
    QRegularExpression::PatternOptions options = QRegularExpression::UseUnicodePropertiesOption;
    if (!matchCase)
        options |= QRegularExpression::CaseInsensitiveOption;
    return QRegularExpression(pattern, options);
}

QRegularExpression WithMatchLimit(const QRegularExpression& expression)
{
    if (expression.pattern().isEmpty())
        return expression;
    return QRegularExpression(
        QLatin1String(MATCH_LIMIT) + expression.pattern(), expression.patternOptions());
}

bool HasExceededMatchLimit(const QRegularExpressionMatch& match)
{
    return !match.isValid() && match.regularExpression().isValid();
}

QString ExpandReplacement(const QString& text, const QRegularExpressionMatch& match)
{
    if (!IsTypedAsExpression(match.regularExpression()))
        return text;
    QString expanded;
    for (int i = 0; i < text.size(); ++i) {
        const bool escapes = text.at(i) == QLatin1Char('\\') && i + 1 < text.size();
        const QString meant = escapes ? Escaped(text.at(i + 1), match) : QString();
        expanded += meant.isNull() ? QString(text.at(i)) : meant;
        i += meant.isNull() ? 0 : 1;
    }
    return expanded;
}
