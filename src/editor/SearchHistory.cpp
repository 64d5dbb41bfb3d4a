#include "editor/SearchHistory.h"

void SearchHistory::Add(const QString& text)
{
    m_place = -1;
    if (text.isEmpty())
        return;
    m_texts.removeAll(text);
    m_texts.append(text);
    while (m_texts.size() > MAXIMUM_SIZE)
        m_texts.removeFirst();
}

QString SearchHistory::GetOlder(const QString& current)
{
    return Step(current, -1);
}

QString SearchHistory::GetNewer(const QString& current)
{
    return Step(current, 1);
}

QString SearchHistory::Step(const QString& current, int step)
{
    // Another bar may have added texts, or the text was changed where the way stood.
    if (m_place < 0 || m_place >= m_texts.size() || m_texts.at(m_place) != current) {
        m_draft = current;
        m_place
            = m_texts.isEmpty() || m_texts.last() != current ? m_texts.size() : m_texts.size() - 1;
    }
    const int next = m_place + step;
    if (next < 0 || next > m_texts.size())
        return current;
    m_place = next;
    return next == m_texts.size() ? m_draft : m_texts.at(next);
}
