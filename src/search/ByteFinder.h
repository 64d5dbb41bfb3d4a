#pragma once

#include <QByteArray>
#include <QVector>

/// Finds a text in bytes at about the speed at which memory can be read. A value; any thread.
class ByteFinder
{
public:
    enum class Case { Exact, Ignored };

    /// `text` is not empty. Ignoring case concerns ASCII letters alone.
    ByteFinder(const QByteArray& text, Case letterCase);

    /// The first place at or behind `from` where the text stands before `end`, or null.
    const char* Find(const char* from, const char* end) const;
    int GetLength() const { return m_text.size(); }
    /// How much a file is likely to be rejected by it; only for comparing.
    int GetRarity() const { return m_rarity; }

private:
    bool StandsAt(const char* place) const;

    QByteArray m_text; ///< in lower case where case is ignored
    QByteArray m_masks; ///< what makes letters lower, by place
    int m_first = 0; ///< the two rarest characters, which are looked for
    int m_second = 0;
    int m_rarity = 0;
};
