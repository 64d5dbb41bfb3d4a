#include "editor/SearchExpression.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <cstring>

namespace {

// Half a millisecond of trying on today's machines. Honest expressions take a step or two per
// character of a line.
constexpr char MATCH_LIMIT[] = "(*LIMIT_MATCH=250000)";

bool IsTypedAsExpression(const QRegularExpression& expression)
{
    return expression.captureCount() > 0
        || expression.pattern().startsWith(QLatin1String(MATCH_LIMIT));
}

/// A group that took no part stands for nothing, which is not null.
QString Captured(const QRegularExpressionMatch& match, int group)
{
    const QString captured = match.captured(group);
    return captured.isNull() ? QStringLiteral("") : captured;
}

/// What "\\g<...>" at the start of the text stands for and how long it is; 0 when it is nothing.
int ExpandGroupReference(
    const QStringRef& text, const QRegularExpressionMatch& match, QString& expanded)
{
    const int end = text.indexOf(QLatin1Char('>'));
    if (end < 0 || !text.startsWith(QLatin1String("\\g<")))
        return 0;
    const QString name = text.mid(3, end - 3).toString();
    const QRegularExpression expression = match.regularExpression();
    bool isNumber = false;
    int group = name.toInt(&isNumber);
    if (!isNumber)
        group = name.isEmpty() ? -1 : expression.namedCaptureGroups().indexOf(name);
    if (group < 0 || group > expression.captureCount())
        return 0;
    expanded += Captured(match, group);
    return end + 1;
}

/// The same for every escape.
int ExpandEscape(const QStringRef& text, const QRegularExpressionMatch& match, QString& expanded)
{
    if (text.size() < 2 || text.at(0) != QLatin1Char('\\'))
        return 0;
    const QChar character = text.at(1);
    switch (character.unicode()) {
    case 'n': expanded += QLatin1Char('\n'); return 2;
    case 't': expanded += QLatin1Char('\t'); return 2;
    case '\\': expanded += QLatin1Char('\\'); return 2;
    case 'g': return ExpandGroupReference(text, match, expanded);
    default: break;
    }
    const int group = character.unicode() - '0';
    if (group < 0 || group > 9 || group > match.regularExpression().captureCount())
        return 0;
    expanded += Captured(match, group);
    return 2;
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

QStringRef WithoutMatchLimit(const QString& pattern)
{
    const int length = static_cast<int>(std::strlen(MATCH_LIMIT));
    return pattern.midRef(pattern.startsWith(QLatin1String(MATCH_LIMIT)) ? length : 0);
}

QString DescribeFault(const QString& typed)
{
    const QRegularExpression expression(typed);
    if (expression.isValid())
        return {};
    return QCoreApplication::translate("SearchExpression", "Invalid expression: %1 (character %2)")
        .arg(expression.errorString())
        .arg(qMin(expression.patternErrorOffset() + 1, typed.size()));
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
    for (int i = 0; i < text.size();) {
        const int length = ExpandEscape(text.midRef(i), match, expanded);
        if (length == 0)
            expanded += text.at(i);
        i += qMax(1, length);
    }
    return expanded;
}
