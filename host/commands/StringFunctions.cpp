#include "commands/Patterns.h"
#include "commands/Tables.h"
#include "engine/CommandRegistry.h"

namespace host::commands {

namespace {

Outcome SizeInBytes(FunctionCall& call)
{
    return call.Text(0).toUtf8().size();
}

/// Positions count from 1, both ends belong to the result, and what lies outside is cut off.
Outcome Substring(FunctionCall& call)
{
    const QString text = call.Text(0);
    const int start = qMax(1, call.Int(1));
    const int end = qMin(text.size(), call.Int(2));
    return start > end ? QString() : text.mid(start - 1, end - start + 1);
}

Outcome StartString(FunctionCall& call)
{
    return call.Text(0).left(qMax(0, call.Int(1)));
}

Outcome EndString(FunctionCall& call)
{
    return call.Text(0).right(qMax(0, call.Int(1)));
}

Outcome ToLower(FunctionCall& call)
{
    return call.Text(0).toLower();
}

Outcome ToUpper(FunctionCall& call)
{
    return call.Text(0).toUpper();
}

Outcome Strip(FunctionCall& call)
{
    return call.Text(0).trimmed();
}

Outcome Compare(FunctionCall& call)
{
    const int order = QString::compare(call.Text(0), call.Text(1));
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

Outcome BadExpression(const QString& pattern, const QRegularExpression& expression)
{
    return Error{QStringLiteral("Invalid regular expression \"%1\": %2.")
                     .arg(pattern, expression.errorString())};
}

Outcome Substitute(FunctionCall& call)
{
    const QRegularExpression expression = MatchExpression(call.Text(0));
    if (!expression.isValid())
        return BadExpression(call.Text(0), expression);
    QString text = call.Text(1);
    const QRegularExpressionMatch match = expression.match(text);
    if (match.hasMatch())
        text.replace(match.capturedStart(), match.capturedLength(), call.Text(2));
    return text;
}

Outcome Match(FunctionCall& call)
{
    const QRegularExpression expression = MatchExpression(call.Text(0));
    if (!expression.isValid())
        return BadExpression(call.Text(0), expression);
    return expression.match(call.Text(1)).captured();
}

Outcome ShellMatch(FunctionCall& call)
{
    return ShellExpression(call.Text(1)).match(call.Text(0)).hasMatch() ? 1 : 0;
}

/// Any one of the separators parts two words; between two that stand together is no word.
QStringList Words(const QString& text, const QString& separators)
{
    QStringList words;
    QString word;
    for (const QChar character : text) {
        if (!separators.contains(character)) {
            word += character;
            continue;
        }
        if (!word.isEmpty())
            words += word;
        word.clear();
    }
    if (!word.isEmpty())
        words += word;
    return words;
}

/// tokenize(text, words) and tokenize(text, separators, words).
Outcome Tokenize(FunctionCall& call)
{
    const bool separated = call.Count() > 2;
    const QString separators = separated ? call.Text(1) : QStringLiteral(" \t\r\n\f\v");
    Value& target = call.Reference(separated ? 2 : 1);
    if (!target.IsNone() && target.GetKind() != Value::Kind::StringArray) {
        return Error{QStringLiteral("Cannot convert data of type %1 to type string[].")
                         .arg(KindName(target.GetKind()))};
    }
    const QStringList words = Words(call.Text(0), separators);
    target = words;
    return words.size();
}

/// One item of a list as people type it; `position` is on its first character and then behind it.
/// Between double quotes everything belongs to the item, a backslash keeps the quote after it.
QString NextItem(const QString& text, int& position, const QString& separators)
{
    QString item;
    bool quoted = false;
    for (; position < text.size(); ++position) {
        QChar character = text.at(position);
        if (character == QLatin1Char('"')) {
            quoted = !quoted;
            continue;
        }
        if (!quoted && separators.contains(character))
            break;
        if (quoted && character == QLatin1Char('\\') && position + 1 < text.size())
            character = text.at(++position);
        item += character;
    }
    return item;
}

/// tokenizeList(text) and tokenizeList(text, items): white space and commas part the items.
Outcome TokenizeList(FunctionCall& call)
{
    const QString separators = QStringLiteral(", \t\r\n\f\v");
    const QString text = call.Text(0);
    QStringList items;
    for (int position = 0; position < text.size();) {
        if (separators.contains(text.at(position)))
            ++position;
        else
            items += NextItem(text, position, separators);
    }
    if (call.Count() > 1)
        call.Reference(1) = items;
    return items;
}

Outcome Encode(Call& call)
{
    QString encoded;
    for (const QChar character : call.ObjectText()) {
        switch (character.unicode()) {
        case u'"': encoded += QLatin1String("\\\""); break;
        case u'\\': encoded += QLatin1String("\\\\"); break;
        case u'\n': encoded += QLatin1String("\\n"); break;
        case u'\r': encoded += QLatin1String("\\r"); break;
        case u'\t': encoded += QLatin1String("\\t"); break;
        default: encoded += character;
        }
    }
    return encoded;
}

/// "^1s" to "^9s" become the arguments; a number without argument stays as it is.
Outcome Format(Call& call)
{
    const QStringList arguments = call.Texts("stringArg");
    const QString pattern = call.ObjectText();
    QString text;
    for (int i = 0; i < pattern.size(); ++i) {
        const int number = pattern.at(i) == QLatin1Char('^') && i + 2 < pattern.size()
                && pattern.at(i + 2) == QLatin1Char('s')
            ? pattern.at(i + 1).digitValue()
            : 0;
        if (number < 1 || number > arguments.size()) {
            text += pattern.at(i);
            continue;
        }
        text += arguments.at(number - 1);
        i += 2;
    }
    return text;
}

const FunctionRow FUNCTIONS[] = {
    {"int sizeBytes(string)", SizeInBytes},
    {"string substring(string, int, int)", Substring},
    {"string startString(string, int)", StartString},
    {"string endString(string, int)", EndString},
    {"string tolower(string)", ToLower},
    {"string toupper(string)", ToUpper},
    {"string strip(string)", Strip},
    {"int strcmp(string, string)", Compare},
    {"string substitute(string, string, string)", Substitute},
    {"string match(string, string)", Match},
    {"int gmatch(string, string)", ShellMatch},
    {"int tokenize(string, any&, [string[]&])", Tokenize},
    {"string[] tokenizeList(string, [string[]&])", TokenizeList},
};

const CommandRow COMMANDS[] = {
    {"encodeString", "string", "", "String", "", Encode},
    {"format", "string", "", "String", "stringArg/s str cm", Format},
};

} // namespace

void RegisterStrings(CommandRegistry& registry)
{
    registry.Register(FUNCTIONS);
    registry.Register(COMMANDS);
}

} // namespace host::commands
