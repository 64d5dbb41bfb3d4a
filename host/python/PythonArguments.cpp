#include "python/PythonArguments.h"

#include "python/PythonCallable.h"
#include "python/PythonValue.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace host::python {

namespace {

bool IsList(PyObject* object)
{
    return PyList_Check(object) || PyTuple_Check(object);
}

bool ReadInt(PyObject* object, Word& word)
{
    const Reference number = Reference::Take(PyNumber_Index(object));
    if (!number)
        return false;
    int overflow = 0;
    const long long value = PyLong_AsLongLongAndOverflow(number.Get(), &overflow);
    if (overflow == 0 && value >= std::numeric_limits<int>::min()
        && value <= std::numeric_limits<int>::max()) {
        word.value = static_cast<int>(value);
        return true;
    }
    // A number or a name may still take it; RefuseTooLarge sees to the flags that cannot.
    word.value = PyLong_AsDouble(number.Get());
    word.spelling = Describe(number.Get());
    return !PyErr_Occurred();
}

bool ReadPath(PyObject* object, Word& word)
{
    const Reference path = Reference::Take(PyOS_FSPath(object));
    if (!path)
        return false;
    if (!PyUnicode_Check(path.Get())) {
        PyErr_SetString(PyExc_TypeError, "Paths must be str, not bytes");
        return false;
    }
    word.value = ToText(path.Get());
    return true;
}

/// A single value. False without an exception when the object is none.
bool ReadScalar(PyObject* object, Word& word)
{
    if (PyBool_Check(object)) {
        word.value = object == Py_True;
    } else if (PyUnicode_Check(object)) {
        word.value = ToText(object);
    } else if (PyFloat_Check(object)) {
        word.value = PyFloat_AS_DOUBLE(object);
    } else if (PyIndex_Check(object)) {
        return ReadInt(object, word);
    } else if (PyCallable_Check(object)) {
        word.callable = std::make_shared<PythonCallable>(object);
    } else if (PyObject_HasAttrString(object, "__fspath__")) {
        return ReadPath(object, word);
    } else if (PyObject_HasAttrString(object, "__float__")) {
        word.value = PyFloat_AsDouble(object);
        return !PyErr_Occurred();
    } else {
        return false;
    }
    return true;
}

bool RefuseObject(PyObject* object)
{
    if (!PyErr_Occurred()) {
        PyErr_Format(PyExc_TypeError, "Invalid argument: an object cannot be of type %.200s",
            Py_TYPE(object)->tp_name);
    }
    return false;
}

bool ReadObjects(PyObject* object, bool scripts, QVector<Word>& words)
{
    if (!IsList(object)) {
        Word word;
        if (!ReadScalar(object, word) || (word.callable && !scripts))
            return RefuseObject(object);
        words += word;
        return true;
    }
    if (Py_EnterRecursiveCall(" while reading a list of objects") != 0)
        return false;
    bool ok = true;
    for (Py_ssize_t i = 0; ok && i < PySequence_Fast_GET_SIZE(object); ++i)
        ok = ReadObjects(PySequence_Fast_GET_ITEM(object, i), scripts, words);
    Py_LeaveRecursiveCall();
    return ok;
}

QString TypeWord(ArgumentType type)
{
    switch (type) {
    case ArgumentType::Bool: return QStringLiteral("bool");
    case ArgumentType::Int:
    case ArgumentType::Unsigned: return QStringLiteral("int");
    case ArgumentType::Float: return QStringLiteral("float");
    case ArgumentType::Length: return QStringLiteral("distance");
    case ArgumentType::Angle: return QStringLiteral("angle");
    case ArgumentType::Time: return QStringLiteral("time");
    case ArgumentType::Any: return QStringLiteral("value");
    case ArgumentType::Script: return QStringLiteral("script");
    case ArgumentType::String:
    case ArgumentType::Name: return QStringLiteral("str");
    }
    return {};
}

/// Pieces of time are texts such as "1:10"; Python has (1, 10) for them.
bool TakesRanges(const Flag& flag)
{
    constexpr const char* NAMES[] = {"time", "float", "index"};
    return flag.arguments == QVector<ArgumentType>{ArgumentType::String}
    && std::any_of(std::begin(NAMES), std::end(NAMES),
        [&](const char* name) { return flag.longName == QLatin1String(name); });
}

/// Reads the value of one flag. A flag the command does not have is left to the engine to refuse.
class FlagReader
{
public:
    FlagReader(const QString& name, const Flag* flag, Keyword& keyword)
        : m_name(name)
        , m_flag(flag)
        , m_keyword(keyword)
    { }

    bool Read(PyObject* value)
    {
        if (!IsList(value))
            return ReadUse(value, true);
        if (IsRange(value))
            return ReadRange(value);
        if (!m_flag || !m_flag->multiUse || IsOneUse(value))
            return ReadUse(value, false);
        for (Py_ssize_t i = 0; i < PySequence_Fast_GET_SIZE(value); ++i) {
            PyObject* element = PySequence_Fast_GET_ITEM(value, i);
            if (IsRange(element) ? !ReadRange(element) : !ReadUse(element, !IsList(element)))
                return false;
        }
        return true;
    }

private:
    /// A list of scalars is one use of a flag that takes several arguments, and several uses of a
    /// flag that takes one.
    bool IsOneUse(PyObject* list) const
    {
        if (m_flag->arguments.size() < 2)
            return false;
        const Py_ssize_t count = PySequence_Fast_GET_SIZE(list);
        return count > 0 && !IsList(PySequence_Fast_GET_ITEM(list, 0));
    }

    bool IsRange(PyObject* value) const
    {
        return m_flag && TakesRanges(*m_flag) && PyTuple_Check(value)
            && PyTuple_GET_SIZE(value) == 2 && !IsList(PyTuple_GET_ITEM(value, 0));
    }

    bool ReadRange(PyObject* pair)
    {
        QStringList ends;
        for (int i = 0; i < 2; ++i) {
            Word word;
            if (!ReadArgument(PyTuple_GET_ITEM(pair, i), word))
                return Refuse(PyTuple_GET_ITEM(pair, i), i);
            ends += word.value.IsFloat() ? QString::number(word.value.ToFloat(), 'g', 17)
                                         : word.value.ToText();
        }
        m_keyword.uses += QVector<Word>{Word{ends.join(QLatin1Char(':')), {}, false, {}}};
        return true;
    }

    bool ReadUse(PyObject* value, bool single)
    {
        QVector<Word> use;
        const Py_ssize_t count = single ? 1 : PySequence_Fast_GET_SIZE(value);
        for (Py_ssize_t i = 0; i < count; ++i) {
            PyObject* argument = single ? value : PySequence_Fast_GET_ITEM(value, i);
            Word word;
            if (!ReadArgument(argument, word))
                return Refuse(argument, static_cast<int>(i));
            if (!FitsFlag(word, static_cast<int>(i)))
                return false;
            use += word;
        }
        m_keyword.uses += use;
        return true;
    }

    bool ReadArgument(PyObject* argument, Word& word) const
    {
        if (!IsList(argument) && ReadScalar(argument, word))
            return true;
        // The name of the flag is the greater mistake, and query=None means no query.
        return !m_flag && !PyErr_Occurred();
    }

    ArgumentType TypeAt(int index) const
    {
        if (!m_flag || m_flag->arguments.isEmpty())
            return ArgumentType::Bool;
        return m_flag->arguments.at(qMin(index, m_flag->arguments.size() - 1));
    }

    bool FitsFlag(const Word& word, int index) const
    {
        const ArgumentType type = TypeAt(index);
        if (type != ArgumentType::Int && type != ArgumentType::Unsigned)
            return true;
        const bool fits = !word.value.IsFloat()
            || std::abs(word.value.Get<double>()) <= std::numeric_limits<int>::max();
        if (!fits) {
            PyErr_Format(PyExc_OverflowError, "The value of flag '%s' is too large for an int",
                m_name.toUtf8().constData());
        }
        return fits;
    }

    bool Refuse(PyObject* argument, int index) const
    {
        if (PyErr_Occurred())
            return false;
        PyErr_Format(PyExc_TypeError, "Invalid arguments for flag '%s'.  Expected %s, got %.200s",
            m_name.toUtf8().constData(), TypeWord(TypeAt(index)).toUtf8().constData(),
            Py_TYPE(argument)->tp_name);
        return false;
    }

    const QString m_name;
    const Flag* const m_flag;
    Keyword& m_keyword;
};

} // namespace

bool ReadPositional(const Command& command, PyObject* arguments, QVector<Word>& words)
{
    const bool scripts = command.GetObjects().types.contains(ArgumentType::Script);
    return ReadObjects(arguments, scripts, words);
}

bool ReadKeywordArguments(const Command& command, PyObject* keywords, QVector<Keyword>& read)
{
    PyObject* name = nullptr;
    PyObject* value = nullptr;
    Py_ssize_t position = 0;
    while (keywords && PyDict_Next(keywords, &position, &name, &value)) {
        Keyword keyword{ToText(name), {}};
        const Flag* flag = command.takesRawWords ? nullptr : command.FindFlag(keyword.name);
        if (!FlagReader(keyword.name, flag, keyword).Read(value))
            return false;
        read += keyword;
    }
    return true;
}

} // namespace host::python
