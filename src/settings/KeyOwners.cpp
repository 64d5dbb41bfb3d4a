#include "settings/KeyOwners.h"

#include "settings/KeyBindings.h"

KeyOwners::KeyOwners()
{
    // Widgets close with this key whatever is bound: it is nobody's from the start.
    Take(QKeySequence(Qt::Key_Escape), KeyBindings::Escape);
}

KeyOwners::KeyOwners(const QList<KeyBinding>& bindings)
    : KeyOwners()
{
    for (const KeyBinding& binding : bindings) {
        const QList<QKeySequence>& sequences = binding.GetSequencesInForce();
        for (auto it = sequences.rbegin(); it != sequences.rend(); ++it) {
            if (!it->isEmpty() && !IsTakenFrom(binding.id, *it))
                Take(*it, binding.id);
        }
    }
}

int KeyOwners::OwnerOf(const QKeySequence& sequence) const
{
    for (auto it = m_owners.begin(); it != m_owners.end(); ++it) {
        if (sequence.matches(it.key()) != QKeySequence::NoMatch
            || it.key().matches(sequence) != QKeySequence::NoMatch)
            return it.value();
    }
    return KeyBindings::None;
}

bool KeyOwners::IsTakenFrom(int id, const QKeySequence& sequence) const
{
    const int owner = OwnerOf(sequence);
    return owner != KeyBindings::None && owner != id;
}

void KeyOwners::Take(const QKeySequence& sequence, int id)
{
    m_owners.insert(sequence, id);
}
