#include "api/ValueReading.h"

#include "api/Conversions.h"

namespace host::api {

namespace {

const char* const TRUE_WORDS[] = {"on", "yes", "true"};
const char* const FALSE_WORDS[] = {"off", "no", "false"};

bool Contains(const char* const (&words)[3], const QString& text)
{
    for (const char* word : words) {
        if (text == QLatin1String(word))
            return true;
    }
    return false;
}

/// A number, or a text that begins with one.
bool IsNumeric(const Value& value)
{
    if (value.IsNumber())
        return true;
    bool exact = true;
    if (value.IsString())
        value.ToFloat(&exact);
    return value.IsString() && exact;
}

MVector ToMVector(const Vector& vector)
{
    return {vector.x, vector.y, vector.z};
}

bool IsWhole(const Value& value)
{
    return value.IsInt() || value.GetKind() == Value::Kind::Bool;
}

template <typename Measure>
bool ReadMeasure(const Value& value, typename Measure::Unit unit, Measure& target)
{
    if (!IsNumeric(value))
        return false;
    target = Measure(value.ToFloat(), unit);
    return true;
}

} // namespace

bool ReadValue(const Value& value, bool& target)
{
    if (IsNumeric(value)) {
        target = value.ToBool();
        return true;
    }
    if (!value.IsString())
        return false;
    const bool isTrue = Contains(TRUE_WORDS, value.Get<QString>());
    if (!isTrue && !Contains(FALSE_WORDS, value.Get<QString>()))
        return false;
    target = isTrue;
    return true;
}

bool ReadValue(const Value& value, int& target)
{
    if (!IsNumeric(value))
        return false;
    target = value.ToInt();
    return true;
}

bool ReadValue(const Value& value, unsigned int& target)
{
    if (!IsNumeric(value) || value.ToFloat() < 0)
        return false;
    target = static_cast<unsigned int>(value.ToFloat());
    return true;
}

bool ReadValue(const Value& value, double& target)
{
    if (!IsNumeric(value))
        return false;
    target = value.ToFloat();
    return true;
}

bool ReadValue(const Value& value, MString& target)
{
    if (value.IsNone() || value.IsArray())
        return false;
    target = ToMString(value.ToText());
    return true;
}

bool ReadValue(const Value& value, MDistance& target)
{
    return ReadMeasure(value, MDistance::kCentimeters, target);
}

bool ReadValue(const Value& value, MAngle& target)
{
    return ReadMeasure(value, MAngle::kDegrees, target);
}

bool ReadValue(const Value& value, MTime& target)
{
    return ReadMeasure(value, MTime::kFilm, target);
}

bool ReadWord(const Word& word, MString& target)
{
    if (word.callable || word.value.IsArray())
        return false;
    if (word.spelling.isEmpty())
        return ReadValue(word.value, target);
    target = ToMString(word.spelling);
    return true;
}

bool ReadResult(const Value& value, int& target)
{
    return IsWhole(value) && ReadValue(value, target);
}

bool ReadResult(const Value& value, MInt64& target)
{
    int number = 0;
    if (!ReadResult(value, number))
        return false;
    target = number;
    return true;
}

bool ReadResult(const Value& value, double& target)
{
    return value.IsNumber() && ReadValue(value, target);
}

bool ReadResult(const Value& value, MString& target)
{
    return (value.IsString() || value.IsNumber()) && ReadValue(value.Normalized(), target);
}

bool ReadResult(const Value& value, MIntArray& target)
{
    const bool fits = IsWhole(value) || value.GetKind() == Value::Kind::IntArray
        || (value.IsArray() && value.Count() == 0);
    if (!fits)
        return false;
    target.clear();
    for (int i = 0; i < value.Count(); ++i)
        target.append(value.At(i).ToInt());
    return true;
}

bool ReadResult(const Value& value, MDoubleArray& target)
{
    const bool fits = value.IsFloat() || value.GetKind() == Value::Kind::FloatArray
        || (value.IsArray() && value.Count() == 0);
    if (!fits)
        return false;
    target.clear();
    for (int i = 0; i < value.Count(); ++i)
        target.append(value.At(i).ToFloat());
    return true;
}

bool ReadResult(const Value& value, MStringArray& target)
{
    const bool fits = value.IsString() || value.GetKind() == Value::Kind::StringArray
        || (value.IsArray() && value.Count() == 0);
    if (!fits)
        return false;
    target = ToMStringArray(value.ToTextList());
    return true;
}

bool ReadResult(const Value& value, MInt64Array& target)
{
    MIntArray numbers;
    if (!ReadResult(value, numbers))
        return false;
    target.clear();
    for (const int number : numbers)
        target.append(number);
    return true;
}

bool ReadResult(const Value& value, MVector& target)
{
    if (value.GetKind() != Value::Kind::Vector)
        return false;
    target = ToMVector(value.Get<Vector>());
    return true;
}

bool ReadResult(const Value& value, MVectorArray& target)
{
    const bool fits = value.GetKind() == Value::Kind::Vector
        || value.GetKind() == Value::Kind::VectorArray || (value.IsArray() && value.Count() == 0);
    if (!fits)
        return false;
    target.clear();
    for (int i = 0; i < value.Count(); ++i)
        target.append(ToMVector(value.At(i).ToVector()));
    return true;
}

QString FlagName(const char* flag)
{
    const QString name = QString::fromUtf8(flag);
    return name.startsWith(QLatin1Char('-')) ? name.mid(1) : name;
}

bool LooksLikeFlag(const QString& text)
{
    return text.size() > 1 && text.at(0) == QLatin1Char('-') && text.at(1).isLetter();
}

} // namespace host::api
