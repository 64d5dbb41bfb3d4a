#include "mel/LanguageFunctions.h"

#include "engine/Engine.h"
#include "mel/Interpreter.h"
#include "mel/MelLanguage.h"

#include <cstdio>

namespace host::mel {

namespace {

Interpreter& Running()
{
    return MelLanguage::Current().GetInterpreter();
}

/// Runs `run` inside the running script; its error, already shown, becomes that of the function.
template <typename Run>
Outcome Guarded(Run run)
{
    try {
        return run();
    } catch (const ScriptError& error) {
        return Error{error.text, ErrorKind::Runtime, true};
    }
}

QString JoinedArguments(const FunctionCall& call)
{
    QStringList texts;
    for (int i = 0; i < call.Count(); ++i)
        texts += call.At(i).ToTextList();
    return texts.join(QLatin1Char(' '));
}

Outcome Print(FunctionCall& call)
{
    const QString text = call.At(0).ToPrintText();
    if (!text.isEmpty())
        Engine::Current().output.Display(text);
    return {};
}

Outcome Eval(FunctionCall& call)
{
    return Guarded([&] { return Running().RunInside(JoinedArguments(call)); });
}

Outcome EvalEcho(FunctionCall& call)
{
    const QString text = JoinedArguments(call);
    OutputStream& output = Engine::Current().output;
    const bool closed = text.trimmed().endsWith(QLatin1Char(';'));
    output.Write(MessageType::History,
        (closed ? text.trimmed() : text.trimmed() + QLatin1Char(';')) + QLatin1Char('\n'));
    const Outcome outcome = Guarded([&] { return Running().RunInside(text); });
    if (outcome.Ok() && outcome.GetValue().Count() > 0)
        output.Write(MessageType::Result, outcome.GetValue().ToResultText());
    return outcome;
}

Outcome SourceFile(FunctionCall& call)
{
    return Guarded([&] { return Running().RunFileInside(call.Text(0)); });
}

Outcome Size(FunctionCall& call)
{
    const Value& value = call.At(0);
    return value.IsString() ? value.Get<QString>().size() : value.Count();
}

/// Gives what the host's reference shows.
Outcome Clear(FunctionCall& call)
{
    Value& variable = call.Reference(0);
    if (!variable.IsArray() && !variable.IsNone()) {
        return Error{
            QStringLiteral("Cannot clear data of type %1.").arg(KindName(variable.GetKind()))};
    }
    variable = Value::Default(variable.GetKind());
    return 0;
}

/// The compiler makes code of its own for a `catch`, so this one only stands for the name. It would
/// run with an argument that has been evaluated without an error.
Outcome NothingCaught(FunctionCall&)
{
    return 0;
}

PlaceLead WantedPlace(const Call& call)
{
    if (call.Has("noContext"))
        return PlaceLead::Never;
    if (!call.Has("showLineNumber"))
        return PlaceLead::AsSet;
    return call.Bool("showLineNumber") ? PlaceLead::Always : PlaceLead::Never;
}

/// Python raises the error itself; a MEL script shows it with its place.
Outcome RaiseError(Call& call)
{
    const QString text = call.ObjectText();
    if (call.GetLanguage() == Language::Python)
        return Error{text};
    Running().ShowError(text, WantedPlace(call));
    return Error{text, ErrorKind::Runtime, true};
}

Outcome ShowWarning(Call& call)
{
    const bool fromPython = call.GetLanguage() == Language::Python;
    Running().Warn(call.ObjectText(), fromPython ? PlaceLead::Never : WantedPlace(call));
    return {};
}

Outcome Trace(Call& call)
{
    const QString place = call.Has("where") ? Running().Place(PlaceLead::Always) : QString();
    std::fprintf(stderr, "%s\n", qUtf8Printable(place + call.ObjectText()));
    return {};
}

// clang-format off
constexpr FunctionRow FUNCTIONS[] = {
    {"void print(any)",                       Print},
    {"any eval(any, [any], ...)",             Eval},
    {"any evalNoSelectNotify(any, [any], ...)", Eval},
    {"any evalEcho(any, [any], ...)",         EvalEcho},
    {"void source(string)",                   SourceFile},
    {"int catch(any)",                        NothingCaught},
    {"int catchQuiet(any)",                   NothingCaught},
    {"int size(any)",                         Size},
    {"int clear(any&)",                       Clear},
};

constexpr CommandRow COMMANDS[] = {
    {"error",   "none", "", "String", "showLineNumber/sl B c; noContext/n - c", RaiseError},
    {"warning", "none", "", "String", "showLineNumber/sl B c; noContext/n - c", ShowWarning},
};
// clang-format on

constexpr CommandRow TRACE = {"trace", "none", "", "String", "where/w - c", Trace};

} // namespace

void RegisterLanguageFunctions(CommandRegistry& registry)
{
    registry.Register(FUNCTIONS);
    registry.Register(COMMANDS);
    auto trace = std::make_unique<Command>(TRACE);
    trace->inPython = false;
    registry.Register(std::move(trace));
}

} // namespace host::mel
