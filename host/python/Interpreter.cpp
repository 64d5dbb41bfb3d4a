#include "python/Interpreter.h"

#include "engine/OutputStream.h"
#include "engine/Paths.h"
#include "engine/StartEnvironment.h"
#include "python/ApiFunctions.h"
#include "python/HostModule.h"
#include "python/MainThreadCalls.h"
#include "python/PythonApi.h"
#include "python/PythonCommands.h"
#include "python/PythonErrors.h"
#include "python/PythonOutput.h"
#include "python/PythonValue.h"

#include <atomic>
#include <chrono>
#include <thread>
#include <unistd.h>

namespace host::python {

namespace {

std::atomic<int> runningNumber{0};

/// A thread that waits for the lock looks every 5 ms whether the interpreter has gone, and ends
/// then.
constexpr std::chrono::milliseconds LEFT_THREADS_TIME{50};

/// PyConfig with its clean-up.
class Configuration
{
public:
    Configuration() { PyConfig_InitIsolatedConfig(&m_config); }
    ~Configuration() { PyConfig_Clear(&m_config); }
    Configuration(const Configuration&) = delete;
    Configuration& operator=(const Configuration&) = delete;

    PyConfig* operator->() { return &m_config; }
    PyConfig* Get() { return &m_config; }

private:
    PyConfig m_config;
};

QString Problem(const PyStatus& status)
{
    if (!PyStatus_Exception(status))
        return {};
    return QStringLiteral("Python could not be started: %1")
        .arg(QString::fromUtf8(status.err_msg ? status.err_msg : "unknown error"));
}

QString PreInitialize()
{
    PyPreConfig config;
    PyPreConfig_InitIsolatedConfig(&config);
    // Texts and file names are UTF-8 even where the caller's locale is plain "C".
    config.utf8_mode = 1;
    return Problem(Py_PreInitialize(&config));
}

/// Variables that the interpreter reads even where it is told to read none.
void RemoveMisleadingVariables()
{
    for (const char* name : {"PYTHONEXECUTABLE", "__PYVENV_LAUNCHER__"})
        qunsetenv(name);
}

PyStatus Configure(Configuration& config)
{
    const std::pair<wchar_t**, const char*> texts[] = {
        {&config->home, HOST_PYTHON_PREFIX},
        {&config->program_name, HOST_PYTHON_EXECUTABLE},
        {&config->executable, HOST_PYTHON_EXECUTABLE},
    };
    for (const auto& [field, text] : texts) {
        const PyStatus status = PyConfig_SetBytesString(config.Get(), field, text);
        if (PyStatus_Exception(status))
            return status;
    }
    config->site_import = 1;
    wchar_t empty[] = L"";
    wchar_t* arguments[] = {empty};
    return PyConfig_SetArgv(config.Get(), 1, arguments);
}

bool AddToPath(PyObject* path, const QStringList& entries, Py_ssize_t position)
{
    for (const QString& entry : entries) {
        const Reference text = Reference::Take(FromText(entry));
        if (!text || PyList_Insert(path, position++, text.Get()) != 0)
            return false;
    }
    return true;
}

/// The host's own package comes before everything else, the users' scripts after the library, so
/// that no file of theirs hides a module of it.
bool ExtendPath(const Paths& paths)
{
    PyObject* path = PySys_GetObject("path");
    if (!path || !PyList_Check(path))
        return false;
    QStringList first{paths.InstallDirectory() + QLatin1String("/python")};
    first += EnvironmentEntries("PYTHONPATH");
    return AddToPath(path, first, 0) && AddToPath(path, paths.ScriptPath(), PyList_GET_SIZE(path));
}

/// Calls a function of the package's start and end module; shows what goes wrong.
bool CallSession(const char* function)
{
    const Reference session = Reference::Take(PyImport_ImportModule("maya._session"));
    const Reference result = Reference::Take(
        session ? PyObject_CallMethod(session.Get(), function, nullptr) : nullptr);
    if (!result)
        ReportRaisedError();
    return static_cast<bool>(result);
}

bool HasOtherThreads()
{
    PyThreadState* first = PyInterpreterState_ThreadHead(PyInterpreterState_Get());
    return first && PyThreadState_Next(first);
}

} // namespace

void ParkThread()
{
    for (;;)
        pause();
}

int InterpreterNumber()
{
    return runningNumber;
}

QString StartInterpreter(const Paths& paths)
{
    static const int added = PyImport_AppendInittab(HOST_MODULE_NAME, MakeHostModule);
    if (added != 0)
        return QStringLiteral("Python could not be started: out of memory");
    RemoveMisleadingVariables();
    QString problem = PreInitialize();
    Configuration config;
    if (problem.isEmpty())
        problem = Problem(Configure(config));
    if (problem.isEmpty())
        problem = Problem(Py_InitializeFromConfig(config.Get()));
    if (!problem.isEmpty())
        return problem;
    static int lastNumber = 0;
    runningNumber = ++lastNumber;
    OpenOutput();
    OpenMainThreadCalls();
    if (!InstallStreams() || !InitializeCommands() || !ExtendPath(paths))
        ReportRaisedError();
    CallSession("start");
    return {};
}

void StopInterpreter()
{
    CloseMainThreadCalls();
    CallSession("stop");
    ReleaseTimers();
    ReleaseCommands();
    runningNumber = 0;
    CloseOutput();
    const bool leavesThreads = HasOtherThreads();
    Py_FinalizeEx();
    if (leavesThreads)
        std::this_thread::sleep_for(LEFT_THREADS_TIME);
}

} // namespace host::python
