#include "api/PluginCommand.h"

#include "api/ApiAccess.h"
#include "api/CommandRun.h"
#include "api/Conversions.h"
#include "api/Guard.h"
#include "api/PluginStep.h"
#include "engine/Engine.h"

#include <maya/MArgList.h>

namespace host::api {

namespace {

/// The call as a person would type it.
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

/// The words that mean a checked call. Those of a script are it; keywords have to be written out,
/// as a flag that is False or a query's True says something else as a word.
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
        const QByteArray name = flag.toUtf8();
        const int arguments = call.GetCommand().FindFlag(flag)->arguments.size();
        for (int use = 0; use < call.UseCount(name.constData()); ++use) {
            words += Word::FlagNamed(flag);
            for (int i = 0; i < arguments; ++i) {
                const Value argument = call.Argument(name.constData(), i, use);
                if (!argument.IsNone())
                    words.append({argument, {}, false, {}});
            }
        }
    }
    return words;
}

/// Python hands keywords only to commands that say which they take.
std::optional<Error> KeywordError(const Call& call)
{
    if (!call.GetCommand().takesRawWords || call.GetLanguage() != Language::Python)
        return std::nullopt;
    for (const Word& word : call.GetWords()) {
        if (word.isFlag)
            return Error{
                QStringLiteral("Invalid flag '%1'").arg(word.Text().mid(1)), ErrorKind::Type};
    }
    return std::nullopt;
}

/// The command has said itself what went wrong, or at least its status does.
Error FailureOf(const CommandRun& run, const MStatus& status)
{
    if (!run.shownError.isNull())
        return {run.shownError, ErrorKind::Runtime, true};
    return {ToQString(status.errorString()), ErrorKind::Runtime, false};
}

} // namespace

PluginCommand::PluginCommand(const QString& name, std::shared_ptr<PluginRecord> record,
    MCreatorFunction creator, MCreateSyntaxFunction syntaxFunction)
    : m_name(name)
    , m_record(std::move(record))
    , m_creator(creator)
    , m_syntaxFunction(syntaxFunction)
{ }

const MSyntax& PluginCommand::Syntax()
{
    if (!m_syntax) {
        m_syntax = std::make_unique<MSyntax>();
        const MCreateSyntaxFunction function = m_syntaxFunction;
        const PluginScope inPlugin(m_record);
        if (function)
            CallGuarded(m_name, [&] { *m_syntax = function(); });
    }
    return *m_syntax;
}

std::unique_ptr<Command> PluginCommand::MakeEntry()
{
    const auto self = shared_from_this();
    auto entry = std::make_unique<Command>(
        m_name, CommandOrigin::PlugIn, [self](Call& call) { return self->Run(call); });
    entry->owner = m_record->plugin->name;
    entry->takesRawWords = m_syntaxFunction == nullptr;
    if (m_syntaxFunction) {
        entry->SetDescriber(
            [self](Command& command) { ApiAccess::Describe(command, self->Syntax()); });
    }
    return entry;
}

void PluginCommand::Retire()
{
    m_creator = nullptr;
    m_syntaxFunction = nullptr;
}

Outcome PluginCommand::Run(Call& call)
{
    if (!m_creator)
        return Error{QStringLiteral("Cannot find procedure \"%1\".").arg(m_name)};
    if (const std::optional<Error> error = KeywordError(call))
        return *error;
    const PluginScope inPlugin(m_record);
    MPxCommand* object = nullptr;
    const CommandRun run;
    CallGuarded(m_name, [&] { object = static_cast<MPxCommand*>(m_creator()); });
    if (!object)
        return FailureOf(run, MS::kFailure);
    return RunObject(std::unique_ptr<MPxCommand>(object), call);
}

Outcome PluginCommand::RunObject(std::unique_ptr<MPxCommand> object, Call& call)
{
    CommandRun& run = *CommandRun::Current();
    const QVector<Word> words = WordsOf(call);
    MArgList arguments;
    ApiAccess::SetWords(arguments, words);
    ApiAccess::Attach(*object, shared_from_this(), CallText(m_name, words));
    MStatus status = MS::kFailure;
    bool undoable = false;
    CallGuarded(m_name, [&] {
        status = object->doIt(arguments);
        undoable = status && object->isUndoable();
    });
    // A command may have deregistered itself while it ran.
    if (undoable && m_creator) {
        Engine::Current().undoQueue.Add(
            std::make_unique<PluginStep>(std::move(object), shared_from_this()));
    }
    object.reset();
    if (!status)
        return FailureOf(run, status);
    return run.result;
}

} // namespace host::api
