#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

#include <variant>

namespace host {

struct Vector
{
    double x = 0;
    double y = 0;
    double z = 0;

    bool operator==(const Vector& other) const
    {
        return x == other.x && y == other.y && z == other.z;
    }
    double Length() const;
};

/// Row-major; both sizes are fixed when a matrix variable is declared.
struct Matrix
{
    int rows = 0;
    int columns = 0;
    QVector<double> cells;

    bool operator==(const Matrix& other) const
    {
        return rows == other.rows && columns == other.columns && cells == other.cells;
    }
    double& At(int row, int column) { return cells[row * columns + column]; }
    double At(int row, int column) const { return cells[row * columns + column]; }
};

using IntList = QVector<int>;
using FloatList = QVector<double>;
using StringList = QStringList;
using VectorList = QVector<Vector>;

/// One value as MEL, Python and the commands exchange it. Copies are cheap (arrays are shared until
/// written). A Bool exists so that Python can tell a yes-or-no answer from a number; MEL turns it
/// into the int 0 or 1 (see Normalized) before a script sees it.
class Value
{
public:
    // The order is that of the alternatives in m_data.
    enum class Kind {
        None,
        Bool,
        Int,
        Float,
        String,
        Vector,
        Matrix,
        IntArray,
        FloatArray,
        StringArray,
        VectorArray,
    };

    Value() = default;
    Value(bool value)
        : m_data(value)
    { }
    Value(int value)
        : m_data(value)
    { }
    Value(double value)
        : m_data(value)
    { }
    Value(const QString& value)
        : m_data(value)
    { }
    Value(const Vector& value)
        : m_data(value)
    { }
    Value(const Matrix& value)
        : m_data(value)
    { }
    Value(const IntList& value)
        : m_data(value)
    { }
    Value(const FloatList& value)
        : m_data(value)
    { }
    Value(const StringList& value)
        : m_data(value)
    { }
    Value(const VectorList& value)
        : m_data(value)
    { }
    Value(const char*) = delete; // would become a Bool
    Value(const void*) = delete;

    /// The empty value of a kind: 0, 0.0, "", <<0,0,0>>, or an array without elements.
    static Value Default(Kind kind);

    Kind GetKind() const { return static_cast<Kind>(m_data.index()); }
    bool IsNone() const { return GetKind() == Kind::None; }
    bool IsInt() const { return GetKind() == Kind::Int; }
    bool IsFloat() const { return GetKind() == Kind::Float; }
    bool IsString() const { return GetKind() == Kind::String; }
    bool IsArray() const { return GetKind() >= Kind::IntArray; }
    bool IsNumber() const { return GetKind() >= Kind::Bool && GetKind() <= Kind::Float; }

    /// The stored alternative. Undefined for any other kind: check GetKind first.
    template <typename T>
    const T& Get() const
    {
        return *std::get_if<T>(&m_data);
    }
    template <typename T>
    T& Get()
    {
        return *std::get_if<T>(&m_data);
    }

    /// Number of elements of an array; 1 for a scalar, 0 for None.
    int Count() const;
    /// Element `index` of an array (from 0), or the scalar itself at index 0. None when out of
    /// range.
    Value At(int index) const;

    /// Conversions between scalars, as the language makes them: a float is truncated toward 0, a
    /// string gives its leading number, a vector its magnitude. An array gives 0. `exact`, when
    /// given, becomes false if a string held no leading number.
    int ToInt(bool* exact = nullptr) const;
    double ToFloat(bool* exact = nullptr) const;
    Vector ToVector() const;
    /// True for a number other than 0; for a string see ToFloat.
    bool ToBool() const;
    /// A scalar as text: "42", "0.3333333333", "1 2 3". An array as ToResultText.
    QString ToText() const;
    /// As `print` shows it: every element of an array followed by a line feed.
    QString ToPrintText() const;
    /// As a result line shows it: the elements of an array joined by one blank.
    QString ToResultText() const;
    /// The elements of an array, or the scalar alone, each as text.
    QStringList ToTextList() const;

    /// Bool becomes Int; everything else stays.
    Value Normalized() const;

    bool operator==(const Value& other) const { return m_data == other.m_data; }
    bool operator!=(const Value& other) const { return !(*this == other); }

private:
    std::variant<std::monostate, bool, int, double, QString, Vector, Matrix, IntList, FloatList,
        StringList, VectorList>
        m_data;
};

/// The language's word for a kind: "int", "string[]" ...; "undefined" for None.
QString KindName(Value::Kind kind);
/// The kind with that name; None for a word that is no type.
Value::Kind KindFromName(const QString& name);
/// int[] for int and so on; None for a kind that has no array.
Value::Kind ArrayKindOf(Value::Kind element);
/// int for int[] and so on; the kind itself for a scalar.
Value::Kind ElementKindOf(Value::Kind array);

/// Up to ten significant digits, trailing zeros dropped: "3", "0.3333333333", "1e+10".
QString NumberText(double value);

/// The number that `text` begins with after white space; 0 and `found` false when there is none.
double LeadingNumber(const QString& text, bool* found = nullptr);

} // namespace host
