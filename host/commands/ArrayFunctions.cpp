#include "commands/Session.h"
#include "commands/Tables.h"
#include "engine/Engine.h"

#include <QSet>

#include <algorithm>
#include <cmath>

namespace host::commands {

namespace {

Outcome NotAnArray(const Value& value)
{
    return Error{
        QStringLiteral("Cannot use data of type %1 as an array.").arg(KindName(value.GetKind()))};
}

template <typename List, typename Less>
Value Sorted(List list, Less less)
{
    std::stable_sort(list.begin(), list.end(), less);
    return list;
}

/// What is not a number comes last, so that the order is one.
bool IsBefore(double a, double b)
{
    return a < b || (std::isnan(b) && !std::isnan(a));
}

/// A copy: the argument keeps its order.
Outcome Sort(FunctionCall& call)
{
    const Value& array = call.At(0);
    switch (array.GetKind()) {
    case Value::Kind::None: return array;
    case Value::Kind::IntArray: return Sorted(array.Get<IntList>(), std::less<int>());
    case Value::Kind::FloatArray: return Sorted(array.Get<FloatList>(), IsBefore);
    case Value::Kind::StringArray: return Sorted(array.Get<StringList>(), std::less<QString>());
    case Value::Kind::VectorArray:
        return Sorted(array.Get<VectorList>(),
            [](const Vector& a, const Vector& b) { return IsBefore(a.Length(), b.Length()); });
    default: return NotAnArray(array);
    }
}

Outcome SortCaseInsensitive(Call& call)
{
    return Sorted(call.ObjectTexts(), [](const QString& a, const QString& b) {
        return QString::compare(a, b, Qt::CaseInsensitive) < 0;
    });
}

Outcome CopyArray(FunctionCall& call)
{
    const Value& source = call.At(0);
    Value& target = call.Reference(1);
    if (!source.IsArray())
        return NotAnArray(source);
    if (!target.IsNone() && target.GetKind() != source.GetKind()) {
        return Error{QStringLiteral("Cannot convert data of type %1 to type %2.")
                         .arg(KindName(source.GetKind()), KindName(target.GetKind()))};
    }
    target = source;
    return {};
}

Error MissingObject(const QString& name)
{
    return {QStringLiteral("Object '%1' not found.").arg(name)};
}

/// Keeps what all the arrays given to one object have in common, in the order of the first.
class Intersection
{
public:
    Intersection(Call& call, QMap<QString, std::optional<QStringList>>& objects)
        : m_call(call)
        , m_objects(objects)
    { }

    Outcome Run()
    {
        if (m_call.IsCreate())
            return Create();
        const QString name = m_call.ObjectText();
        if (!m_objects.contains(name))
            return MissingObject(name);
        if (m_call.IsQuery())
            return m_objects.value(name).value_or(QStringList());
        if (m_call.Has("reset"))
            m_objects[name].reset();
        Intersect(name);
        return name;
    }

private:
    Outcome Create()
    {
        QString name = m_call.ObjectText();
        for (int i = 1; name.isEmpty() || m_objects.contains(name); ++i) {
            if (!m_call.GetObjects().isEmpty())
                return Error{QStringLiteral("Object's name '%1' is not unique.").arg(name)};
            name = QStringLiteral("stringArrayIntersector%1").arg(i);
        }
        m_objects.insert(name, std::nullopt);
        Intersect(name);
        return name;
    }

    void Intersect(const QString& name)
    {
        for (int use = 0; use < m_call.UseCount("intersect"); ++use) {
            QStringList given;
            for (int i = 0; !m_call.Argument("intersect", i, use).IsNone(); ++i)
                given += m_call.Text("intersect", i, use);
            std::optional<QStringList>& common = m_objects[name];
            if (!common) {
                given.removeDuplicates();
                common = given;
                continue;
            }
            const QSet<QString> kept(given.begin(), given.end());
            QStringList both;
            for (const QString& item : qAsConst(*common)) {
                if (kept.contains(item))
                    both += item;
            }
            common = both;
        }
    }

    Call& m_call;
    QMap<QString, std::optional<QStringList>>& m_objects;
};

Outcome Intersector(Call& call)
{
    auto& objects = Session::Current().intersections;
    if (call.Has("exists"))
        return objects.contains(call.ObjectText());
    return Intersection(call, objects).Run();
}

const FunctionRow FUNCTIONS[] = {
    {"any sort(any)", Sort},
    {"void copyArray(any, any&)", CopyArray},
};

const CommandRow COMMANDS[] = {
    {"sortCaseInsensitive", "string[]", "", "[String...]", "", SortCaseInsensitive},
    {"stringArrayIntersector", "string", "QE", "[String]",
        "exists/ex - cq; intersect/i str[] ce; reset/r - e", Intersector},
};

} // namespace

void RegisterArrays(CommandRegistry& registry)
{
    registry.Register(FUNCTIONS);
    registry.Register(COMMANDS);
}

} // namespace host::commands
