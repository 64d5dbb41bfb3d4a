#include "engine/Engine.h"
#include "python/ApiFunctions.h"
#include "python/Execution.h"
#include "python/PythonCommands.h"
#include "python/PythonValue.h"

// What the package's _interface.py needs: the host's widgets, by their addresses.

namespace host::python {

namespace {

bool RequireApiThread()
{
    return RequireMainThread("This function of the API");
}

void* FindElement(const QString& kind, const QString& name)
{
    const UserInterface* ui = Engine::Current().ui;
    if (!ui)
        return nullptr;
    if (kind == QLatin1String("control"))
        return ui->FindControl(name, nullptr);
    if (kind == QLatin1String("layout"))
        return ui->FindLayout(name, nullptr);
    if (kind == QLatin1String("window"))
        return ui->FindWindow(name);
    if (kind == QLatin1String("menuItem"))
        return ui->FindMenuItem(name);
    if (kind == QLatin1String("mainWindow"))
        return ui->MainWindow();
    return ui->CurrentParent();
}

/// (kind, name): address of a widget or action; None when there is none.
PyObject* FindWidget(PyObject*, PyObject* arguments)
{
    PyObject* kind = nullptr;
    PyObject* name = nullptr;
    if (!PyArg_ParseTuple(arguments, "UU", &kind, &name) || !RequireApiThread())
        return nullptr;
    void* element = FindElement(ToText(kind), ToText(name));
    return element ? PyLong_FromVoidPtr(element) : Py_NewRef(Py_None);
}

/// Path of the element at an address, which must be one of a living object.
PyObject* FullName(PyObject*, PyObject* address)
{
    const void* object = PyLong_AsVoidPtr(address);
    if (PyErr_Occurred() || !RequireApiThread())
        return nullptr;
    const UserInterface* ui = Engine::Current().ui;
    // A widget's address is that of its QObject, which comes first.
    return FromText(ui && object ? ui->FullName(static_cast<const QObject*>(object)) : QString());
}

PyObject* ScaleFactor(PyObject*, PyObject*)
{
    const UserInterface* ui = Engine::Current().ui;
    return PyFloat_FromDouble(ui ? ui->ScaleFactor() : 1.0);
}

/// (control, layout): addresses of living widgets; the control's full name.
PyObject* AddWidget(PyObject*, PyObject* arguments)
{
    PyObject *control, *layout;
    if (!PyArg_ParseTuple(arguments, "OO", &control, &layout) || !RequireApiThread())
        return nullptr;
    void* const widget = PyLong_AsVoidPtr(control);
    void* const parent = PyLong_AsVoidPtr(layout);
    if (PyErr_Occurred())
        return nullptr;
    UserInterface* ui = Engine::Current().ui;
    if (!ui || !widget || !parent)
        return FromText(QString());
    QString name;
    {
        const HostWork work;
        name = ui->AddWidget(
            static_cast<QWidget*>(widget), static_cast<QWidget*>(parent), QString());
    }
    return FromText(name);
}

// clang-format off
PyMethodDef METHODS[] = {
    {"scaleFactor",          ScaleFactor,          METH_NOARGS,  nullptr},
    {"addWidget",            AddWidget,            METH_VARARGS, nullptr},
    {"findWidget",           FindWidget,           METH_VARARGS, nullptr},
    {"fullName",             FullName,             METH_O,       nullptr},
    {nullptr,                nullptr,              0,            nullptr},
};
// clang-format on

} // namespace

bool AddWidgetFunctions(PyObject* module)
{
    return PyModule_AddFunctions(module, METHODS) == 0;
}

} // namespace host::python
