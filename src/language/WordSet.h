#pragma once

#include <QStringList>
#include <QStringView>
#include <QVector>

/// A fixed set of words that answers for a part of a text without a copy of it. Highlighters ask
/// for every word of every line.
class WordSet
{
public:
    WordSet() = default;
    /// Empty entries are left out.
    explicit WordSet(const QStringList& words);

    bool IsEmpty() const { return m_hashes.isEmpty(); }
    bool Contains(QStringView word) const;

private:
    int SlotOf(QStringView word) const;

    // Open addressing, at most half full, the size a power of two. Most words that are asked for
    // are none, which the hashes alone tell.
    QVector<uint> m_hashes;
    QVector<QString> m_words;
};
