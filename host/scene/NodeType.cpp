#include "scene/NodeType.h"

#include <QMap>
#include <QRegularExpression>

#include <algorithm>

namespace host::scene {

namespace {

using Types = QMap<QString, std::shared_ptr<NodeType>>;

void ReadLetters(const QString& letters, Attribute& attribute)
{
    for (const QChar letter : letters) {
        switch (letter.unicode()) {
        case u'k': attribute.isKeyable = true; break;
        case u'h': attribute.isHidden = true; break;
        case u'm': attribute.isMulti = true; break;
        case u'b': attribute.isInChannelBox = true; break;
        case u'c': attribute.isColor = true; break;
        case u'o':
            attribute.isWritable = false;
            attribute.isStorable = false;
            break;
        default: Q_ASSERT_X(false, "ReadLetters", qPrintable(attribute.longName));
        }
    }
}

void SetType(const QString& text, Attribute& attribute)
{
    attribute.type = AttributeType::Find(text.section(QLatin1Char(':'), 0, 0));
    Q_ASSERT_X(attribute.type, "SetType", qPrintable(attribute.longName));
    attribute.defaultValue = Attribute::InitialValue(*attribute.type);
}

void SetDefault(double number, Attribute& attribute)
{
    switch (attribute.type->storage) {
    case Storage::Bool: attribute.defaultValue = number != 0; break;
    case Storage::Int: attribute.defaultValue = static_cast<int>(number); break;
    case Storage::Float: attribute.defaultValue = number; break;
    default: break;
    }
}

void ReadWord(const QString& word, Attribute& attribute, double& initial)
{
    static const QRegularExpression range(QStringLiteral("^(.+)\\.\\.(.*)$"));
    const auto match = range.match(word);
    if (word.startsWith(QLatin1Char('='))) {
        initial = word.midRef(1).toDouble();
    } else if (word.startsWith(QLatin1Char('{'))) {
        attribute.enumNames = word.mid(1, word.size() - 2);
        attribute.enumNames.replace(QLatin1Char('_'), QLatin1Char(' '));
    } else if (match.hasMatch()) {
        attribute.minimum = match.captured(1).toDouble();
        if (match.capturedLength(2) > 0)
            attribute.maximum = match.captured(2).toDouble();
    } else {
        ReadLetters(word, attribute);
    }
}

std::shared_ptr<Attribute> ReadAttribute(const QString& text)
{
    const QStringList words = text.simplified().split(QLatin1Char(' '));
    auto attribute = std::make_shared<Attribute>();
    attribute->longName = words[0].section(QLatin1Char('/'), 0, 0);
    attribute->shortName = words[0].section(QLatin1Char('/'), -1);
    SetType(words.value(1), *attribute);
    double initial = 0;
    for (const QString& word : words.mid(2))
        ReadWord(word, *attribute, initial);
    SetDefault(initial, *attribute);
    if (attribute->type->childCount == 0)
        return attribute;
    const QString endings = attribute->isColor ? QStringLiteral("RGB") : QStringLiteral("XYZW");
    AddNumberChildren(*attribute, endings.split(QString(), Qt::SkipEmptyParts));
    const QString childType = words[1].section(QLatin1Char(':'), 1);
    for (const auto& child : qAsConst(attribute->children)) {
        if (!childType.isEmpty())
            SetType(childType, *child);
        SetDefault(initial, *child);
    }
    return attribute;
}

} // namespace

/// Makes the kinds of the table.
class NodeTypeReader
{
public:
    static Types Read()
    {
        Types types;
        for (const NodeTypeRow& row : NodeTypeRows())
            Add(row, types);
        return types;
    }

private:
    static void Add(const NodeTypeRow& row, Types& types)
    {
        auto type = std::make_shared<NodeType>();
        type->m_name = QString::fromLatin1(row.name);
        type->m_isAbstract = type->m_name.startsWith(QLatin1Char('*'));
        if (type->m_isAbstract)
            type->m_name.remove(0, 1);
        if (row.parent) {
            const auto parent = types.value(QLatin1String(row.parent));
            Q_ASSERT_X(parent, "NodeTypeReader", row.name);
            type->m_parent = parent.get();
            type->m_lineage = parent->m_lineage;
            type->m_attributes = parent->m_attributes;
        }
        type->m_lineage += type->m_name;
        type->m_isDag = type->Is("dagNode");
        type->m_isShape = type->Is("shape");
        for (const QString& text :
            QString::fromLatin1(row.attributes).split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
            if (!text.trimmed().isEmpty())
                type->m_attributes.Add(ReadAttribute(text));
        }
        types.insert(type->m_name, type);
    }
};

namespace {

const Types& AllTypes()
{
    static const Types types = NodeTypeReader::Read();
    return types;
}

} // namespace

const NodeType* NodeType::Find(const QString& name)
{
    return AllTypes().value(name).get();
}

QStringList NodeType::CreatableNames()
{
    QStringList names;
    for (const auto& type : AllTypes()) {
        if (!type->m_isAbstract)
            names += type->m_name;
    }
    return names;
}

QStringList NodeType::DerivedNames() const
{
    QStringList names;
    for (const auto& type : AllTypes()) {
        if (type->m_parent == this)
            names += type->m_name;
    }
    return names;
}

} // namespace host::scene
