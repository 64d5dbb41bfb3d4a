#include "language/WordSet.h"

#include <QHash>

namespace {

constexpr uint NO_WORD = 0;

uint HashOf(QStringView word)
{
    return qMax(1U, qHash(word));
}

} // namespace

WordSet::WordSet(const QStringList& words)
{
    if (words.join(QString()).isEmpty())
        return;
    int size = 16;
    while (size < words.size() * 2)
        size *= 2;
    m_hashes.resize(size);
    m_words.resize(size);
    for (const QString& word : words) {
        if (word.isEmpty())
            continue;
        const int slot = SlotOf(word);
        m_hashes[slot] = HashOf(word);
        m_words[slot] = word;
    }
}

bool WordSet::Contains(QStringView word) const
{
    return !IsEmpty() && !word.isEmpty() && m_hashes.at(SlotOf(word)) != NO_WORD;
}

/// Where the word is, or else where it would go.
int WordSet::SlotOf(QStringView word) const
{
    const int mask = m_hashes.size() - 1;
    const uint hash = HashOf(word);
    int slot = int(hash) & mask;
    while (m_hashes.at(slot) != NO_WORD && (m_hashes.at(slot) != hash || word != m_words.at(slot)))
        slot = (slot + 1) & mask;
    return slot;
}
