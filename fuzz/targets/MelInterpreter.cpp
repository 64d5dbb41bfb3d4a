// The host's MEL, from characters to running: it ends, and what comes after it still works.

#include "commands/Session.h"
#include "commands/Tables.h"
#include "engine/Engine.h"
#include "fuzz/Fuzz.h"
#include "mel/Lexer.h"
#include "mel/MelLanguage.h"
#include "mel/Parser.h"
#include "mel/Source.h"

#include <QTemporaryDir>

using namespace host;
using fuzz::Expect;

namespace {

/// An engine with what neither reads nor writes files nor starts programs.
struct Interpreter
{
    explicit Interpreter(const QString& folder)
        : engine(RunState::Batch, folder)
        , mel(engine)
    {
        engine.commandState = std::make_shared<commands::Session>(engine);
        void (*const themes[])(CommandRegistry&)
            = {commands::RegisterArrays, commands::RegisterDisplayStrings, commands::RegisterHelp,
                commands::RegisterIntrospection, commands::RegisterMathematics,
                commands::RegisterOptionVar, commands::RegisterStrings, commands::RegisterVectors};
        for (const auto theme : themes)
            theme(engine.commands);
        engine.commands.Unregister(QStringLiteral("trace"));
        // Whoever waits has waited long enough when it is asked for the first time.
        engine.interrupt.hook = [this] { engine.interrupt.Request(); };
    }

    ScriptResult Run(const QString& text) { return engine.Execute(Language::Mel, text, true); }

    Engine engine;
    mel::MelLanguage mel;
};

void Tokens(const QString& text, mel::Lexer::Mode mode)
{
    const mel::Lexer lexer(text);
    int position = 0;
    while (true) {
        const mel::Token token = lexer.Next(position, mode);
        Expect(
            position <= token.start && token.start <= token.end && token.end <= text.size(), [&] {
                return QStringLiteral("token %1-%2 behind %3")
                    .arg(token.start)
                    .arg(token.end)
                    .arg(position);
            });
        if (token.kind == mel::TokenKind::End)
            return;
        Expect(token.end > position, QStringLiteral("every token moves on"));
        if (token.kind == mel::TokenKind::String)
            lexer.StringValue(token);
        position = token.end;
    }
}

void Parse(const QString& text)
{
    const mel::Parser::Result result
        = mel::Parser(text, [](const QString& name) { return name.size() % 2 == 0; }).Parse();
    if (!result.error)
        return;
    const mel::Source source(text);
    const int offset = result.error->offset;
    Expect(0 <= offset && offset <= text.size() + 1,
        QStringLiteral("an error at %1 of %2").arg(offset).arg(text.size()));
    Expect(source.LineOf(offset) >= 1 && source.ColumnOf(offset) >= 1,
        QStringLiteral("an error has a place"));
}

} // namespace

TE2_FUZZ_TARGET(MelInterpreter)
{
    static const QTemporaryDir folder;
    const QString text = input.Text(50000);
    Tokens(text, mel::Lexer::Mode::Expression);
    Tokens(text, mel::Lexer::Mode::Words);
    Parse(text);
    Interpreter interpreter(folder.path());
    const ScriptResult result = interpreter.Run(text);
    Expect(!result.failed || !result.errorText.isEmpty(), QStringLiteral("a failure says why"));
    const ScriptResult sum = interpreter.Run(QStringLiteral("1 + 1"));
    Expect(!sum.failed && sum.resultText == QLatin1String("2"),
        QStringLiteral("the next script runs: %1").arg(sum.errorText));
}
