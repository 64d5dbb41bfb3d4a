#include "engine/OptionVars.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

namespace host {

namespace {

// JSON has one kind of number, so the kind is stored beside the value.
const QString KIND = QStringLiteral("type");
const QString VALUE = QStringLiteral("value");

const QString BROKEN_SUFFIX = QStringLiteral(".broken");

QJsonValue ScalarToJson(const Value& value)
{
    switch (value.GetKind()) {
    case Value::Kind::Int: return value.Get<int>();
    case Value::Kind::Float: return value.Get<double>();
    default: return value.ToText();
    }
}

Value ScalarFromJson(const QJsonValue& json, Value::Kind kind)
{
    switch (kind) {
    case Value::Kind::Int: return json.toInt();
    case Value::Kind::Float: return json.toDouble();
    case Value::Kind::String: return json.toString();
    default: return {};
    }
}

Value FromJson(const QJsonObject& entry)
{
    const Value::Kind kind = KindFromName(entry.value(KIND).toString());
    const QJsonValue json = entry.value(VALUE);
    if (!json.isArray())
        return ScalarFromJson(json, kind);
    IntList ints;
    FloatList floats;
    StringList texts;
    for (const QJsonValue& element : json.toArray()) {
        ints += element.toInt();
        floats += element.toDouble();
        texts += element.toString();
    }
    switch (kind) {
    case Value::Kind::IntArray: return ints;
    case Value::Kind::FloatArray: return floats;
    case Value::Kind::StringArray: return texts;
    default: return {};
    }
}

} // namespace

void OptionVars::Set(const QString& name, const Value& value)
{
    m_values.insert(name, value.Normalized());
    if (changed)
        changed(name);
}

bool OptionVars::Remove(const QString& name)
{
    m_transient.remove(name);
    if (m_values.remove(name) == 0)
        return false;
    if (changed)
        changed(name);
    return true;
}

QString OptionVars::Load(const QString& path)
{
    QFile file(path);
    if (!file.exists())
        return {};
    if (!file.open(QIODevice::ReadOnly))
        return QStringLiteral("Cannot read preferences file \"%1\": %2")
            .arg(path, file.errorString());
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (!document.isObject()) {
        // The next save replaces the file, so what a person may still repair goes aside.
        const QString copy = path + BROKEN_SUFFIX;
        QFile::remove(copy);
        const QString kept = QFile::copy(path, copy)
            ? QStringLiteral(" A copy is kept as \"%1\".").arg(copy)
            : QString();
        return QStringLiteral("Cannot understand preferences file \"%1\": %2.%3")
            .arg(path, error.errorString(), kept);
    }
    const QJsonObject entries = document.object();
    for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
        const Value value = FromJson(entry.value().toObject());
        if (!value.IsNone())
            m_values.insert(entry.key(), value);
    }
    return {};
}

QString OptionVars::Save(const QString& path) const
{
    QJsonObject entries;
    for (auto it = m_values.begin(); it != m_values.end(); ++it) {
        if (m_transient.contains(it.key()))
            continue;
        QJsonValue json;
        if (it->IsArray()) {
            QJsonArray array;
            for (int i = 0; i < it->Count(); ++i)
                array += ScalarToJson(it->At(i));
            json = array;
        } else {
            json = ScalarToJson(*it);
        }
        entries.insert(it.key(), QJsonObject{{KIND, KindName(it->GetKind())}, {VALUE, json}});
    }
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(QJsonDocument(entries).toJson()) < 0
        || !file.commit()) {
        return QStringLiteral("Cannot write preferences file \"%1\": %2")
            .arg(path, file.errorString());
    }
    return {};
}

} // namespace host
