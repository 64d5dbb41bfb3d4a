#include "python/PluginCommands.h"

#include "engine/CallWords.h"
#include "engine/Engine.h"
#include "python/Execution.h"
#include "python/PythonCallable.h"
#include "python/PythonCommands.h"
#include "python/PythonErrors.h"
#include "python/PythonSyntax.h"
#include "python/PythonValue.h"

namespace host::python {

namespace {

using CallablePointer = std::shared_ptr<PythonCallable>;

/// What a command of a plug-in did: two functions of its object.
class PythonStep : public UndoStep
{
public:
    PythonStep(const QString& path, const QString& name, CallablePointer undo, CallablePointer redo)
        : m_path(path)
        , m_name(name)
        , m_undo(std::move(undo))
        , m_redo(std::move(redo))
    { }

    bool Undo() override { return m_undo->Call({}).Ok(); }
    bool Redo() override { return m_redo->Call({}).Ok(); }
    QString Name() const override { return m_name; }
    const QString& Path() const { return m_path; }

private:
    const QString m_path;
    const QString m_name;
    const CallablePointer m_undo;
    const CallablePointer m_redo;
};

UndoQueue::Matches StepsOf(PyObject* path)
{
    return [path = ToText(path)](const UndoStep& step) {
        const auto* own = dynamic_cast<const PythonStep*>(&step);
        return own && own->Path() == path;
    };
}

CallablePointer CallableOrNull(PyObject* object)
{
    return PyCallable_Check(object) ? std::make_shared<PythonCallable>(object) : nullptr;
}

/// A command as a plug-in registered it. Kept by the registry's entry.
struct PluginCommand
{
    QString path;
    QString name;
    CallablePointer run;
    CallablePointer describe;

    Outcome Run(Call& call) const;
    Outcome Finish(PyObject* answer) const;
    void Describe(Command& command) const;
};

Outcome PluginCommand::Run(Call& call) const
{
    if (!run->IsAlive())
        return Error{QStringLiteral("Python is not running.")};
    if (const std::optional<Error> error = KeywordError(call))
        return *error;
    const Execution execution;
    if (!execution.IsAllowed())
        return execution.Report();
    const QVector<Word> words = WordsOf(call);
    const Reference list = Reference::Take(FromWords(words));
    const Reference text = Reference::Take(FromText(CallText(name, words)));
    const Reference arguments
        = Reference::Take(list && text ? PyTuple_Pack(2, list.Get(), text.Get()) : nullptr);
    const Reference answer
        = Reference::Take(arguments ? run->InvokeWith(arguments.Get()) : nullptr);
    return answer ? Finish(answer.Get()) : Outcome(execution.Report());
}

Outcome PluginCommand::Finish(PyObject* answer) const
{
    PyObject *result, *undo, *redo, *stepName;
    if (!PyArg_ParseTuple(answer, "OOOO", &result, &undo, &redo, &stepName))
        return ReportRaisedError();
    CallablePointer undoing = CallableOrNull(undo);
    CallablePointer redoing = CallableOrNull(redo);
    if (undoing && redoing) {
        Engine::Current().undoQueue.Add(std::make_unique<PythonStep>(
            path, python::Describe(stepName), std::move(undoing), std::move(redoing)));
    }
    return ToValue(result);
}

void PluginCommand::Describe(Command& command) const
{
    if (!describe->IsAlive())
        return;
    const Execution execution;
    const Reference nothing = Reference::Take(PyTuple_New(0));
    const Reference syntax
        = Reference::Take(nothing ? describe->InvokeWith(nothing.Get()) : nullptr);
    if (!syntax || !DescribeCommand(command, syntax.Get()))
        execution.Report();
}

std::unique_ptr<Command> MakeEntry(const std::shared_ptr<PluginCommand>& command)
{
    auto entry = std::make_unique<Command>(
        command->name, CommandOrigin::PlugIn, [command](Call& call) { return command->Run(call); });
    entry->takesRawWords = command->describe == nullptr;
    if (command->describe)
        entry->SetDescriber([command](Command& described) { command->Describe(described); });
    return entry;
}

} // namespace

PyObject* RegisterCommand(PyObject*, PyObject* arguments)
{
    PyObject *path, *name, *run, *describe;
    if (!PyArg_ParseTuple(arguments, "UUOO", &path, &name, &run, &describe)
        || !RequireMainThread("registerCommand()"))
        return nullptr;
    Engine& engine = Engine::Current();
    Plugin* plugin = engine.plugins.Find(ToText(path));
    auto command = std::make_shared<PluginCommand>(
        PluginCommand{ToText(path), ToText(name), CallableOrNull(run), CallableOrNull(describe)});
    if (!plugin || !command->run)
        return PyErr_Format(PyExc_RuntimeError, "(kFailure): Object does not exist");
    std::unique_ptr<Command> entry = MakeEntry(command);
    entry->owner = plugin->name;
    if (engine.commands.Contains(command->name) || !engine.commands.Register(std::move(entry)))
        Py_RETURN_FALSE;
    plugin->commands += command->name;
    Py_RETURN_TRUE;
}

PyObject* UnregisterCommand(PyObject*, PyObject* arguments)
{
    PyObject *path, *name;
    if (!PyArg_ParseTuple(arguments, "UU", &path, &name)
        || !RequireMainThread("deregisterCommand()"))
        return nullptr;
    Engine& engine = Engine::Current();
    Plugin* plugin = engine.plugins.Find(ToText(path));
    if (!plugin || !plugin->commands.removeOne(ToText(name)))
        Py_RETURN_FALSE;
    return PyBool_FromLong(engine.commands.Unregister(ToText(name)));
}

PyObject* HasUndoSteps(PyObject*, PyObject* path)
{
    return PyBool_FromLong(Engine::Current().undoQueue.Contains(StepsOf(path)));
}

PyObject* RemoveUndoSteps(PyObject*, PyObject* path)
{
    Engine::Current().undoQueue.Remove(StepsOf(path));
    Py_RETURN_NONE;
}

PyObject* ReadCallOf(PyObject*, PyObject* arguments)
{
    PyObject *syntax, *list;
    QVector<Word> words;
    Command command{QString(), CommandOrigin::PlugIn, {}};
    if (!PyArg_ParseTuple(arguments, "OO!", &syntax, &PyList_Type, &list)
        || !DescribeCommand(command, syntax) || !ToWords(list, words))
        return nullptr;
    const ReadCall read = ReadWords(command, words);
    if (!read.error)
        return FromCall(read.call);
    {
        const HostWork work;
        Engine::Current().output.Error(read.error->text);
    }
    RaiseError({QLatin1String("(kFailure): Error while parsing arguments: ") + read.error->text,
        ErrorKind::Runtime, true});
    return nullptr;
}

} // namespace host::python
