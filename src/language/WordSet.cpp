#include "language/WordSet.h"

#include <QHash>

WordSet::WordSet(const QStringList& words)
{
    if (words.join(QString()).isEmpty())
        return;
    int size = 16;
    while (size < words.size() * 2)
        size *= 2;
    m_slots.resize(size);
    for (const QString& word : words) {
        if (!word.isEmpty())
            m_slots[SlotOf(word)] = word;
    }
}

bool WordSet::Contains(QStringView word) const
{
    return !m_slots.isEmpty() && !word.isEmpty() && !m_slots.at(SlotOf(word)).isEmpty();
}

/// Where the word is, or else where it would go.
int WordSet::SlotOf(QStringView word) const
{
    const int mask = m_slots.size() - 1;
    int slot = int(qHash(word)) & mask;
    while (!m_slots.at(slot).isEmpty() && word != m_slots.at(slot))
        slot = (slot + 1) & mask;
    return slot;
}
