#include "commands/HelpText.h"

#include "engine/Call.h"
#include "engine/Function.h"

#include <algorithm>

namespace host::commands {

namespace {

constexpr int SHORT_NAME_WIDTH = 5;

const QString NO_FLAGS = QStringLiteral("No Flags\n");

struct Line
{
    QString shortName;
    QString longName;
    QString types;
};

QString Types(const Flag& flag)
{
    QStringList words;
    for (const ArgumentType type : flag.arguments)
        words += ArgumentTypeName(type);
    if (flag.takesList && !words.isEmpty())
        words.last() += QLatin1String("[...]");
    if (flag.multiUse)
        words += QStringLiteral("(multi-use)");
    if (flag.queryTakesArguments && (flag.modes & Query))
        words += QStringLiteral("(Query Arg Optional)");
    return words.join(QLatin1Char(' '));
}

QVector<Line> Lines(const Command& command)
{
    QVector<Line> lines;
    if (command.CanEdit())
        lines += Line{QStringLiteral("-e"), QStringLiteral("-edit"), {}};
    if (command.CanQuery())
        lines += Line{QStringLiteral("-q"), QStringLiteral("-query"), {}};
    QVector<Flag> flags = command.GetFlags();
    std::sort(flags.begin(), flags.end(),
        [](const Flag& a, const Flag& b) { return a.longName < b.longName; });
    for (const Flag& flag : flags) {
        lines += Line{QString(QLatin1Char('-') + flag.shortName),
            QString(QLatin1Char('-') + flag.longName), Types(flag)};
    }
    return lines;
}

QString Synopsis(const QString& name, bool hasFlags, const QString& arguments)
{
    QStringList parts{QStringLiteral("Synopsis:"), name};
    if (hasFlags)
        parts += QStringLiteral("[flags]");
    if (!arguments.isEmpty())
        parts += arguments;
    return QLatin1Char('\n') + parts.join(QLatin1Char(' ')) + QLatin1Char('\n');
}

/// "String", "Int[]", "Any" for the language's own words.
QString TypeWord(const Parameter& parameter)
{
    if (parameter.conversion == Parameter::Conversion::Any)
        return QStringLiteral("Any");
    if (parameter.conversion == Parameter::Conversion::Number)
        return QStringLiteral("Float");
    QString word = KindName(parameter.kind);
    word[0] = word.at(0).toUpper();
    return word;
}

} // namespace

QString HelpText(const Command& command)
{
    const QVector<Line> lines = Lines(command);
    QString text = Synopsis(command.GetName(), !lines.isEmpty(), command.GetObjects().synopsis);
    if (lines.isEmpty())
        return text + NO_FLAGS;
    text += QLatin1String("Flags:\n");
    int width = 0;
    for (const Line& line : lines)
        width = qMax(width, line.longName.size());
    for (const Line& line : lines) {
        QString row
            = line.shortName.rightJustified(SHORT_NAME_WIDTH) + QLatin1Char(' ') + line.longName;
        if (!line.types.isEmpty())
            row += QString(width - line.longName.size() + 2, QLatin1Char(' ')) + line.types;
        text += row + QLatin1Char('\n');
    }
    return text;
}

QString HelpText(const Function& function)
{
    QStringList words;
    for (int i = 0; i < function.parameters.size(); ++i) {
        QString word = TypeWord(function.parameters.at(i));
        if (function.variadic && i == function.parameters.size() - 1)
            word += QLatin1String("...");
        words += i < function.minimumArguments
            ? word
            : QString(QLatin1Char('[') + word + QLatin1Char(']'));
    }
    return Synopsis(function.name, false, words.join(QLatin1Char(' '))) + NO_FLAGS;
}

} // namespace host::commands
