#pragma once

#include <QHash>
#include <QKeySequence>
#include <QList>

struct KeyBinding;

/// Which command has which keys. Of several that want one key the first to take it has it, and
/// Escape is never anybody's. A value.
class KeyOwners
{
public:
    /// All keys but Escape are free.
    KeyOwners();
    /// As the keys are once every command has taken its own, in the order of the list.
    explicit KeyOwners(const QList<KeyBinding>& bindings);

    /// The id of who has the sequence, or the beginning of it, or one that it begins: of two such
    /// the longer could never be pressed. 0 when nobody has it.
    int OwnerOf(const QKeySequence& sequence) const;
    /// Whether somebody else than `id` has it.
    bool IsTakenFrom(int id, const QKeySequence& sequence) const;
    void Take(const QKeySequence& sequence, int id);

private:
    QHash<QKeySequence, int> m_owners;
};
