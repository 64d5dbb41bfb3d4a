#include "python/PythonValue.h"

#include <limits>
#include <numeric>
#include <optional>

namespace host::python {

namespace {

Value IntValue(PyObject* object)
{
    int overflow = 0;
    const long long number = PyLong_AsLongLongAndOverflow(object, &overflow);
    if (overflow != 0 || number < std::numeric_limits<int>::min()
        || number > std::numeric_limits<int>::max())
        return {};
    return static_cast<int>(number);
}

Value ScalarValue(PyObject* object)
{
    if (PyBool_Check(object))
        return object == Py_True;
    if (PyLong_Check(object))
        return IntValue(object);
    if (PyFloat_Check(object))
        return PyFloat_AS_DOUBLE(object);
    if (PyUnicode_Check(object))
        return ToText(object);
    return {};
}

/// The kind that holds both; nothing when there is none.
std::optional<Value::Kind> CommonKind(Value::Kind left, Value::Kind right)
{
    const auto normal
        = [](Value::Kind kind) { return kind == Value::Kind::Bool ? Value::Kind::Int : kind; };
    left = normal(left);
    right = normal(right);
    if (left == right)
        return left;
    const bool leftIsNumber = left == Value::Kind::Int || left == Value::Kind::Float;
    const bool rightIsNumber = right == Value::Kind::Int || right == Value::Kind::Float;
    if (leftIsNumber && rightIsNumber)
        return Value::Kind::Float;
    return std::nullopt;
}

Value ListOf(const QVector<Value>& elements, Value::Kind kind)
{
    IntList ints;
    FloatList floats;
    StringList texts;
    for (const Value& element : elements) {
        if (kind == Value::Kind::Int)
            ints += element.ToInt();
        else if (kind == Value::Kind::Float)
            floats += element.ToFloat();
        else
            texts += element.ToText();
    }
    if (kind == Value::Kind::Int)
        return ints;
    if (kind == Value::Kind::Float)
        return floats;
    return texts;
}

Value SequenceValue(PyObject* sequence)
{
    const Py_ssize_t count = PySequence_Fast_GET_SIZE(sequence);
    QVector<Value> elements;
    elements.reserve(static_cast<int>(count));
    std::optional<Value::Kind> kind;
    for (Py_ssize_t i = 0; i < count; ++i) {
        const Value element = ScalarValue(PySequence_Fast_GET_ITEM(sequence, i));
        if (element.IsNone())
            return {};
        kind = CommonKind(kind.value_or(element.GetKind()), element.GetKind());
        if (!kind)
            return {};
        elements += element;
    }
    // An empty list is most often asked for as a list of names.
    return ListOf(elements, kind.value_or(Value::Kind::String));
}

template <typename List, typename Convert>
PyObject* FromList(const List& list, Convert convert)
{
    Reference result = Reference::Take(PyList_New(list.size()));
    for (int i = 0; result && i < list.size(); ++i) {
        PyObject* element = convert(list.at(i));
        if (!element)
            return nullptr;
        PyList_SET_ITEM(result.Get(), i, element);
    }
    return result.Release();
}

PyObject* FromVector(const Vector& vector)
{
    return Py_BuildValue("(ddd)", vector.x, vector.y, vector.z);
}

/// A list of its rows.
PyObject* FromMatrix(const Matrix& matrix)
{
    QVector<int> rows(matrix.rows);
    std::iota(rows.begin(), rows.end(), 0);
    return FromList(rows, [&](int row) {
        const Reference cells = Reference::Take(
            FromList(matrix.cells.mid(row * matrix.columns, matrix.columns), PyFloat_FromDouble));
        return cells ? PyList_AsTuple(cells.Get()) : nullptr;
    });
}

} // namespace

QString ToText(PyObject* text)
{
    const int length = static_cast<int>(PyUnicode_GET_LENGTH(text));
    const void* data = PyUnicode_DATA(text);
    switch (PyUnicode_KIND(text)) {
    case PyUnicode_1BYTE_KIND: return QString::fromLatin1(static_cast<const char*>(data), length);
    case PyUnicode_2BYTE_KIND: return QString(static_cast<const QChar*>(data), length);
    default: return QString::fromUcs4(static_cast<const char32_t*>(data), length);
    }
}

QString Describe(PyObject* object)
{
    const Reference text = Reference::Take(PyObject_Str(object));
    if (text)
        return ToText(text.Get());
    PyErr_Clear();
    return QStringLiteral("<unprintable %1>").arg(QString::fromUtf8(Py_TYPE(object)->tp_name));
}

QString Representation(PyObject* object)
{
    const Reference text = Reference::Take(PyObject_Repr(object));
    return text ? ToText(text.Get()) : QString();
}

PyObject* FromText(const QString& text)
{
    int byteOrder = Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? -1 : 1;
    return PyUnicode_DecodeUTF16(reinterpret_cast<const char*>(text.utf16()),
        static_cast<Py_ssize_t>(text.size()) * 2, "surrogatepass", &byteOrder);
}

PyObject* FromValue(const Value& value)
{
    switch (value.GetKind()) {
    case Value::Kind::None: Py_RETURN_NONE;
    case Value::Kind::Bool: return PyBool_FromLong(value.ToBool());
    case Value::Kind::Int: return PyLong_FromLong(value.Get<int>());
    case Value::Kind::Float: return PyFloat_FromDouble(value.Get<double>());
    case Value::Kind::String: return FromText(value.Get<QString>());
    case Value::Kind::Vector: {
        const Vector vector = value.Get<Vector>();
        return Py_BuildValue("[ddd]", vector.x, vector.y, vector.z);
    }
    case Value::Kind::Matrix: return FromMatrix(value.Get<Matrix>());
    case Value::Kind::IntArray: return FromList(value.Get<IntList>(), PyLong_FromLong);
    case Value::Kind::FloatArray: return FromList(value.Get<FloatList>(), PyFloat_FromDouble);
    case Value::Kind::StringArray: return FromList(value.Get<StringList>(), FromText);
    case Value::Kind::VectorArray: return FromList(value.Get<VectorList>(), FromVector);
    }
    Py_RETURN_NONE;
}

Value ToValue(PyObject* object)
{
    return PyList_Check(object) || PyTuple_Check(object) ? SequenceValue(object)
                                                         : ScalarValue(object);
}

} // namespace host::python
