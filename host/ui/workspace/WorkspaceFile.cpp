#include "ui/workspace/WorkspaceFile.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

namespace host::ui {

namespace {

constexpr int FORMAT_VERSION = 1;
constexpr int MAXIMUM_LENGTH = 32000; ///< of an edge or a coordinate, pixels
constexpr int MAXIMUM_TEXT = 1024 * 1024;

struct BoolField
{
    const char* key;
    bool ControlRecord::*member;
};

// clang-format off
const BoolField BOOL_FIELDS[] = {
    {"floating",        &ControlRecord::floating},
    {"visible",         &ControlRecord::visible},
    {"collapsed",       &ControlRecord::collapsed},
    {"retain",          &ControlRecord::retain},
    {"checksPlugins",   &ControlRecord::checksPlugins},
    {"loadImmediately", &ControlRecord::loadImmediately},
    {"current",         &ControlRecord::current},
};

struct ListField { const char* key; QStringList ControlRecord::*member; };
const ListField LIST_FIELDS[] = {
    {"requiredPlugins",  &ControlRecord::requiredPlugins},
    {"requiredControls", &ControlRecord::requiredControls},
};

struct ScriptField { const char* key; Script ControlRecord::*member; };
const ScriptField SCRIPT_FIELDS[] = {
    {"uiScript",     &ControlRecord::uiScript},
    {"closeCommand", &ControlRecord::closeCommand},
    {"initCallback", &ControlRecord::initCallback},
};

struct SizeField { const char* key; QSize ControlRecord::*member; };
const SizeField SIZE_FIELDS[] = {
    {"initialSize", &ControlRecord::initialSize},
    {"minimumSize", &ControlRecord::minimumSize},
};
// clang-format on

const QString SIDE_NAMES[] = {
    QStringLiteral("center"),
    QStringLiteral("left"),
    QStringLiteral("right"),
    QStringLiteral("top"),
    QStringLiteral("bottom"),
};

/// A whole number within the screen's range.
bool ReadLength(const QJsonValue& value, int& length)
{
    const double number = value.toDouble(MAXIMUM_LENGTH + 1.0);
    if (!(qAbs(number) <= MAXIMUM_LENGTH))
        return false;
    length = static_cast<int>(number);
    return true;
}

bool ReadLengths(const QJsonValue& value, int count, QVector<int>& lengths)
{
    const QJsonArray array = value.toArray();
    if (array.size() != count)
        return false;
    for (const QJsonValue& element : array) {
        int length = 0;
        if (!ReadLength(element, length))
            return false;
        lengths.append(length);
    }
    return true;
}

QJsonArray Lengths(std::initializer_list<int> lengths)
{
    QJsonArray array;
    for (const int length : lengths)
        array.append(length);
    return array;
}

void ReadSize(const QJsonValue& value, QSize& size)
{
    QVector<int> lengths;
    if (ReadLengths(value, 2, lengths))
        size = {lengths[0], lengths[1]};
}

bool ReadRect(const QJsonValue& value, QRect& rect)
{
    QVector<int> lengths;
    if (!ReadLengths(value, 4, lengths) || lengths[2] <= 0 || lengths[3] <= 0)
        return false;
    rect = {lengths[0], lengths[1], lengths[2], lengths[3]};
    return true;
}

QJsonArray RectArray(const QRect& rect)
{
    return Lengths({rect.x(), rect.y(), rect.width(), rect.height()});
}

void ReadScript(const QJsonValue& value, Script& script)
{
    const QString text = value[QLatin1String("text")].toString();
    if (text.isEmpty() || text.size() > MAXIMUM_TEXT)
        return;
    const bool python = value[QLatin1String("language")].toString() == QLatin1String("python");
    script.language = python ? Language::Python : Language::Mel;
    script.text = text;
}

QJsonObject ScriptObject(const Script& script)
{
    const bool python = script.language == Language::Python;
    return {{QStringLiteral("language"), python ? QStringLiteral("python") : QStringLiteral("mel")},
        {QStringLiteral("text"), script.text}};
}

QStringList ReadTexts(const QJsonValue& value)
{
    QStringList texts;
    for (const QJsonValue& element : value.toArray()) {
        if (element.isString())
            texts += element.toString();
    }
    return texts;
}

Value ReadOther(const QJsonValue& value)
{
    if (value.isBool())
        return value.toBool();
    if (value.isDouble())
        return value.toInt();
    return value.isString() ? Value(value.toString()) : Value();
}

QJsonValue OtherValue(const Value& value)
{
    if (value.GetKind() == Value::Kind::Bool)
        return value.ToBool();
    return value.IsInt() ? QJsonValue(value.ToInt()) : QJsonValue(value.ToText());
}

void ReadRecord(const QJsonObject& object, ControlRecord& record)
{
    const QString label = object[QLatin1String("label")].toString(record.label);
    record.label = label.left(MAXIMUM_TEXT);
    for (const BoolField& field : BOOL_FIELDS) {
        bool& member = record.*field.member;
        member = object[QLatin1String(field.key)].toBool(member);
    }
    for (const ListField& field : LIST_FIELDS) {
        if (object.contains(QLatin1String(field.key)))
            record.*field.member = ReadTexts(object[QLatin1String(field.key)]);
    }
    for (const ScriptField& field : SCRIPT_FIELDS)
        ReadScript(object[QLatin1String(field.key)], record.*field.member);
    for (const SizeField& field : SIZE_FIELDS)
        ReadSize(object[QLatin1String(field.key)], record.*field.member);
    ReadDockSide(object[QLatin1String("side")].toString(), record.side);
    ReadLength(object[QLatin1String("tabIndex")], record.tabIndex);
    const QJsonObject others = object[QLatin1String("others")].toObject();
    for (auto entry = others.begin(); entry != others.end(); ++entry) {
        const Value value = ReadOther(*entry);
        if (!value.IsNone())
            record.others.insert(entry.key(), value);
    }
}

QJsonObject RecordObject(const ControlRecord& record)
{
    QJsonObject object{{QStringLiteral("name"), record.name},
        {QStringLiteral("label"), record.label},
        {QStringLiteral("side"), DockSideName(record.side)},
        {QStringLiteral("tabIndex"), record.tabIndex}};
    for (const BoolField& field : BOOL_FIELDS)
        object.insert(QLatin1String(field.key), record.*field.member);
    for (const ListField& field : LIST_FIELDS) {
        if (!(record.*field.member).isEmpty())
            object.insert(
                QLatin1String(field.key), QJsonArray::fromStringList(record.*field.member));
    }
    for (const ScriptField& field : SCRIPT_FIELDS) {
        if (!(record.*field.member).text.isEmpty())
            object.insert(QLatin1String(field.key), ScriptObject(record.*field.member));
    }
    for (const SizeField& field : SIZE_FIELDS) {
        const QSize size = record.*field.member;
        if (size.isValid())
            object.insert(QLatin1String(field.key), Lengths({size.width(), size.height()}));
    }
    QJsonObject others;
    for (auto entry = record.others.begin(); entry != record.others.end(); ++entry)
        others.insert(entry.key(), OtherValue(*entry));
    if (!others.isEmpty())
        object.insert(QStringLiteral("others"), others);
    return object;
}

FrameRecord ReadFrame(const QJsonObject& object)
{
    FrameRecord frame;
    QVector<int> position;
    QSize size;
    frame.hasPosition = ReadLengths(object[QLatin1String("topLeft")], 2, position);
    if (frame.hasPosition)
        frame.geometry.moveTopLeft({position[1], position[0]});
    ReadSize(object[QLatin1String("size")], size);
    frame.hasSize = size.width() > 0 && size.height() > 0;
    if (frame.hasSize)
        frame.geometry.setSize(size);
    frame.maximized = object[QLatin1String("maximized")].toBool();
    return frame;
}

QJsonObject FrameObject(const FrameRecord& frame)
{
    QJsonObject object;
    const QRect& rect = frame.geometry;
    if (frame.hasPosition)
        object.insert(QStringLiteral("topLeft"), Lengths({rect.top(), rect.left()}));
    if (frame.hasSize)
        object.insert(QStringLiteral("size"), Lengths({rect.width(), rect.height()}));
    if (frame.maximized)
        object.insert(QStringLiteral("maximized"), true);
    return object;
}

bool IsName(const QString& text)
{
    static const QRegularExpression name(QStringLiteral("^[A-Za-z_][A-Za-z0-9_:.]*$"));
    return text.size() < 256 && name.match(text).hasMatch();
}

void ReadControls(const QJsonArray& array, SavedWorkspace& workspace, QStringList& problems)
{
    QStringList names;
    for (const QJsonValue& entry : array) {
        ControlRecord record;
        record.name = entry[QLatin1String("name")].toString();
        if (!entry.isObject() || !IsName(record.name)) {
            problems += QStringLiteral("Ignored a saved panel without a proper name.");
            continue;
        }
        if (names.contains(record.name)) {
            problems
                += QStringLiteral("Ignored a second saved panel named \"%1\".").arg(record.name);
            continue;
        }
        names += record.name;
        ReadRecord(entry.toObject(), record);
        workspace.controls.append(record);
    }
}

void ReadFrames(const QJsonObject& object, SavedWorkspace& workspace, QStringList& problems)
{
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        const FrameRecord frame = ReadFrame(entry->toObject());
        if (!entry->isObject() || !IsName(entry.key()) || !(frame.hasPosition || frame.hasSize))
            problems
                += QStringLiteral("Ignored the saved place of \"%1\".").arg(entry.key().left(80));
        else
            workspace.frames.insert(entry.key(), frame);
    }
}

} // namespace

QString DockSideName(DockSide side)
{
    return SIDE_NAMES[static_cast<int>(side)];
}

bool ReadDockSide(const QString& name, DockSide& side)
{
    for (int i = 0; i < 5; ++i) {
        if (SIDE_NAMES[i] == name) {
            side = static_cast<DockSide>(i);
            return true;
        }
    }
    return false;
}

SavedWorkspace ReadWorkspace(const QByteArray& text, QStringList& problems)
{
    SavedWorkspace workspace;
    QJsonParseError error;
    const QJsonObject root = QJsonDocument::fromJson(text, &error).object();
    if (error.error != QJsonParseError::NoError) {
        problems += error.errorString();
        return workspace;
    }
    ReadControls(root[QLatin1String("controls")].toArray(), workspace, problems);
    ReadFrames(root[QLatin1String("states")].toObject(), workspace, problems);
    const QJsonObject sizes = root[QLatin1String("sideSizes")].toObject();
    for (auto entry = sizes.begin(); entry != sizes.end(); ++entry) {
        DockSide side = DockSide::Center;
        int length = 0;
        if (ReadDockSide(entry.key(), side) && ReadLength(*entry, length) && length > 0)
            workspace.sideSizes.insert(side, length);
        else
            problems += QStringLiteral("Ignored a saved size of \"%1\".").arg(entry.key().left(80));
    }
    const QJsonObject window = root[QLatin1String("window")].toObject();
    ReadRect(window[QLatin1String("geometry")], workspace.windowGeometry);
    workspace.windowMaximized = window[QLatin1String("maximized")].toBool();
    return workspace;
}

QByteArray WriteWorkspace(const SavedWorkspace& workspace)
{
    QJsonArray controls;
    for (const ControlRecord& record : workspace.controls)
        controls.append(RecordObject(record));
    QJsonObject frames;
    for (auto entry = workspace.frames.begin(); entry != workspace.frames.end(); ++entry)
        frames.insert(entry.key(), FrameObject(*entry));
    QJsonObject sizes;
    for (auto entry = workspace.sideSizes.begin(); entry != workspace.sideSizes.end(); ++entry)
        sizes.insert(DockSideName(entry.key()), *entry);
    QJsonObject window{{QStringLiteral("maximized"), workspace.windowMaximized}};
    if (workspace.windowGeometry.isValid())
        window.insert(QStringLiteral("geometry"), RectArray(workspace.windowGeometry));
    return QJsonDocument(
        QJsonObject{{QStringLiteral("version"), FORMAT_VERSION},
            {QStringLiteral("controls"), controls}, {QStringLiteral("states"), frames},
            {QStringLiteral("sideSizes"), sizes}, {QStringLiteral("window"), window}})
        .toJson();
}

QString WriteControlState(const ControlRecord& record)
{
    const QJsonDocument document(RecordObject(record));
    return QString::fromUtf8(document.toJson(QJsonDocument::Compact));
}

bool ReadControlState(const QString& text, ControlRecord& record)
{
    const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8());
    if (!document.isObject())
        return false;
    ReadRecord(document.object(), record);
    return true;
}

} // namespace host::ui
