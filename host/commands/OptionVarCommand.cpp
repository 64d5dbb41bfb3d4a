#include "commands/Session.h"
#include "commands/Tables.h"
#include "engine/Engine.h"

#include <algorithm>

namespace host::commands {

namespace {

OptionVars& Vars()
{
    return Engine::Current().optionVars;
}

/// The element kinds of the settings flags: "intValue2" stores an int array and so on.
struct SettingRow
{
    const char* flag;
    Value::Kind element;
    int count; ///< values after the name; 0: the flag appends one to an array
};

constexpr SettingRow SETTINGS[] = {
    {"intValue", Value::Kind::Int, 1},
    {"intValue2", Value::Kind::Int, 2},
    {"intValue3", Value::Kind::Int, 3},
    {"intValue4", Value::Kind::Int, 4},
    {"intValueAppend", Value::Kind::Int, 0},
    {"floatValue", Value::Kind::Float, 1},
    {"floatValue2", Value::Kind::Float, 2},
    {"floatValue3", Value::Kind::Float, 3},
    {"floatValue4", Value::Kind::Float, 4},
    {"floatValueAppend", Value::Kind::Float, 0},
    {"stringValue", Value::Kind::String, 1},
    {"stringValueAppend", Value::Kind::String, 0},
};

/// Flags that make an empty array.
constexpr struct
{
    const char* flag;
    Value::Kind kind;
} ARRAYS[] = {
    {"intArray", Value::Kind::IntArray},
    {"floatArray", Value::Kind::FloatArray},
    {"stringArray", Value::Kind::StringArray},
};

/// `array` with the element behind it. Anything that is no array of that kind starts a new one,
/// whose first element it is when it is a scalar of the kind.
Value Appended(Value array, const Value& element)
{
    const Value::Kind kind = ArrayKindOf(element.GetKind());
    if (array.GetKind() == element.GetKind())
        array = Appended(Value::Default(kind), array);
    else if (array.GetKind() != kind)
        array = Value::Default(kind);
    switch (kind) {
    case Value::Kind::IntArray: array.Get<IntList>() += element.ToInt(); break;
    case Value::Kind::FloatArray: array.Get<FloatList>() += element.ToFloat(); break;
    default: array.Get<StringList>() += element.ToText();
    }
    return array;
}

Value Converted(const Value& value, Value::Kind kind)
{
    switch (kind) {
    case Value::Kind::Int: return value.ToInt();
    case Value::Kind::Float: return value.ToFloat();
    default: return value.ToText();
    }
}

/// One call of the command: removals first, then settings, then the answer.
class OptionVarCall
{
public:
    explicit OptionVarCall(Call& call)
        : m_call(call)
    { }

    Outcome Run()
    {
        if (m_call.IsQuery())
            return Query();
        if (const Outcome removed = Remove(); !removed.Ok())
            return removed;
        for (const auto& row : ARRAYS) {
            for (const QString& name : m_call.Texts(row.flag))
                Set(name, Value::Default(row.kind));
        }
        for (const QString& flag : m_call.GivenFlags())
            Apply(flag);
        for (const QString& name : m_call.Texts("unstash")) {
            if (m_session.stashedOptions.contains(name))
                Vars().Set(name, m_session.stashedOptions.take(name));
        }
        return Answer();
    }

private:
    Outcome Query() const
    {
        const QString name = m_call.ObjectText();
        if (!m_call.GetObjects().isEmpty())
            return Vars().Contains(name) ? Vars().Get(name) : Value(0);
        return Error{QStringLiteral("optionVar: the query needs a name.")};
    }

    Outcome Remove()
    {
        for (const QString& name : m_call.Texts("remove"))
            Vars().Remove(name);
        for (const QString& name : m_call.Texts("clearArray")) {
            const Value array = Vars().Get(name);
            if (array.IsArray())
                Vars().Set(name, Value::Default(array.GetKind()));
        }
        for (int use = 0; use < m_call.UseCount("removeFromArray"); ++use) {
            const Outcome removed = RemoveElement(
                m_call.Text("removeFromArray", 0, use), m_call.Int("removeFromArray", 1, use));
            if (!removed.Ok())
                return removed;
        }
        for (const QString& name : m_call.Texts("clearStash"))
            m_session.stashedOptions.remove(name);
        for (const QString& name : m_call.Texts("stash")) {
            if (Vars().Contains(name))
                m_session.stashedOptions.insert(name, Vars().Get(name));
        }
        return {};
    }

    static Outcome RemoveElement(const QString& name, int index)
    {
        Value array = Vars().Get(name);
        if (!array.IsArray() || index < 0 || index >= array.Count()) {
            return Error{QStringLiteral("optionVar '%1' has no element %2.")
                             .arg(name, QString::number(index))};
        }
        switch (array.GetKind()) {
        case Value::Kind::IntArray: array.Get<IntList>().remove(index); break;
        case Value::Kind::FloatArray: array.Get<FloatList>().remove(index); break;
        default: array.Get<StringList>().removeAt(index);
        }
        Vars().Set(name, array);
        return {};
    }

    void Apply(const QString& flag)
    {
        const auto row = std::find_if(std::begin(SETTINGS), std::end(SETTINGS),
            [&](const SettingRow& candidate) { return flag == QLatin1String(candidate.flag); });
        if (row != std::end(SETTINGS))
            Apply(*row);
    }

    /// Elements that go to one variable are gathered: each copies the array no second time.
    void Apply(const SettingRow& row)
    {
        const int count = m_call.UseCount(row.flag);
        Value array;
        for (int use = 0; use < count; ++use) {
            const QString name = m_call.Text(row.flag, 0, use);
            const auto value = [&](int i) {
                return Converted(m_call.Argument(row.flag, i + 1, use), row.element);
            };
            if (row.count == 1) {
                Set(name, value(0));
                continue;
            }
            const bool goesOn
                = row.count == 0 && use > 0 && name == m_call.Text(row.flag, 0, use - 1);
            if (!goesOn)
                array = row.count == 0 ? Vars().Get(name) : Value();
            for (int i = 0; i < qMax(1, row.count); ++i)
                array = Appended(std::move(array), value(i));
            const bool isLast = use + 1 == count || name != m_call.Text(row.flag, 0, use + 1);
            if (row.count > 0 || isLast)
                Set(name, array);
        }
    }

    void Set(const QString& name, const Value& value)
    {
        if (m_call.Has("default"))
            m_session.optionDefaults.insert(name, value);
        if (m_call.Has("category"))
            m_session.optionCategories.insert(name, m_call.Text("category"));
        if (!m_call.Has("init") || !Vars().Contains(name))
            Vars().Set(name, value);
        if (m_call.Has("transient"))
            Vars().SetTransient(name);
    }

    Outcome Answer() const
    {
        if (m_call.Has("exists"))
            return Vars().Contains(m_call.Text("exists"));
        if (m_call.Has("arraySize")) {
            const Value value = Vars().Get(m_call.Text("arraySize"));
            return value.IsArray() ? value.Count() : 0;
        }
        if (m_call.Has("listCategories")) {
            QStringList categories = m_session.optionCategories.values();
            categories.removeDuplicates();
            categories.sort();
            return categories;
        }
        if (m_call.Has("list") || m_call.Has("listModified"))
            return Names();
        return {};
    }

    QStringList Names() const
    {
        QStringList names;
        for (const QString& name : Vars().Names()) {
            const bool inCategory = !m_call.Has("category")
                || m_session.optionCategories.value(name) == m_call.Text("category");
            const bool modified = !m_call.Has("listModified")
                || (m_session.optionDefaults.contains(name)
                    && m_session.optionDefaults.value(name) != Vars().Get(name));
            if (inCategory && modified)
                names += name;
        }
        return names;
    }

    Call& m_call;
    Session& m_session = Session::Current();
};

Outcome OptionVar(Call& call)
{
    return OptionVarCall(call).Run();
}

// A file of preferences begins by telling its version. All versions are read alike.
const CommandRow COMMANDS[] = {
    {"optionVar", "any", "Q", "[String]",
        "arraySize/arraySize str c; category/cat str c; clearArray/ca str cm; clearStash/cs str cm;"
        "default/d - c; exists/ex str c; floatArray/fa str cm; floatValue/fv str float cm;"
        "floatValue2/fv2 str float float cm; floatValue3/fv3 str float float float cm;"
        "floatValue4/fv4 str float float float float cm; floatValueAppend/fva str float cm;"
        "init/ini - c; intArray/ia str cm; intValue/iv str int cm; intValue2/iv2 str int int cm;"
        "intValue3/iv3 str int int int cm; intValue4/iv4 str int int int int cm;"
        "intValueAppend/iva str int cm; list/l - c; listCategories/lc - c; listModified/lm - c;"
        "remove/rm str cm; removeFromArray/rfa str int cm; stash/st str cm; stringArray/sa str cm;"
        "stringValue/sv str str cm; stringValueAppend/sva str str cm; transient/t - c;"
        "unstash/us str cm; version/v int c",
        OptionVar},
};

} // namespace

void RegisterOptionVar(CommandRegistry& registry)
{
    registry.Register(COMMANDS);
}

} // namespace host::commands
