#pragma once

#include "scene/Node.h"
#include "scene/NumberRuns.h"

namespace host::scene {

/// Who bears which name. Names are unique among the children of one parent; a node outside of the
/// hierarchy shares its name with nobody. Every look-up takes the same time however many nodes
/// there are. Owned by the scene.
class NameIndex
{
public:
    void Add(Node& node);
    void Remove(Node& node);

    /// All that bear the name, first come first.
    QVector<Node*> Find(const QString& name) const;
    bool IsUnique(const QString& name) const { return m_byName.value(name).size() == 1; }
    /// Null when there is none.
    Node* FindChild(const Node* parent, const QString& name) const
    {
        return m_byParent.value({parent, name});
    }
    QStringList Names() const { return m_byName.keys(); }

    /// True when a node of that name may not be put there. `parent` is null for a node outside of
    /// the hierarchy; `except` does not count.
    bool IsTaken(const QString& name, const Node* parent, const Node* except = nullptr) const;
    /// The name itself or, when it is taken, the next one by counting its number up.
    QString UniqueName(
        const QString& wanted, const Node* parent, const Node* except = nullptr) const;
    /// A name that nobody in the whole scene bears, by counting up from `wanted`.
    QString UnusedName(const QString& wanted) const;

    /// What a node may be called: what does not belong into a name becomes "_". Empty when nothing
    /// is left.
    static QString LegalName(const QString& text);

private:
    QHash<QString, QMap<quint64, Node*>> m_byName; ///< by serial number
    QHash<QPair<const Node*, QString>, Node*> m_byParent;
    QHash<QString, NumberRuns> m_numbers; ///< by what stands before the number
};

} // namespace host::scene
