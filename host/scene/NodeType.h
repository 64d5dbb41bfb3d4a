#pragma once

#include "scene/Attribute.h"

#include <QStringList>

namespace host::scene {

/// A kind of node: its place among the others and the attributes that all its nodes have. The kinds
/// are made on first use and live as long as the process.
class NodeType
{
public:
    /// Null when there is no such kind.
    static const NodeType* Find(const QString& name);
    /// Sorted names of all kinds, those of which there are no nodes left out.
    static QStringList CreatableNames();

    const QString& GetName() const { return m_name; }
    const NodeType* GetParent() const { return m_parent; }
    /// True when it is `name` or comes from it.
    bool Is(const QString& name) const { return m_lineage.contains(name); }
    bool Is(const char* name) const { return Is(QString::fromLatin1(name)); }
    /// From the most general kind down to this one.
    const QStringList& GetLineage() const { return m_lineage; }
    bool IsAbstract() const { return m_isAbstract; }
    bool IsDag() const { return m_isDag; }
    bool IsShape() const { return m_isShape; }
    bool IsTransform() const { return m_isDag && !m_isShape; }
    /// Its own attributes and those of the kinds it comes from.
    const AttributeList& GetAttributes() const { return m_attributes; }
    /// Kinds that come straight from this one.
    QStringList DerivedNames() const;

private:
    friend class NodeTypeReader;

    QString m_name;
    const NodeType* m_parent = nullptr;
    QStringList m_lineage;
    bool m_isAbstract = false;
    bool m_isDag = false;
    bool m_isShape = false;
    AttributeList m_attributes;
};

/// A row of the table of kinds.
struct NodeTypeRow
{
    const char* name; ///< "*" before it when there are no nodes of just this kind
    const char* parent;
    /// "long/short TYPE [LETTERS] [=DEFAULT] [MINIMUM..MAXIMUM] [{ENUM}]; ..." where LETTERS are
    /// any of k(eyable), h(idden), m(ulti), o(utput, not writable), b (in the channel box),
    /// c(olour), and TYPE may be "double3:doubleAngle" to say what a triple is made of.
    const char* attributes;
};

/// The table, every kind after the one it comes from.
const QVector<NodeTypeRow>& NodeTypeRows();

} // namespace host::scene
