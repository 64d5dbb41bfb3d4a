#include "window/PythonName.h"

#include <QRegularExpression>
#include <QString>

namespace {

const QString NAME_PATTERN = QStringLiteral("[^\\W\\d]\\w*(?:\\.[^\\W\\d]\\w*)*");

QRegularExpression Expression(const QString& pattern)
{
    return QRegularExpression(pattern, QRegularExpression::UseUnicodePropertiesOption);
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
    // Not behind a word or a dot: what follows the digits of a number is no name.
    static const QRegularExpression expression
        = Expression(QStringLiteral("(?<![\\w.])") + NAME_PATTERN);
    QRegularExpressionMatchIterator matches = expression.globalMatch(line);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        if (match.capturedStart() <= column && column <= match.capturedEnd())
            return match.captured();
    }
    return {};
}
