#include "python/Execution.h"

#include "engine/Engine.h"
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
    return executions <= PythonLanguage::MAXIMUM_NESTING;
}

QString Execution::RefusalText()
{
    return QStringLiteral("Python scripts run inside each other more than %1 times.")
        .arg(PythonLanguage::MAXIMUM_NESTING);
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
