#include "python/PythonErrors.h"

#include "engine/Engine.h"
#include "python/PythonOutput.h"
#include "python/PythonValue.h"

namespace host::python {

namespace {

/// Marks an exception whose text the host has shown before it was raised.
constexpr const char* SHOWN_ATTRIBUTE = "_hostHasShownThis";

enum Detail { MessageOnly, WithPlace, WithTraceback };

Detail WantedDetail()
{
    if (!Engine::Exists())
        return MessageOnly;
    const EchoState& echo = Engine::Current().echo;
    if (echo.stackTrace)
        return WithTraceback;
    return echo.lineNumbers ? WithPlace : MessageOnly;
}

QString TypeName(PyObject* type)
{
    const Reference name = Reference::Take(PyObject_GetAttrString(type, "__name__"));
    if (name && PyUnicode_Check(name.Get()))
        return ToText(name.Get());
    PyErr_Clear();
    return QStringLiteral("Error");
}

PyObject* OrNone(const Reference& reference)
{
    return reference ? reference.Get() : Py_None;
}

/// What the scripts' own formatter in maya.utils makes of the exception; null when that fails.
QString CallFormatter(const RaisedError& error)
{
    const Reference utilities = Reference::Take(PyImport_ImportModule("maya.utils"));
    if (!utilities)
        return {};
    const Reference text = Reference::Take(WithoutUnwinding([&] {
        return PyObject_CallMethod(utilities.Get(), "formatGuiException", "OOOi",
            OrNone(error.type), OrNone(error.value), OrNone(error.traceback),
            static_cast<int>(WantedDetail()));
    }));
    return text && PyUnicode_Check(text.Get()) ? ToText(text.Get()) : QString();
}

QString PlainText(const RaisedError& error)
{
    const QString message = Describe(OrNone(error.value));
    const QString name = TypeName(OrNone(error.type));
    return message.isEmpty() ? name : name + QLatin1String(": ") + message;
}

QString FormattedText(const RaisedError& error)
{
    const QString text = CallFormatter(error);
    PyErr_Clear();
    return text.isNull() ? PlainText(error) : text;
}

/// The message alone; the name of the class when there is none.
QString MessageText(const RaisedError& error)
{
    const QString message = Describe(OrNone(error.value));
    return message.isEmpty() ? TypeName(OrNone(error.type)) : message;
}

PyObject* ExceptionClass(ErrorKind kind)
{
    switch (kind) {
    case ErrorKind::Type: return PyExc_TypeError;
    case ErrorKind::Value: return PyExc_ValueError;
    case ErrorKind::Runtime: return PyExc_RuntimeError;
    }
    return PyExc_RuntimeError;
}

} // namespace

RaisedError RaisedError::Fetch()
{
    PyObject* type = nullptr;
    PyObject* value = nullptr;
    PyObject* traceback = nullptr;
    PyErr_Fetch(&type, &value, &traceback);
    PyErr_NormalizeException(&type, &value, &traceback);
    if (traceback && value)
        PyException_SetTraceback(value, traceback);
    return {Reference::Take(type), Reference::Take(value), Reference::Take(traceback)};
}

void RaisedError::Raise() &&
{
    PyErr_Restore(type.Release(), value.Release(), traceback.Release());
}

Error ReportError(const RaisedError& error)
{
    const bool shown = error.value && PyObject_HasAttrString(error.value.Get(), SHOWN_ATTRIBUTE);
    if (!shown)
        WriteMessage(MessageType::Error, FormattedText(error));
    return {MessageText(error), ErrorKind::Runtime, true};
}

Error ReportRaisedError()
{
    return ReportError(RaisedError::Fetch());
}

void RaiseError(const Error& error)
{
    const Reference text = Reference::Take(FromText(error.text));
    if (!text)
        return;
    PyErr_SetObject(ExceptionClass(error.kind), text.Get());
    if (!error.shown)
        return;
    RaisedError raised = RaisedError::Fetch();
    if (PyObject_SetAttrString(raised.value.Get(), SHOWN_ATTRIBUTE, Py_True) != 0)
        PyErr_Clear();
    std::move(raised).Raise();
}

} // namespace host::python
