#include "python/PythonOutput.h"

#include "engine/Engine.h"
#include "python/PythonValue.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace host::python {

namespace {

/// How long the end of the host waits for a listener that another thread's message has reached.
constexpr std::chrono::milliseconds CLOSE_LIMIT{2000};

/// Counts the messages that threads other than the main one have under way, so that the engine
/// stays until they have arrived.
class Gate
{
public:
    void Open()
    {
        const std::lock_guard lock(m_mutex);
        m_open = true;
        m_mainThread = std::this_thread::get_id();
    }
    void Close()
    {
        std::unique_lock lock(m_mutex);
        m_open = false;
        m_changed.wait_for(lock, CLOSE_LIMIT, [this] { return m_underWay == 0; });
    }
    bool Enter()
    {
        const std::lock_guard lock(m_mutex);
        m_underWay += m_open ? 1 : 0;
        return m_open;
    }
    void Leave()
    {
        const std::lock_guard lock(m_mutex);
        --m_underWay;
        m_changed.notify_all();
    }
    bool IsMainThread() const { return std::this_thread::get_id() == m_mainThread; }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    int m_underWay = 0;
    bool m_open = false;
    std::thread::id m_mainThread;
};

Gate& OutputGate()
{
    // Never destroyed: threads may print until the process is gone.
    static Gate* const gate = new Gate;
    return *gate;
}

void Send(MessageType type, const QString& text)
{
    const LanguageScope language(Language::Python);
    Engine::Current().output.Write(type, text);
}

struct Stream
{
    PyObject_HEAD const char* name;
};

PyObject* Unsupported(const char* what)
{
    const Reference module = Reference::Take(PyImport_ImportModule("io"));
    if (!module)
        return nullptr;
    const Reference error
        = Reference::Take(PyObject_GetAttrString(module.Get(), "UnsupportedOperation"));
    if (error)
        PyErr_SetString(error.Get(), what);
    return nullptr;
}

PyObject* Write(PyObject*, PyObject* text)
{
    if (!PyUnicode_Check(text)) {
        return PyErr_Format(
            PyExc_TypeError, "write() argument must be str, not %.200s", Py_TYPE(text)->tp_name);
    }
    const Py_ssize_t length = PyUnicode_GET_LENGTH(text);
    if (length > 0)
        WriteMessage(MessageType::Display, ToText(text));
    return PyLong_FromSsize_t(length);
}

PyObject* WriteLines(PyObject* self, PyObject* lines)
{
    const Reference iterator = Reference::Take(PyObject_GetIter(lines));
    if (!iterator)
        return nullptr;
    const auto next = [&] { return PyIter_Next(iterator.Get()); };
    while (const Reference line = Reference::Take(WithoutUnwinding(next))) {
        const Reference written = Reference::Take(Write(self, line.Get()));
        if (!written)
            return nullptr;
    }
    if (PyErr_Occurred())
        return nullptr;
    Py_RETURN_NONE;
}

PyObject* RefuseInput(PyObject*, PyObject*)
{
    // The one exception that readers of a console take for its end.
    PyErr_SetString(PyExc_EOFError,
        "The host has no standard input: input() and reading sys.stdin are not available.");
    return nullptr;
}

PyObject* RefuseNextLine(PyObject* self)
{
    return RefuseInput(self, nullptr);
}

PyObject* FileNumber(PyObject*, PyObject*)
{
    return Unsupported("The host's console has no file number.");
}

PyObject* ReturnNone(PyObject*, PyObject*)
{
    Py_RETURN_NONE;
}

PyObject* ReturnTrue(PyObject*, PyObject*)
{
    Py_RETURN_TRUE;
}

PyObject* ReturnFalse(PyObject*, PyObject*)
{
    Py_RETURN_FALSE;
}

PyObject* ReturnSelf(PyObject* self, PyObject*)
{
    Py_INCREF(self);
    return self;
}

PyObject* GetName(PyObject* self, void*)
{
    return PyUnicode_FromString(reinterpret_cast<Stream*>(self)->name);
}

PyObject* GetConstant(PyObject*, void* text)
{
    return PyUnicode_FromString(static_cast<const char*>(text));
}

PyObject* GetFalse(PyObject*, void*)
{
    Py_RETURN_FALSE;
}

PyObject* GetNone(PyObject*, void*)
{
    Py_RETURN_NONE;
}

char UTF8[] = "utf-8";
char ERRORS[] = "surrogatepass";
char WRITE_MODE[] = "w";
char READ_MODE[] = "r";

// clang-format off
PyMethodDef OUTPUT_METHODS[] = {
    {"write",      Write,       METH_O,       "Shows the text at once; returns its length."},
    {"writelines", WriteLines,  METH_O,       "Shows every text of an iterable."},
    {"flush",      ReturnNone,  METH_NOARGS,  nullptr},
    {"close",      ReturnNone,  METH_NOARGS,  "Does nothing: the console stays open."},
    {"isatty",     ReturnFalse, METH_NOARGS,  nullptr},
    {"fileno",     FileNumber,  METH_NOARGS,  nullptr},
    {"readable",   ReturnFalse, METH_NOARGS,  nullptr},
    {"writable",   ReturnTrue,  METH_NOARGS,  nullptr},
    {"seekable",   ReturnFalse, METH_NOARGS,  nullptr},
    {"__enter__",  ReturnSelf,  METH_NOARGS,  nullptr},
    {"__exit__",   ReturnNone,  METH_VARARGS, nullptr},
    {nullptr,      nullptr,     0,            nullptr},
};

PyMethodDef INPUT_METHODS[] = {
    {"read",       RefuseInput, METH_VARARGS, nullptr},
    {"readline",   RefuseInput, METH_VARARGS, nullptr},
    {"readlines",  RefuseInput, METH_VARARGS, nullptr},
    {"close",      ReturnNone,  METH_NOARGS,  nullptr},
    {"isatty",     ReturnFalse, METH_NOARGS,  nullptr},
    {"fileno",     FileNumber,  METH_NOARGS,  nullptr},
    {"readable",   ReturnTrue,  METH_NOARGS,  nullptr},
    {"writable",   ReturnFalse, METH_NOARGS,  nullptr},
    {"seekable",   ReturnFalse, METH_NOARGS,  nullptr},
    {nullptr,      nullptr,     0,            nullptr},
};

PyGetSetDef OUTPUT_ATTRIBUTES[] = {
    {"name",     GetName,     nullptr, nullptr, nullptr},
    {"encoding", GetConstant, nullptr, nullptr, UTF8},
    {"errors",   GetConstant, nullptr, nullptr, ERRORS},
    {"mode",     GetConstant, nullptr, nullptr, WRITE_MODE},
    {"closed",   GetFalse,    nullptr, nullptr, nullptr},
    {"newlines", GetNone,     nullptr, nullptr, nullptr},
    {nullptr,    nullptr,     nullptr, nullptr, nullptr},
};

PyGetSetDef INPUT_ATTRIBUTES[] = {
    {"name",     GetName,     nullptr, nullptr, nullptr},
    {"encoding", GetConstant, nullptr, nullptr, UTF8},
    {"errors",   GetConstant, nullptr, nullptr, ERRORS},
    {"mode",     GetConstant, nullptr, nullptr, READ_MODE},
    {"closed",   GetFalse,    nullptr, nullptr, nullptr},
    {nullptr,    nullptr,     nullptr, nullptr, nullptr},
};
// clang-format on

template <typename Function>
void* Slot(Function* function)
{
    return reinterpret_cast<void*>(function);
}

void Deallocate(PyObject* self)
{
    PyTypeObject* type = Py_TYPE(self);
    type->tp_free(self);
    Py_DECREF(type);
}

Reference MakeType(const char* name, PyMethodDef* methods, PyGetSetDef* attributes, bool reads)
{
    PyType_Slot slots[] = {
        {Py_tp_dealloc, Slot(Deallocate)},
        {Py_tp_methods, methods},
        {Py_tp_getset, attributes},
        {reads ? Py_tp_iter : 0, reads ? Slot(PyObject_SelfIter) : nullptr},
        {reads ? Py_tp_iternext : 0, reads ? Slot(RefuseNextLine) : nullptr},
        {0, nullptr},
    };
    PyType_Spec spec{
        name, sizeof(Stream), 0, Py_TPFLAGS_DEFAULT | Py_TPFLAGS_DISALLOW_INSTANTIATION, slots};
    return Reference::Take(PyType_FromSpec(&spec));
}

bool InstallStream(const Reference& type, const char* variable, const char* name)
{
    if (!type)
        return false;
    auto* typeObject = reinterpret_cast<PyTypeObject*>(type.Get());
    const Reference stream = Reference::Take(typeObject->tp_alloc(typeObject, 0));
    if (!stream)
        return false;
    reinterpret_cast<Stream*>(stream.Get())->name = name;
    return PySys_SetObject(variable, stream.Get()) == 0;
}

} // namespace

void WriteMessage(MessageType type, const QString& text)
{
    Gate& gate = OutputGate();
    if (gate.IsMainThread()) {
        if (Engine::Exists())
            Send(type, text);
        return;
    }
    const InterpreterUnlock unlock;
    if (!gate.Enter())
        return;
    Send(type, text);
    gate.Leave();
}

bool InstallStreams()
{
    const Reference output
        = MakeType("_maya_host.Output", OUTPUT_METHODS, OUTPUT_ATTRIBUTES, false);
    const Reference input = MakeType("_maya_host.Input", INPUT_METHODS, INPUT_ATTRIBUTES, true);
    return InstallStream(output, "stdout", "<stdout>")
        && InstallStream(output, "stderr", "<stderr>") && InstallStream(input, "stdin", "<stdin>");
}

void OpenOutput()
{
    OutputGate().Open();
}

void CloseOutput()
{
    const InterpreterUnlock unlock;
    OutputGate().Close();
}

bool IsMainThread()
{
    return OutputGate().IsMainThread();
}

} // namespace host::python
