#include "window/PythonName.h"

#include <QRegularExpression>
#include <QString>

namespace {

const QString NAME_PATTERN = QStringLiteral("[^\\W\\d]\\w*(?:\\.[^\\W\\d]\\w*)*");

QRegularExpression Expression(const QString& pattern)
{
    return QRegularExpression(pattern, QRegularExpression::UseUnicodePropertiesOption);
}

/// Of the name that holds both columns.
QRegularExpressionMatch MatchAround(const QString& line, int start, int end)
{
    // Not behind a word or a dot: what follows the digits of a number is no name.
    static const QRegularExpression expression
        = Expression(QStringLiteral("(?<![\\w.])") + NAME_PATTERN);
    QRegularExpressionMatchIterator matches = expression.globalMatch(line);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        if (match.capturedStart() <= start && end <= match.capturedEnd())
            return match;
    }
    return {};
}

} // namespace

bool PythonName::IsName(const QString& text)
{
    static const QRegularExpression expression
        = Expression(QRegularExpression::anchoredPattern(NAME_PATTERN));
    return expression.match(text).hasMatch();
}

QString PythonName::NameAt(const QString& line, int column)
{
    return MatchAround(line, column, column).captured();
}

QString PythonName::NameThrough(const QString& line, int start, int end)
{
    const QRegularExpressionMatch match = MatchAround(line, start, end);
    if (!match.hasMatch())
        return {};
    const int dot = match.captured().indexOf(QLatin1Char('.'), end - match.capturedStart());
    return match.captured().left(dot);
}
