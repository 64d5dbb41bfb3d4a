#include "host/api/ApiFixture.h"

#include <QRegularExpression>

using host::Value;
using host::Word;

namespace {

Word ReadWord(const QString& text)
{
    bool isInt = false;
    bool isFloat = false;
    const int number = text.toInt(&isInt);
    const double real = text.toDouble(&isFloat);
    if (text.startsWith('"'))
        return {text.mid(1, text.size() - 2), {}, false, {}};
    if (isInt)
        return {number, text, false, {}};
    if (isFloat)
        return {real, text, false, {}};
    return {text, {}, text.startsWith('-'), {}};
}

} // namespace

host::ScriptResult CommandLanguage::Run(const QString& text)
{
    texts += text;
    if (answers.contains(text))
        return {false, answers.value(text), answers.value(text).ToResultText(), {}};
    static const QRegularExpression pattern("\"[^\"]*\"|\\S+");
    QVector<Word> words;
    auto found = pattern.globalMatch(text);
    while (found.hasNext())
        words += ReadWord(found.next().captured());
    const QString name = words.isEmpty() ? QString() : words.takeFirst().Text();
    const auto command = m_engine.commands.FindCommand(name);
    const host::Outcome outcome = command
        ? host::CommandRegistry::Run(host::ReadWords(*command, words))
        : host::Outcome(host::Error{QString("Cannot find procedure \"%1\".").arg(name)});
    if (outcome.Ok())
        return {false, outcome.GetValue(), outcome.GetValue().ToResultText(), {}};
    if (!outcome.GetError().shown)
        m_engine.output.Error(outcome.GetError().text);
    return {true, {}, {}, outcome.GetError().text};
}

host::ScriptResult CommandLanguage::RunFile(const QString& path)
{
    files += path;
    return Run(answers.contains(path) ? path : QString());
}

ApiFixture::ApiFixture(host::RunState state)
    : engine(state, directory.path())
    , mel(engine)
    , python(engine)
{
    engine.mel = &mel;
    engine.python = &python;
    engine.plugins.SetLoader(host::api::MakePluginLoader(engine));
    engine.output.AddDisplay([this](const host::Message& message) { messages += message; });
    auto unload = std::make_unique<host::Command>(
        "unloadPlugin", host::CommandOrigin::BuiltIn, [this](host::Call& call) {
            return engine.plugins.Unload(call.GetWords().value(0).Text(), false);
        });
    unload->takesRawWords = true;
    engine.commands.Register(std::move(unload));
}

ApiFixture::~ApiFixture()
{
    // What stays mapped would keep its static data for the next test.
    for (const QString& name : engine.plugins.Names())
        engine.plugins.Unload(name, true);
}

host::Outcome ApiFixture::Load(const QString& plugin)
{
    return engine.plugins.Load(QStringLiteral(TEST_PLUGIN_DIR "/") + plugin);
}

QStringList ApiFixture::Texts(host::MessageType type) const
{
    QStringList texts;
    for (const host::Message& message : messages) {
        if (message.type == type)
            texts += message.text;
    }
    return texts;
}
