#include "mel/CommandEcho.h"

#include "engine/Engine.h"

namespace host::mel {

namespace {

QString ValueText(const Value& value)
{
    switch (value.GetKind()) {
    case Value::Kind::String: return QuotedText(value.Get<QString>());
    case Value::Kind::Vector:
        return QLatin1String("<<") + value.ToText().replace(QLatin1Char(' '), QLatin1String(", "))
            + QLatin1String(">>");
    default: return value.ToText();
    }
}

QStringList WordTexts(const Word& word)
{
    if (word.isFlag)
        return {word.value.ToText()};
    if (!word.spelling.isEmpty())
        return {word.spelling};
    QStringList texts;
    for (int i = 0; i < word.value.Count(); ++i)
        texts += ValueText(word.value.At(i));
    return texts;
}

} // namespace

QString QuotedText(const QString& text)
{
    QString quoted(QLatin1Char('"'));
    for (const QChar c : text) {
        switch (c.unicode()) {
        case u'"': quoted += QLatin1String("\\\""); break;
        case u'\\': quoted += QLatin1String("\\\\"); break;
        case u'\n': quoted += QLatin1String("\\n"); break;
        case u'\r': quoted += QLatin1String("\\r"); break;
        case u'\t': quoted += QLatin1String("\\t"); break;
        default: quoted += c;
        }
    }
    return quoted + QLatin1Char('"');
}

QString CommandText(const QString& name, const QVector<Word>& words)
{
    QStringList texts{name};
    for (const Word& word : words)
        texts += WordTexts(word);
    return texts.join(QLatin1Char(' ')) + QLatin1String(";\n");
}

void EchoCommand(Engine& engine, const QString& name, const QVector<Word>& words)
{
    if (engine.echo.echoAll && !engine.echo.filter.contains(name))
        engine.output.Write(MessageType::History, CommandText(name, words));
    if (engine.callListeners.HearsCommands())
        engine.callListeners.TellCommand(CommandText(name, words).trimmed());
}

} // namespace host::mel
