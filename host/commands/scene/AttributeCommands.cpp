// setAttr and getAttr.

#include "commands/scene/SceneCommands.h"
#include "engine/Engine.h"
#include "scene/Conversion.h"

#include <QRegularExpression>
#include <QScopedValueRollback>

namespace host::commands {

using namespace scene;

namespace {

QString NameOf(const Plug& plug)
{
    return Scene::Current().DisplayName(plug);
}

std::optional<Error> SettingError(const Plug& plug)
{
    if (!plug.attribute->isWritable) {
        return Error{QStringLiteral("setAttr: The attribute '%1' cannot be set: it is an output.")
                         .arg(NameOf(plug))};
    }
    if (plug.IsLocked() || (plug.Incoming() && !Scene::IsKeyedOnly(plug))) {
        return Error{QStringLiteral(
            "setAttr: The attribute '%1' is locked or connected and cannot be modified.")
                         .arg(NameOf(plug))};
    }
    for (const Plug& child : plug.Children()) {
        if (const auto error = SettingError(child))
            return error;
    }
    return std::nullopt;
}

std::optional<Error> RangeError(const Plug& plug, double number)
{
    const Attribute& attribute = *plug.attribute;
    if (attribute.maximum && number > *attribute.maximum) {
        return Error{
            QStringLiteral("setAttr: Cannot set the attribute '%1' past its maximum value of %2.")
                .arg(NameOf(plug), NumberText(*attribute.maximum))};
    }
    if (attribute.minimum && number < *attribute.minimum) {
        return Error{
            QStringLiteral("setAttr: Cannot set the attribute '%1' past its minimum value of %2.")
                .arg(NameOf(plug), NumberText(*attribute.minimum))};
    }
    return std::nullopt;
}

double Clamped(const Attribute& attribute, double number)
{
    if (attribute.maximum)
        number = qMin(number, *attribute.maximum);
    if (attribute.minimum)
        number = qMax(number, *attribute.minimum);
    return number;
}

std::optional<Error> SetNumber(const Call& call, const Plug& plug, const Value& value)
{
    bool isNumber = true;
    double number = value.ToFloat(&isNumber);
    if (plug.attribute->type->storage == Storage::Bool && !isNumber) {
        const QString word = value.ToText();
        number = word == QLatin1String("true") || word == QLatin1String("on")
            || word == QLatin1String("yes");
        isNumber = number != 0 || word == QLatin1String("false") || word == QLatin1String("off")
            || word == QLatin1String("no");
    }
    if (!isNumber) {
        return Error{QStringLiteral("setAttr: '%1' is not a valid value for the attribute '%2'.")
                         .arg(value.ToText(), NameOf(plug))};
    }
    if (call.Has("clamp"))
        number = Clamped(*plug.attribute, number);
    if (const auto error = RangeError(plug, number))
        return error;
    Scene::Current().SetValue(plug, number);
    return std::nullopt;
}

std::optional<Error> WrongCount(const Plug& plug, int wanted, int found)
{
    return Error{QStringLiteral("setAttr: The attribute '%1' needs %2 value(s), but %3 were given.")
                     .arg(NameOf(plug))
                     .arg(wanted)
                     .arg(found)};
}

/// The elements behind the count that lists begin with; all of them where there is no count.
QVector<Value> Listed(const QVector<Value>& values)
{
    const bool counted
        = !values.isEmpty() && values[0].IsNumber() && values[0].ToFloat() == values.size() - 1;
    return counted ? values.mid(1) : values;
}

Value ListValue(const QVector<Value>& values, Storage storage)
{
    const QVector<Value> elements = Listed(values);
    if (storage == Storage::VectorArray) {
        VectorList vectors;
        // Points have a fourth number each.
        const int step = elements.size() % 4 == 0 && elements.size() % 3 != 0 ? 4 : 3;
        for (int i = 0; i + 2 < elements.size(); i += step) {
            vectors += Vector{
                elements[i].ToFloat(), elements[i + 1].ToFloat(), elements[i + 2].ToFloat()};
        }
        return vectors;
    }
    StringList texts;
    FloatList numbers;
    for (const Value& element : elements) {
        texts += element.ToText();
        numbers += element.ToFloat();
    }
    return storage == Storage::StringArray ? Value(texts) : Converted(numbers, storage);
}

std::optional<Error> SetOne(const Call& call, const Plug& plug, const QVector<Value>& values);

std::optional<Error> SetChildren(const Call& call, const Plug& plug, const QVector<Value>& values)
{
    const QVector<Plug> children = plug.Children();
    if (values.size() != children.size())
        return WrongCount(plug, children.size(), values.size());
    for (int i = 0; i < children.size(); ++i) {
        if (const auto error = SetOne(call, children[i], {values[i]}))
            return error;
    }
    return std::nullopt;
}

std::optional<Error> SetOne(const Call& call, const Plug& plug, const QVector<Value>& values)
{
    const Storage storage = plug.attribute->type->storage;
    switch (storage) {
    case Storage::Children: return SetChildren(call, plug, values);
    case Storage::Bool:
    case Storage::Int:
    case Storage::Float:
        if (values.size() != 1)
            return WrongCount(plug, 1, values.size());
        return SetNumber(call, plug, values.first());
    case Storage::String:
        if (values.size() != 1)
            return WrongCount(plug, 1, values.size());
        Scene::Current().SetValue(plug, values.first().ToText());
        return std::nullopt;
    case Storage::Matrix:
        if (values.size() != 16)
            return WrongCount(plug, 16, values.size());
        Scene::Current().SetValue(plug, ListValue(values, Storage::FloatArray));
        return std::nullopt;
    case Storage::None:
        return Error{QStringLiteral("setAttr: The attribute '%1' holds no value that can be set.")
                         .arg(NameOf(plug))};
    default: Scene::Current().SetValue(plug, ListValue(values, storage)); return std::nullopt;
    }
}

bool IsTextType(const Call& call)
{
    return call.Has("type") && call.Text("type") == QLatin1String("string");
}

std::optional<Error> TypeError(const Call& call, const Plug& plug)
{
    const bool isText = plug.attribute->type->storage == Storage::String;
    if (isText != IsTextType(call) && !(isText && !call.Has("type"))) {
        return Error{QStringLiteral("setAttr: The attribute '%1' is of the type %2, not %3.")
                         .arg(NameOf(plug), QLatin1String(plug.attribute->type->name),
                             call.Has("type") ? call.Text("type") : QStringLiteral("a number"))};
    }
    if (isText && !call.Has("type")) {
        return Error{QStringLiteral("setAttr: '%1' is a string: say so with -type \"string\".")
                         .arg(NameOf(plug))};
    }
    return std::nullopt;
}

/// The values of `setAttr a.b[0:2]`, or of one attribute.
std::optional<Error> SetValues(const Call& call, const Plug& plug, const QVector<Value>& values)
{
    const bool typed = call.Has("type") || plug.attribute->type->storage == Storage::String;
    if (typed && plug.attribute->type->storage != Storage::None) {
        const bool checked = plug.attribute->type->storage == Storage::String || IsTextType(call);
        const auto error = checked ? TypeError(call, plug) : std::nullopt;
        if (error)
            return error;
    }
    if (const auto error = SettingError(plug))
        return error;
    return SetOne(call, plug, values);
}

void SetStates(const Call& call, const Plug& plug)
{
    PlugState state = plug.node->GetState(plug.key);
    if (call.Has("lock"))
        state.locked = call.Bool("lock");
    if (call.Has("keyable"))
        state.keyable = call.Bool("keyable");
    if (call.Has("channelBox"))
        state.inChannelBox = call.Bool("channelBox");
    if (call.Has("lock") || call.Has("keyable") || call.Has("channelBox"))
        Scene::Current().SetState(plug, state);
    if (!call.Has("keyable") && !call.Has("channelBox"))
        return;
    for (const Plug& child : plug.Children())
        SetStates(call, child);
}

/// The names that `a.b[2:4]` stands for; the name itself for any other.
QStringList ElementNames(const QString& name)
{
    static const QRegularExpression range(QStringLiteral("^(.*)\\[(\\d+):(\\d+)\\](.*)$"));
    const auto match = range.match(name);
    constexpr int MOST_ELEMENTS = 1000000;
    const bool isSmall
        = match.captured(3).toLongLong() - match.captured(2).toLongLong() < MOST_ELEMENTS;
    if (!match.hasMatch() || !isSmall)
        return {name};
    QStringList names;
    for (int i = match.captured(2).toInt(); i <= match.captured(3).toInt(); ++i)
        names += QStringLiteral("%1[%2]%3").arg(match.captured(1)).arg(i).arg(match.captured(4));
    return names;
}

/// The names stand before the values; a text that is an attribute is one of them.
int CountNames(const QVector<Value>& objects)
{
    int count = 1;
    while (count < objects.size() && objects[count].IsString()
        && objects[count].ToText().contains(QLatin1Char('.'))
        && !FindPlugs(objects[count].ToText()).isEmpty())
        ++count;
    return count;
}

std::optional<Error> SetShared(const Call& call, const QStringList& names, QVector<Value> values)
{
    const int share = names.isEmpty() ? 0 : values.size() / names.size();
    for (const QString& name : names) {
        const bool isPattern = name.contains(QLatin1Char('*')) || name.contains(QLatin1Char('?'));
        const QVector<Plug> plugs = FindPlugs(name);
        const FoundPlug found = FindPlug(name);
        if (found.error && (plugs.isEmpty() || !isPattern))
            return found.error;
        const bool spread = names.size() > 1;
        const QVector<Value> own = spread ? values.mid(0, share) : values;
        for (const Plug& plug : plugs) {
            if (!values.isEmpty()) {
                // Taking the lock away comes before the value, setting it after.
                if (call.Has("lock") && !call.Bool("lock"))
                    SetStates(call, plug);
                if (const auto error = SetValues(call, plug, own))
                    return error;
            }
            SetStates(call, plug);
        }
        if (spread)
            values = values.mid(share);
    }
    return std::nullopt;
}

bool OnlyChangesState(const Call& call)
{
    for (const char* flag :
        {"lock", "keyable", "channelBox", "caching", "size", "capacityHint", "alteredValue"}) {
        if (call.Has(flag))
            return true;
    }
    return false;
}

Outcome SetAttribute(Call& call)
{
    const QVector<Value>& objects = call.GetObjects();
    const int count = CountNames(objects);
    const QVector<Value> values = objects.mid(count);
    if (values.isEmpty() && !OnlyChangesState(call)) {
        return Error{QStringLiteral("setAttr: No value was given for the attribute '%1'.")
                         .arg(objects.first().ToText())};
    }
    for (int i = 0; i < count; ++i) {
        if (const auto error = SetShared(call, ElementNames(objects[i].ToText()), values))
            return *error;
    }
    return {};
}

/// Python has the numbers of a compound as one tuple in a list, MEL has them plain.
Value Presented(const Call& call, const Plug& plug, const Value& value)
{
    if (value.GetKind() == Value::Kind::Matrix)
        return value.Get<Matrix>().cells;
    const bool isGroup = plug.HasChildren() && value.Count() > 1;
    if (!isGroup || call.GetLanguage() != Language::Python)
        return value;
    Matrix row{1, value.Count(), {}};
    for (int i = 0; i < value.Count(); ++i)
        row.cells += value.At(i).ToFloat();
    return row;
}

/// "$HOME/x" and "${HOME}/x" with what the variables hold; those that are not set stay.
QString WithVariables(QString text)
{
    static const QRegularExpression variable(QStringLiteral("\\$(?:\\{(\\w+)\\}|(\\w+))"));
    int from = 0;
    for (auto match = variable.match(text); match.hasMatch(); match = variable.match(text, from)) {
        const QString name = match.captured(match.capturedLength(1) > 0 ? 1 : 2);
        const QString value = qEnvironmentVariable(name.toUtf8().constData(), match.captured());
        text.replace(match.capturedStart(), match.capturedLength(), value);
        from = match.capturedStart() + value.size();
    }
    return text;
}

Outcome ValueOf(const Call& call, const Plug& plug)
{
    if (plug.attribute->type->IsNamed("message"))
        return Error{QStringLiteral("Message attributes have no data values.")};
    std::optional<double> time;
    if (call.Has("time"))
        time = call.Float("time");
    const QScopedValueRollback<std::optional<double>> asked(Scene::Current().askedTime, time);
    const Value value = Scene::Current().GetValue(plug);
    if (call.Has("asString") && plug.attribute->type->IsNamed("enum"))
        return plug.attribute->EnumName(value.ToInt());
    const bool isUnset = plug.attribute->type->storage == Storage::String
        && value.ToText().isEmpty() && !plug.node->FindValue(plug.key);
    if (isUnset && call.GetLanguage() == Language::Python)
        return {};
    if (call.Has("expandEnvironmentVariables") && value.IsString())
        return WithVariables(value.ToText());
    return Presented(call, plug, value);
}

QString TypeOf(const Plug& plug)
{
    const bool isList = plug.IsWholeMulti() || plug.attribute->type->IsNamed("compound");
    return isList ? QStringLiteral("TdataCompound") : QLatin1String(plug.attribute->type->name);
}

Outcome GetAttribute(Call& call)
{
    const FoundPlug found = FindPlug(call.ObjectText());
    if (found.error)
        return call.Has("silent") ? Outcome() : Outcome(*found.error);
    const Plug& plug = found.plug;
    if (call.Has("type"))
        return TypeOf(plug);
    if (call.Has("lock"))
        return plug.IsLocked();
    if (call.Has("keyable"))
        return plug.IsKeyable();
    if (call.Has("channelBox"))
        return plug.IsInChannelBox();
    if (call.Has("settable"))
        return plug.IsSettable();
    if (call.Has("caching"))
        return true;
    if (call.Has("multiIndices"))
        return plug.node->Indices(plug.key);
    if (call.Has("size"))
        return plug.IsWholeMulti() ? plug.node->Indices(plug.key).size() : 1;
    return ValueOf(call, plug);
}

const CommandRow COMMANDS[] = {
    {"setAttr", "none", "", "String [Any...]",
        "alteredValue/av - c; caching/ca B c; capacityHint/ch int c; channelBox/cb B c; clamp/c - "
        "c;"
        "keyable/k B c; lock/l B c; size/s int c; type/typ str c",
        SetAttribute},
    {"getAttr", "any", "", "String",
        "asString/asString - c; caching/ca - c; channelBox/cb - c; expandEnvironmentVariables/x - "
        "c;"
        "keyable/k - c; lock/l - c; multiIndices/mi - c; settable/se - c; silent/sl - c; size/s - "
        "c;"
        "time/t time c; type/typ - c",
        GetAttribute},
};

} // namespace

void RegisterSceneAttributes(CommandRegistry& registry)
{
    RegisterSceneCommands(registry, COMMANDS);
}

} // namespace host::commands
