#include "engine/Function.h"

namespace host {

namespace {

Parameter ReadParameter(QString word)
{
    Parameter parameter;
    if (word.endsWith(QLatin1Char('&'))) {
        parameter.reference = true;
        word.chop(1);
    }
    if (word == QLatin1String("any"))
        parameter.conversion = Parameter::Conversion::Any;
    else if (word == QLatin1String("number"))
        parameter.conversion = Parameter::Conversion::Number;
    else
        parameter.kind = KindFromName(word);
    Q_ASSERT_X(
        parameter.conversion != Parameter::Conversion::Exact || parameter.kind != Value::Kind::None,
        "ReadParameter", qPrintable(word));
    return parameter;
}

} // namespace

Function::Function(const FunctionRow& row)
    : signature(QString::fromLatin1(row.signature))
    , run(row.run)
{
    const int open = signature.indexOf(QLatin1Char('('));
    const QStringList head = signature.left(open).simplified().split(QLatin1Char(' '));
    Q_ASSERT_X(open > 0 && head.size() == 2 && signature.endsWith(QLatin1Char(')')), "Function",
        row.signature);
    resultKind = KindFromName(head.first());
    name = head.last();

    const QString inner = signature.mid(open + 1, signature.size() - open - 2);
    bool optional = false;
    for (QString word : inner.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        word = word.trimmed();
        if (word == QLatin1String("...")) {
            variadic = true;
            continue;
        }
        if (word.startsWith(QLatin1Char('['))) {
            optional = true;
            word = word.mid(1);
        }
        // "[string[]]" ends in the bracket of the option as well as that of the array.
        if (optional && word.count(QLatin1Char(']')) > word.count(QLatin1Char('[')))
            word.chop(1);
        parameters += ReadParameter(word);
        if (!optional)
            minimumArguments = parameters.size();
    }
}

} // namespace host
