#include "scene/Attribute.h"

namespace host::scene {

namespace {

// clang-format off
constexpr AttributeType TYPES[] = {
    {"message",           Storage::None,        nullptr,       0, false},
    {"bool",              Storage::Bool,        nullptr,       0, false},
    {"byte",              Storage::Int,         nullptr,       0, false},
    {"char",              Storage::Int,         nullptr,       0, false},
    {"short",             Storage::Int,         nullptr,       0, false},
    {"long",              Storage::Int,         nullptr,       0, false},
    {"enum",              Storage::Int,         nullptr,       0, false},
    {"float",             Storage::Float,       nullptr,       0, false},
    {"double",            Storage::Float,       nullptr,       0, false},
    {"doubleLinear",      Storage::Float,       nullptr,       0, false},
    {"doubleAngle",       Storage::Float,       nullptr,       0, false},
    {"time",              Storage::Float,       nullptr,       0, false},
    {"double2",           Storage::Children,    "double",      2, false},
    {"double3",           Storage::Children,    "double",      3, false},
    {"double4",           Storage::Children,    "double",      4, false},
    {"float2",            Storage::Children,    "float",       2, false},
    {"float3",            Storage::Children,    "float",       3, false},
    {"short2",            Storage::Children,    "short",       2, false},
    {"short3",            Storage::Children,    "short",       3, false},
    {"long2",             Storage::Children,    "long",        2, false},
    {"long3",             Storage::Children,    "long",        3, false},
    {"spectrum",          Storage::Children,    "float",       3, false},
    {"reflectance",       Storage::Children,    "float",       3, false},
    {"compound",          Storage::Children,    nullptr,       0, false},
    {"matrix",            Storage::Matrix,      nullptr,       0, true},
    {"fltMatrix",         Storage::Matrix,      nullptr,       0, false},
    {"string",            Storage::String,      nullptr,       0, true},
    {"stringArray",       Storage::StringArray, nullptr,       0, true},
    {"doubleArray",       Storage::FloatArray,  nullptr,       0, true},
    {"floatArray",        Storage::FloatArray,  nullptr,       0, true},
    {"Int32Array",        Storage::IntArray,    nullptr,       0, true},
    {"vectorArray",       Storage::VectorArray, nullptr,       0, true},
    {"pointArray",        Storage::VectorArray, nullptr,       0, true},
    {"mesh",              Storage::None,        nullptr,       0, true},
    {"nurbsCurve",        Storage::None,        nullptr,       0, true},
    {"nurbsSurface",      Storage::None,        nullptr,       0, true},
    {"lattice",           Storage::None,        nullptr,       0, true},
    {"componentList",     Storage::None,        nullptr,       0, true},
    {"generic",           Storage::None,        nullptr,       0, false},
};
// clang-format on

} // namespace

const AttributeType* AttributeType::Find(const QString& name)
{
    static const QHash<QString, const AttributeType*> index = [] {
        QHash<QString, const AttributeType*> types;
        for (const AttributeType& type : TYPES)
            types.insert(QLatin1String(type.name), &type);
        types.insert(QStringLiteral("at:matrix"), types.value(QStringLiteral("fltMatrix")));
        types.insert(QStringLiteral("angle"), types.value(QStringLiteral("doubleAngle")));
        return types;
    }();
    return index.value(name);
}

/// "translateX" is shown as "Translate X".
QString Attribute::NiceName() const
{
    if (!niceName.isEmpty())
        return niceName;
    QString text;
    for (const QChar character : longName) {
        if (text.isEmpty()) {
            text += character.toUpper();
            continue;
        }
        if (character == QLatin1Char('_')) {
            text += QLatin1Char(' ');
            continue;
        }
        if (character.isUpper() && !text.at(text.size() - 1).isUpper())
            text += QLatin1Char(' ');
        text += character;
    }
    return text;
}

QString Attribute::EnumName(int number) const
{
    int next = 0;
    for (const QString& entry : enumNames.split(QLatin1Char(':'), Qt::SkipEmptyParts)) {
        const int equals = entry.indexOf(QLatin1Char('='));
        if (equals >= 0)
            next = entry.midRef(equals + 1).toInt();
        if (next++ == number)
            return entry.left(equals);
    }
    return {};
}

std::optional<int> Attribute::EnumNumber(const QString& name) const
{
    int next = 0;
    for (const QString& entry : enumNames.split(QLatin1Char(':'), Qt::SkipEmptyParts)) {
        const int equals = entry.indexOf(QLatin1Char('='));
        if (equals >= 0)
            next = entry.midRef(equals + 1).toInt();
        if (entry.left(equals) == name)
            return next;
        ++next;
    }
    return std::nullopt;
}

const Attribute* Attribute::MultiAncestor() const
{
    const Attribute* attribute = this;
    while (attribute && !attribute->isMulti)
        attribute = attribute->parent;
    return attribute;
}

Value Attribute::InitialValue(const AttributeType& type)
{
    switch (type.storage) {
    case Storage::Bool: return false;
    case Storage::Int: return 0;
    case Storage::Float: return 0.0;
    case Storage::String: return QString();
    case Storage::Matrix: return Matrix{4, 4, {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}};
    case Storage::IntArray: return IntList();
    case Storage::FloatArray: return FloatList();
    case Storage::StringArray: return StringList();
    case Storage::VectorArray: return VectorList();
    case Storage::None:
    case Storage::Children: return {};
    }
    return {};
}

void AttributeList::Add(const std::shared_ptr<Attribute>& attribute)
{
    m_attributes += attribute;
    Index(*attribute);
}

void AttributeList::Remove(const QString& longName)
{
    for (int i = 0; i < m_attributes.size(); ++i) {
        if (m_attributes[i]->longName == longName) {
            m_attributes.remove(i);
            break;
        }
    }
    Reindex();
}

void AttributeList::Replace(const std::shared_ptr<Attribute>& attribute)
{
    for (auto& own : m_attributes) {
        if (own->longName == attribute->longName)
            own = attribute;
    }
    Reindex();
}

void AttributeList::Index(const Attribute& attribute)
{
    // The first one keeps a name: a few short names occur twice among children.
    if (!m_index.contains(attribute.longName))
        m_index.insert(attribute.longName, &attribute);
    if (!m_index.contains(attribute.shortName))
        m_index.insert(attribute.shortName, &attribute);
    for (const auto& child : attribute.children)
        Index(*child);
}

void AttributeList::Reindex()
{
    m_index.clear();
    for (const auto& attribute : qAsConst(m_attributes))
        Index(*attribute);
}

void AddNumberChildren(Attribute& attribute, const QStringList& longEndings)
{
    for (int i = 0; i < attribute.type->childCount; ++i) {
        auto child = std::make_shared<Attribute>(attribute);
        child->children.clear();
        child->longName = attribute.longName + longEndings.value(i);
        child->shortName = attribute.shortName + longEndings.value(i).toLower();
        child->niceName.clear();
        child->type = AttributeType::Find(QLatin1String(attribute.type->child));
        child->parent = &attribute;
        child->isMulti = false;
        child->defaultValue = Attribute::InitialValue(*child->type);
        attribute.children += child;
    }
}

} // namespace host::scene
