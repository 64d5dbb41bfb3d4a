#include "mel/Arrays.h"

#include "mel/Interpreter.h"
#include "mel/Operations.h"

namespace host::mel {

namespace {

using Kind = Value::Kind;

template <typename T>
void ResizeVector(QVector<T>& list, int size)
{
    // QVector grows to the very size asked for, which makes appending one by one slow.
    if (size > list.capacity())
        list.reserve(qMax(size, list.size() * 2));
    list.resize(size);
}

void ResizeTexts(StringList& list, int size)
{
    if (size < list.size())
        list.erase(list.begin() + size, list.end());
    while (list.size() < size)
        list.append(QString());
}

template <typename List>
typename List::value_type At(const List& list, int index)
{
    return index < list.size() ? list.at(index) : typename List::value_type();
}

} // namespace

void CheckIndex(Interpreter& interpreter, int index)
{
    if (index < 0 || index >= MAXIMUM_ELEMENTS)
        interpreter.Raise(QStringLiteral("Array index %1 is out of range.").arg(index));
}

void Resize(Interpreter& interpreter, Value& array, int size)
{
    if (size < 0 || size > MAXIMUM_ELEMENTS)
        interpreter.Raise(QStringLiteral("Array size %1 is out of range.").arg(size));
    switch (array.GetKind()) {
    case Kind::IntArray: ResizeVector(array.Get<IntList>(), size); break;
    case Kind::FloatArray: ResizeVector(array.Get<FloatList>(), size); break;
    case Kind::StringArray: ResizeTexts(array.Get<StringList>(), size); break;
    case Kind::VectorArray: ResizeVector(array.Get<VectorList>(), size); break;
    default: break;
    }
}

void SetElement(Interpreter& interpreter, Value& array, int index, const Value& value)
{
    CheckIndex(interpreter, index);
    if (!array.IsArray()) {
        interpreter.Raise(
            QStringLiteral("Data of type %1 has no elements.").arg(KindName(array.GetKind())));
    }
    const Value element = Convert(interpreter, value, ElementKindOf(array.GetKind()));
    if (index >= array.Count())
        Resize(interpreter, array, index + 1);
    switch (array.GetKind()) {
    case Kind::IntArray: array.Get<IntList>()[index] = element.Get<int>(); break;
    case Kind::FloatArray: array.Get<FloatList>()[index] = element.Get<double>(); break;
    case Kind::StringArray: array.Get<StringList>()[index] = element.Get<QString>(); break;
    case Kind::VectorArray: array.Get<VectorList>()[index] = element.Get<Vector>(); break;
    default: break;
    }
}

Value Element(Interpreter& interpreter, const Value& array, int index)
{
    if (index < 0)
        CheckIndex(interpreter, index);
    switch (array.GetKind()) {
    case Kind::IntArray: return At(array.Get<IntList>(), index);
    case Kind::FloatArray: return At(array.Get<FloatList>(), index);
    case Kind::StringArray: return At(array.Get<StringList>(), index);
    case Kind::VectorArray: return At(array.Get<VectorList>(), index);
    case Kind::None: return {};
    default:
        interpreter.Raise(
            QStringLiteral("Data of type %1 has no elements.").arg(KindName(array.GetKind())));
    }
}

double& Cell(Interpreter& interpreter, Value& matrix, int row, int column)
{
    if (matrix.GetKind() != Kind::Matrix) {
        interpreter.Raise(
            QStringLiteral("Data of type %1 has no rows.").arg(KindName(matrix.GetKind())));
    }
    Matrix& cells = matrix.Get<Matrix>();
    if (row < 0 || column < 0 || row >= cells.rows || column >= cells.columns) {
        interpreter.Raise(QStringLiteral("Index [%1][%2] is out of range of matrix[%3][%4].")
                              .arg(row)
                              .arg(column)
                              .arg(cells.rows)
                              .arg(cells.columns));
    }
    return cells.At(row, column);
}

} // namespace host::mel
