#pragma once

#include <QStringList>

/// What was searched for in this session, shared by all find bars, and one bar's way through it.
/// The text that was being typed is the newest step of that way. Interface thread only.
class SearchHistory
{
public:
    static constexpr int MAXIMUM_SIZE = 50;

    /// Becomes the newest text; empty texts are not remembered. The way begins anew there.
    void Add(const QString& text);
    /// The step before or after `current`, which is remembered when it is a text of its own; at
    /// either end `current` itself.
    QString GetOlder(const QString& current);
    QString GetNewer(const QString& current);
    /// Forgets everything, for every bar.
    static void Clear() { m_texts.clear(); }

private:
    QString Step(const QString& current, int step);

    inline static QStringList m_texts; ///< oldest first
    int m_place = -1; ///< in the texts; -1: at what was being typed
    QString m_draft;
};
