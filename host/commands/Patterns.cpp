#include "commands/Patterns.h"

#include <QCache>

namespace host::commands {

namespace {

const auto OPTIONS
    = QRegularExpression::DotMatchesEverythingOption | QRegularExpression::DontCaptureOption;

QString Literal(QChar character)
{
    return QRegularExpression::escape(QString(character));
}

/// True when the "]" behind the backslash at `position` belongs to the set: another one closes it
/// before a new set begins. "[^/\\]*$", the custom for the last part of a path, ends at the first.
bool EscapesSetEnd(const QString& pattern, int position)
{
    const int close = pattern.indexOf(QLatin1Char(']'), position + 2);
    const int open = pattern.indexOf(QLatin1Char('['), position + 2);
    return close >= 0 && (open < 0 || close < open);
}

/// Position of the "]" that closes the set opened at `open`, -1 when there is none. A "]" right
/// after the opening belongs to the set.
int SetEnd(const QString& pattern, int open, const QString& negations)
{
    int position = open + 1;
    if (position < pattern.size() && negations.contains(pattern.at(position)))
        ++position;
    ++position;
    while (position < pattern.size() && pattern.at(position) != QLatin1Char(']')) {
        const bool escape = pattern.at(position) == QLatin1Char('\\')
            && position + 1 < pattern.size()
            && (pattern.at(position + 1) != QLatin1Char(']') || EscapesSetEnd(pattern, position));
        position += escape ? 2 : 1;
    }
    return position < pattern.size() ? position : -1;
}

/// The set between `open` and `end` in the library's notation. A "-" between two characters stays a
/// range; a backslash counts as itself unless it stands before something special.
QString Set(const QString& pattern, int open, int end, const QString& negations)
{
    QString set(QLatin1Char('['));
    int position = open + 1;
    if (negations.contains(pattern.at(position))) {
        set += QLatin1Char('^');
        ++position;
    }
    static const QString special = QStringLiteral("]\\-^[");
    while (position < end) {
        const QChar character = pattern.at(position);
        const bool range = character == QLatin1Char('-') && position > open + 1
            && position + 1 < end && !set.endsWith(QLatin1Char('^'));
        if (range) {
            set += character;
        } else if (character == QLatin1Char('\\') && position + 1 < end
            && special.contains(pattern.at(position + 1))) {
            set += Literal(pattern.at(++position));
        } else {
            set += Literal(character);
        }
        ++position;
    }
    return set + QLatin1Char(']');
}

/// A "|" with nothing before or behind it separates nothing: in ".*|" it is that of a path.
bool SeparatesAlternatives(const QString& pattern, int position)
{
    const bool left = position > 0 && pattern.at(position - 1) != QLatin1Char('(');
    const bool right
        = position + 1 < pattern.size() && pattern.at(position + 1) != QLatin1Char(')');
    return left && right;
}

/// Two repeats in a row mean what the wider of them means; the library would read the second one as
/// a change of manner.
void AddRepeat(QString& expression, QChar repeat, int& lastRepeat)
{
    if (lastRepeat < 0) {
        lastRepeat = expression.size();
        expression += repeat;
    } else if (expression.at(lastRepeat) != repeat) {
        expression[lastRepeat] = QLatin1Char('*');
    }
}

QRegularExpression MakeMatchExpression(const QString& pattern)
{
    QString expression;
    int lastRepeat = -1;
    for (int i = 0; i < pattern.size(); ++i) {
        const QChar character = pattern.at(i);
        if (QStringLiteral("*+?").contains(character)) {
            AddRepeat(expression, character, lastRepeat);
            continue;
        }
        lastRepeat = -1;
        const int setEnd
            = character == QLatin1Char('[') ? SetEnd(pattern, i, QStringLiteral("^")) : -1;
        if (setEnd >= 0) {
            expression += Set(pattern, i, setEnd, QStringLiteral("^"));
            i = setEnd;
        } else if (character == QLatin1Char('\\') && i + 1 < pattern.size()) {
            expression += Literal(pattern.at(++i));
        } else if (character == QLatin1Char('(')) {
            expression += QLatin1String("(?:");
        } else if (character == QLatin1Char('$')) {
            expression += QLatin1String("\\z"); // "$" would also match before a last line feed
        } else if (QStringLiteral(".^)[").contains(character)
            || (character == QLatin1Char('|') && SeparatesAlternatives(pattern, i))) {
            expression += character; // a "[" here is never closed: the library reports it
        } else {
            expression += Literal(character);
        }
    }
    return QRegularExpression(expression, OPTIONS);
}

QRegularExpression MakeShellExpression(const QString& pattern)
{
    QString expression;
    for (int i = 0; i < pattern.size(); ++i) {
        const QChar character = pattern.at(i);
        const int setEnd
            = character == QLatin1Char('[') ? SetEnd(pattern, i, QStringLiteral("!^")) : -1;
        if (setEnd >= 0) {
            expression += Set(pattern, i, setEnd, QStringLiteral("!^"));
            i = setEnd;
        } else if (character == QLatin1Char('*')) {
            expression += QLatin1String(".*");
        } else if (character == QLatin1Char('?')) {
            expression += QLatin1Char('.');
        } else if (character == QLatin1Char('\\') && i + 1 < pattern.size()) {
            expression += Literal(pattern.at(++i));
        } else {
            expression += Literal(character);
        }
    }
    const QRegularExpression whole(QStringLiteral("\\A(?:%1)\\z").arg(expression), OPTIONS);
    // A range that runs backwards, "[z-a]", is in no set, so nothing fits the pattern.
    return whole.isValid() ? whole : QRegularExpression(QStringLiteral("(?!)"));
}

/// Scripts use few patterns, but they use them in loops.
class KnownExpressions
{
public:
    using Make = QRegularExpression (*)(const QString& pattern);

    explicit KnownExpressions(Make make)
        : m_make(make)
    { }
    QRegularExpression Get(const QString& pattern)
    {
        if (const QRegularExpression* known = m_known.object(pattern))
            return *known;
        const QRegularExpression expression = m_make(pattern);
        m_known.insert(pattern, new QRegularExpression(expression));
        return expression;
    }

private:
    static constexpr int KEPT = 100;

    const Make m_make;
    QCache<QString, QRegularExpression> m_known{KEPT};
};

} // namespace

QRegularExpression MatchExpression(const QString& pattern)
{
    thread_local KnownExpressions known(MakeMatchExpression);
    return known.Get(pattern);
}

QRegularExpression ShellExpression(const QString& pattern)
{
    thread_local KnownExpressions known(MakeShellExpression);
    return known.Get(pattern);
}

} // namespace host::commands
