#include "settings/KeyOwners.h"

int KeyOwners::OwnerOf(const QKeySequence& sequence) const
{
    for (auto it = m_owners.begin(); it != m_owners.end(); ++it) {
        if (sequence.matches(it.key()) != QKeySequence::NoMatch
            || it.key().matches(sequence) != QKeySequence::NoMatch)
            return it.value();
    }
    return NOBODY;
}

bool KeyOwners::IsTakenFrom(int id, const QKeySequence& sequence) const
{
    const int owner = OwnerOf(sequence);
    return owner != NOBODY && owner != id;
}

void KeyOwners::Take(const QKeySequence& sequence, int id)
{
    m_owners.insert(sequence, id);
}
