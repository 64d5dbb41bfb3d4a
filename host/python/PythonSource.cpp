#include "python/PythonSource.h"

#include "python/PythonValue.h"

#include <QDir>
#include <QFileInfo>

namespace host::python {

namespace {

/// Null, with the exception set, for text that has no UTF-8 form or holds a null character, which
/// would end it early.
PyObject* Compile(const Reference& text, int start)
{
    Py_ssize_t length = 0;
    const char* bytes = PyUnicode_AsUTF8AndSize(text.Get(), &length);
    if (!bytes)
        return nullptr;
    if (std::char_traits<char>::length(bytes) != static_cast<size_t>(length)) {
        PyErr_SetString(PyExc_ValueError, "source code string cannot contain null bytes");
        return nullptr;
    }
    PyCompilerFlags flags{PyCF_SOURCE_IS_UTF8 | PyCF_IGNORE_COOKIE, PY_MINOR_VERSION};
    return Py_CompileStringExFlags(bytes, CONSOLE_NAME, start, &flags, -1);
}

PyObject* Namespace()
{
    PyObject* module = PyImport_AddModule("__main__");
    return module ? PyModule_GetDict(module) : nullptr;
}

QStringList SearchPath()
{
    QStringList entries;
    PyObject* path = PySys_GetObject("path");
    for (Py_ssize_t i = 0; path && PyList_Check(path) && i < PyList_GET_SIZE(path); ++i) {
        PyObject* entry = PyList_GET_ITEM(path, i);
        if (PyUnicode_Check(entry))
            entries += ToText(entry);
    }
    return entries;
}

PyObject* ReadFile(const QString& path)
{
    const Reference io = Reference::Take(PyImport_ImportModule("io"));
    const Reference name = Reference::Take(FromText(path));
    if (!io || !name)
        return nullptr;
    const Reference file
        = Reference::Take(PyObject_CallMethod(io.Get(), "open_code", "O", name.Get()));
    if (!file)
        return nullptr;
    Reference bytes = Reference::Take(PyObject_CallMethod(file.Get(), "read", nullptr));
    const Reference closed = Reference::Take(PyObject_CallMethod(file.Get(), "close", nullptr));
    return closed ? bytes.Release() : nullptr;
}

} // namespace

Compiled CompileText(const QString& text)
{
    const bool hasMark = text.startsWith(QChar(QChar::ByteOrderMark));
    const Reference source = Reference::Take(FromText(hasMark ? text.mid(1) : text));
    if (!source)
        return {};
    const Reference expression = Reference::Take(Compile(source, Py_eval_input));
    if (expression || !PyErr_ExceptionMatches(PyExc_SyntaxError))
        return {expression, true};
    PyErr_Clear();
    return {Reference::Take(Compile(source, Py_file_input)), false};
}

PyObject* CompileFile(const QString& path)
{
    const Reference bytes = Reference::Take(ReadFile(path));
    const Reference name = Reference::Take(bytes ? FromText(path) : nullptr);
    const Reference builtins = Reference::Take(name ? PyImport_ImportModule("builtins") : nullptr);
    if (!builtins)
        return nullptr;
    return PyObject_CallMethod(
        builtins.Get(), "compile", "OOsii", bytes.Get(), name.Get(), "exec", 0, 1);
}

QString FindSource(const QString& path)
{
    if (QDir::isAbsolutePath(path))
        return QFileInfo(path).isFile() ? path : QString();
    for (const QString& folder : SearchPath()) {
        const QFileInfo file(QDir(folder), path);
        if (file.isFile())
            return file.absoluteFilePath();
    }
    const QFileInfo file(path);
    return file.isFile() ? file.absoluteFilePath() : QString();
}

PyObject* RunCode(PyObject* code)
{
    PyObject* names = Namespace();
    return names ? PyEval_EvalCode(code, names, names) : nullptr;
}

PyObject* RunFileCode(PyObject* code, const QString& path)
{
    PyObject* names = Namespace();
    const Reference file = Reference::Take(FromText(path));
    if (!names || !file)
        return nullptr;
    const Reference previous = Reference::Share(PyDict_GetItemString(names, "__file__"));
    PyDict_SetItemString(names, "__file__", file.Get());
    Reference result = Reference::Take(PyEval_EvalCode(code, names, names));
    PyObject *type, *value, *traceback;
    PyErr_Fetch(&type, &value, &traceback);
    if (previous)
        PyDict_SetItemString(names, "__file__", previous.Get());
    else
        PyDict_DelItemString(names, "__file__");
    PyErr_Clear();
    PyErr_Restore(type, value, traceback);
    return result.Release();
}

PyObject* EvaluateText(const QString& text)
{
    const Compiled compiled = CompileText(text);
    return compiled.code ? RunCode(compiled.code.Get()) : nullptr;
}

QString ResultText(PyObject* value)
{
    const Reference utilities = Reference::Take(PyImport_ImportModule("maya.utils"));
    if (!utilities)
        return {};
    const Reference text
        = Reference::Take(PyObject_CallMethod(utilities.Get(), "formatGuiResult", "(O)", value));
    return text ? Describe(text.Get()) : QString();
}

} // namespace host::python
