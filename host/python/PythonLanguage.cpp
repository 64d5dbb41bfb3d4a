#include "python/PythonLanguage.h"

#include "engine/Engine.h"
#include "python/Execution.h"
#include "python/Interpreter.h"
#include "python/PythonErrors.h"
#include "python/PythonPlugins.h"
#include "python/PythonSource.h"
#include "python/PythonValue.h"

namespace host::python {

namespace {

PythonLanguage* current = nullptr;

ScriptResult Failure(const Error& error)
{
    ScriptResult result;
    result.failed = true;
    result.errorText = error.text;
    return result;
}

} // namespace

PythonLanguage::PythonLanguage(Engine& engine)
    : m_engine(engine)
{
    const QString problem = StartInterpreter(engine.paths);
    if (!problem.isEmpty())
        qFatal("%s", qUtf8Printable(problem));
    m_stopWatcher = std::make_unique<StopWatcher>();
    if (!m_stopWatcher->InstallSignalHandler())
        ReportRaisedError();
    current = this;
    engine.python = this;
    engine.plugins.SetLoader(Plugins::ScriptSuffix(), std::make_unique<PythonPluginLoader>());
    PyEval_SaveThread();
}

PythonLanguage::~PythonLanguage()
{
    m_engine.plugins.SetLoader(Plugins::ScriptSuffix(), nullptr);
    PyGILState_Ensure(); // never released: it ends with the interpreter
    m_stopWatcher->End();
    StopInterpreter();
    m_stopWatcher.reset();
    m_engine.python = nullptr;
    current = nullptr;
}

PythonLanguage& PythonLanguage::Current()
{
    Q_ASSERT(current);
    return *current;
}

ScriptResult PythonLanguage::Run(const QString& text)
{
    const Execution execution;
    if (!execution.IsAllowed())
        return Failure(execution.Report());
    const Compiled compiled = CompileText(text);
    const Reference value = Reference::Take(compiled.code ? RunCode(compiled.code.Get()) : nullptr);
    if (!value)
        return Failure(execution.Report());
    ScriptResult result;
    if (!compiled.isExpression || value.Get() == Py_None)
        return result;
    result.resultText = ResultText(value.Get());
    if (PyErr_Occurred())
        return Failure(execution.Report());
    result.value = ToValue(value.Get());
    return result;
}

ScriptResult PythonLanguage::RunFile(const QString& path)
{
    const Execution execution;
    if (!execution.IsAllowed())
        return Failure(execution.Report());
    const QString found = FindSource(path);
    const Reference code = Reference::Take(CompileFile(found.isEmpty() ? path : found));
    const Reference value = Reference::Take(code ? RunFileCode(code.Get(), found) : nullptr);
    return value ? ScriptResult() : Failure(execution.Report());
}

} // namespace host::python
