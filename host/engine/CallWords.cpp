#include "engine/CallWords.h"

namespace host {

namespace {

void AddUse(const Call& call, const QString& flag, int use, QVector<Word>& words)
{
    const QByteArray name = flag.toUtf8();
    words += Word::FlagNamed(flag);
    for (int i = 0; !call.Argument(name.constData(), i, use).IsNone(); ++i)
        words.append({call.Argument(name.constData(), i, use), {}, false, {}});
}

} // namespace

QVector<Word> WordsOf(const Call& call)
{
    if (call.GetLanguage() == Language::Mel || call.GetCommand().takesRawWords)
        return call.GetWords();
    QVector<Word> words;
    for (const Value& object : call.GetObjects())
        words.append({object, {}, false, {}});
    if (!call.IsCreate())
        words += Word::FlagNamed(call.IsQuery() ? QStringLiteral("query") : QStringLiteral("edit"));
    for (const QString& flag : call.GivenFlags()) {
        for (int use = 0; use < call.UseCount(flag.toUtf8().constData()); ++use)
            AddUse(call, flag, use, words);
    }
    return words;
}

QString CallText(const QString& name, const QVector<Word>& words)
{
    QString text = name;
    for (const Word& word : words) {
        const bool quoted = word.value.IsString() && !word.isFlag;
        text += QLatin1Char(' ');
        text += quoted ? QLatin1Char('"') + word.Text() + QLatin1Char('"') : word.Text();
    }
    return text;
}

std::optional<Error> KeywordError(const Call& call)
{
    if (!call.GetCommand().takesRawWords || call.GetLanguage() != Language::Python)
        return std::nullopt;
    for (const Word& word : call.GetWords()) {
        if (word.isFlag) {
            return Error{
                QStringLiteral("Invalid flag '%1'").arg(word.Text().mid(1)), ErrorKind::Type};
        }
    }
    return std::nullopt;
}

} // namespace host
