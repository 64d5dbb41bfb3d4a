#include "python/Execution.h"

#include "engine/Engine.h"
#include "python/PythonErrors.h"
#include "python/PythonLanguage.h"

namespace host::python {

namespace {

int executions = 0; // main thread only

} // namespace

Execution::Execution()
    : m_language(Language::Python)
    , m_watch(PythonLanguage::Current().GetStopWatcher())
{
    ++executions;
}

Execution::~Execution()
{
    --executions;
}

bool Execution::IsAllowed() const
{
    if (executions <= PythonLanguage::MAXIMUM_NESTING)
        return true;
    PyErr_Format(PyExc_RecursionError, "Python scripts run inside each other more than %d times.",
        PythonLanguage::MAXIMUM_NESTING);
    return false;
}

Error Execution::Report() const
{
    const StopWatcher::Pause pause(PythonLanguage::Current().GetStopWatcher());
    return ReportRaisedError();
}

HostWork::HostWork()
    : m_pause(PythonLanguage::Current().GetStopWatcher())
{ }

bool RaiseStopRequest()
{
    if (!Engine::Current().interrupt.IsRequested())
        return false;
    PyErr_SetString(PyExc_KeyboardInterrupt, "Stopped on request.");
    return true;
}

} // namespace host::python
