#include "python/PythonSyntax.h"

#include "python/PythonValue.h"

namespace host::python {

namespace {

/// By the number of MSyntax.k..., from kBoolean on.
constexpr ArgumentType TYPES[] = {
    ArgumentType::Bool,
    ArgumentType::Int,
    ArgumentType::Float,
    ArgumentType::String,
    ArgumentType::Unsigned,
    ArgumentType::Length,
    ArgumentType::Angle,
    ArgumentType::Time,
    ArgumentType::Name,
};
constexpr long FIRST_TYPE = 2;

bool ReadTypes(PyObject* tuple, QVector<ArgumentType>& types)
{
    for (Py_ssize_t i = 0; i < PyTuple_GET_SIZE(tuple); ++i) {
        const long number = PyLong_AsLong(PyTuple_GET_ITEM(tuple, i)) - FIRST_TYPE;
        if (PyErr_Occurred())
            return false;
        if (number < 0 || number >= static_cast<long>(std::size(TYPES))) {
            PyErr_SetString(PyExc_ValueError, "(kInvalidParameter): Unknown argument type");
            return false;
        }
        types += TYPES[number];
    }
    return true;
}

bool ReadFlag(PyObject* tuple, int modes, Flag& flag)
{
    PyObject *shortName, *longName, *types;
    int multiUse, queryTakesArguments;
    if (!PyArg_ParseTuple(tuple, "UUO!pp", &shortName, &longName, &PyTuple_Type, &types, &multiUse,
            &queryTakesArguments))
        return false;
    flag.shortName = ToText(shortName);
    flag.longName = ToText(longName);
    flag.modes = modes;
    flag.multiUse = multiUse != 0;
    flag.queryTakesArguments = queryTakesArguments != 0;
    return ReadTypes(types, flag.arguments);
}

QString Synopsis(const QVector<ArgumentType>& types)
{
    QStringList words;
    for (const ArgumentType type : types)
        words += ArgumentTypeName(type);
    return words.join(QLatin1Char(' '));
}

Objects ObjectsOf(const QVector<ArgumentType>& types, bool takesObjects, int minimum, int maximum)
{
    if (!takesObjects)
        return {Synopsis(types), types, types.size(), types.size()};
    return {QStringLiteral("[%1...]").arg(ArgumentTypeName(ArgumentType::String)),
        {ArgumentType::String}, minimum, maximum < 0 ? Objects::UNLIMITED : maximum};
}

/// Where use `use` of a flag stands among the words.
int PositionOf(const Call& call, const QString& flag, int use)
{
    const Flag* wanted = call.GetCommand().FindFlag(flag);
    for (int i = 0; i < call.GetWords().size(); ++i) {
        const Word& word = call.GetWords().at(i);
        if (word.isFlag && call.GetCommand().FindFlag(word.Text().mid(1)) == wanted && use-- == 0)
            return i;
    }
    return -1;
}

bool AppendUse(PyObject* uses, const Call& call, const QString& flag, int use)
{
    const QByteArray name = flag.toUtf8();
    const Reference arguments = Reference::Take(PyList_New(0));
    for (int i = 0; arguments && !call.Argument(name.constData(), i, use).IsNone(); ++i) {
        const Reference value = Reference::Take(FromValue(call.Argument(name.constData(), i, use)));
        if (!value || PyList_Append(arguments.Get(), value.Get()) != 0)
            return false;
    }
    const Reference entry = Reference::Take(arguments
            ? Py_BuildValue("(sOi)", name.constData(), arguments.Get(), PositionOf(call, flag, use))
            : nullptr);
    return entry && PyList_Append(uses, entry.Get()) == 0;
}

} // namespace

PyObject* FromWords(const QVector<Word>& words)
{
    Reference list = Reference::Take(PyList_New(0));
    for (const Word& word : words) {
        const Reference value = Reference::Take(FromValue(word.value));
        const Reference text = Reference::Take(FromText(word.Text()));
        const Reference entry = Reference::Take(list && value && text
                ? Py_BuildValue("(OOO)", value.Get(), text.Get(), word.isFlag ? Py_True : Py_False)
                : nullptr);
        if (!entry || PyList_Append(list.Get(), entry.Get()) != 0)
            return nullptr;
    }
    return list.Release();
}

bool ToWords(PyObject* list, QVector<Word>& words)
{
    for (Py_ssize_t i = 0; i < PyList_GET_SIZE(list); ++i) {
        PyObject *value, *text;
        int isFlag = 0;
        if (!PyArg_ParseTuple(PyList_GET_ITEM(list, i), "OUp", &value, &text, &isFlag))
            return false;
        const bool isString = PyUnicode_Check(value);
        words.append({ToValue(value), isString ? QString() : ToText(text), isFlag != 0, {}});
    }
    return true;
}

PyObject* FromCall(const Call& call)
{
    const Reference uses = Reference::Take(PyList_New(0));
    for (const QString& flag : call.GivenFlags()) {
        for (int use = 0; use < call.UseCount(flag.toUtf8().constData()); ++use) {
            if (!uses || !AppendUse(uses.Get(), call, flag, use))
                return nullptr;
        }
    }
    const Reference objects = Reference::Take(PyList_New(0));
    for (const Value& object : call.GetObjects()) {
        const Reference value = Reference::Take(FromValue(object));
        if (!objects || !value || PyList_Append(objects.Get(), value.Get()) != 0)
            return nullptr;
    }
    if (!uses || !objects)
        return nullptr;
    return Py_BuildValue("(iOO)", static_cast<int>(call.GetMode()), uses.Get(), objects.Get());
}

bool DescribeCommand(Command& command, PyObject* syntax)
{
    PyObject *flags, *types;
    int takesObjects, minimum, maximum, canQuery, canEdit;
    QVector<ArgumentType> arguments;
    if (!PyArg_ParseTuple(syntax, "O!O!piipp", &PyList_Type, &flags, &PyTuple_Type, &types,
            &takesObjects, &minimum, &maximum, &canQuery, &canEdit)
        || !ReadTypes(types, arguments))
        return false;
    const int modes = Create | (canQuery ? Query : 0) | (canEdit ? Edit : 0);
    for (Py_ssize_t i = 0; i < PyList_GET_SIZE(flags); ++i) {
        Flag flag;
        if (!ReadFlag(PyList_GET_ITEM(flags, i), modes, flag))
            return false;
        command.AddFlag(flag);
    }
    command.SetModes(canQuery != 0, canEdit != 0);
    command.SetObjects(ObjectsOf(arguments, takesObjects != 0, minimum, maximum));
    return true;
}

} // namespace host::python
