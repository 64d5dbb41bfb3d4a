#pragma once

#include <QHash>
#include <QKeySequence>

/// Which command, by its id, has which keys. Of several that want one key the first to take it has
/// it. A value.
class KeyOwners
{
public:
    static constexpr int NOBODY = 0;

    /// The id of who has the sequence, or the beginning of it, or one that it begins: of two such
    /// the longer could never be pressed. NOBODY when it is free.
    int OwnerOf(const QKeySequence& sequence) const;
    /// Whether somebody else than `id` has it.
    bool IsTakenFrom(int id, const QKeySequence& sequence) const;
    void Take(const QKeySequence& sequence, int id);

private:
    QHash<QKeySequence, int> m_owners;
};
