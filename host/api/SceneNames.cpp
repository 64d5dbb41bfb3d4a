#include "api/SceneNames.h"

#include "engine/Engine.h"

namespace host::api {

namespace {

Outcome RunCommand(const QString& name, const QVector<Word>& words)
{
    if (!Engine::Exists() || !Engine::Current().IsMainThread())
        return Error{};
    const auto command = Engine::Current().commands.FindCommand(name);
    return command ? CommandRegistry::Run(ReadWords(*command, words)) : Outcome(Error{});
}

} // namespace

QStringList ObjectsNamed(const QString& pattern)
{
    const Outcome outcome = RunCommand(QStringLiteral("ls"), {{pattern, {}, false, {}}});
    return outcome.Ok() ? outcome.GetValue().ToTextList() : QStringList();
}

QStringList SelectedObjects()
{
    const Outcome outcome
        = RunCommand(QStringLiteral("ls"), {Word::FlagNamed(QStringLiteral("selection"))});
    return outcome.Ok() ? outcome.GetValue().ToTextList() : QStringList();
}

bool SelectObjects(const QString& flag, const QStringList& names)
{
    QVector<Word> words{Word::FlagNamed(flag)};
    for (const QString& name : names)
        words.append({name, {}, false, {}});
    return RunCommand(QStringLiteral("select"), words).Ok();
}

} // namespace host::api
