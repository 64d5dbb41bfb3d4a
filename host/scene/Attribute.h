#pragma once

#include "engine/Value.h"

#include <QHash>

#include <memory>
#include <optional>

namespace host::scene {

/// How the value of an attribute is kept.
enum class Storage {
    None, ///< messages, and data that only flows through connections
    Bool,
    Int,
    Float,
    String,
    Matrix,
    IntArray,
    FloatArray,
    StringArray,
    VectorArray,
    Children, ///< the values are those of its children
};

/// A kind of attribute, under the word that scripts have for it.
struct AttributeType
{
    const char* name;
    Storage storage;
    const char* child; ///< type of the children of a triple or pair; null for others
    int childCount;
    bool isData; ///< made by -dataType rather than -attributeType

    /// Null when there is no such type.
    static const AttributeType* Find(const QString& name);
    bool IsNamed(const char* word) const { return qstrcmp(name, word) == 0; }
    bool IsNumeric() const
    {
        return storage == Storage::Bool || storage == Storage::Int || storage == Storage::Float;
    }
};

/// One attribute of a kind of node, or one that a script added to a node. Nodes share the former;
/// whoever changes the latter makes a copy.
struct Attribute
{
    QString longName;
    QString shortName;
    QString niceName; ///< empty: made of the long name
    const AttributeType* type = nullptr;
    const Attribute* parent = nullptr;
    QVector<std::shared_ptr<Attribute>> children;
    Value defaultValue;
    std::optional<double> minimum;
    std::optional<double> maximum;
    std::optional<double> softMinimum;
    std::optional<double> softMaximum;
    QString enumNames; ///< "green:blue=5"
    QString category;
    bool isMulti = false;
    bool isKeyable = false;
    bool isHidden = false;
    bool isInChannelBox = false;
    bool isReadable = true;
    bool isWritable = true;
    bool isStorable = true;
    bool isColor = false;
    bool isDynamic = false;
    int declaredChildren = 0; ///< of a compound that a script makes piece by piece

    QString NiceName() const;
    /// "" for a number that has no name.
    QString EnumName(int number) const;
    std::optional<int> EnumNumber(const QString& name) const;
    /// The nearest attribute around it, or it itself, that has elements; null when there is none.
    const Attribute* MultiAncestor() const;
    /// The value that an attribute of that type has before anybody sets it.
    static Value InitialValue(const AttributeType& type);
};

/// Attributes in the order in which they were added, found by either of their names. Children of
/// compounds are found, too.
class AttributeList
{
public:
    void Add(const std::shared_ptr<Attribute>& attribute);
    void Remove(const QString& longName);
    /// Puts it in the place of the one with its long name.
    void Replace(const std::shared_ptr<Attribute>& attribute);
    /// Null when there is none.
    const Attribute* Find(const QString& name) const { return m_index.value(name); }
    const QVector<std::shared_ptr<Attribute>>& TopLevel() const { return m_attributes; }
    bool IsEmpty() const { return m_attributes.isEmpty(); }

private:
    void Index(const Attribute& attribute);
    void Reindex();

    QVector<std::shared_ptr<Attribute>> m_attributes;
    QHash<QString, const Attribute*> m_index;
};

/// The number of children that a triple or pair needs, with the usual endings X, Y, Z or R, G, B.
void AddNumberChildren(Attribute& attribute, const QStringList& longEndings);

} // namespace host::scene
