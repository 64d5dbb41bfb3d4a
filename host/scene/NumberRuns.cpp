#include "scene/NumberRuns.h"

#include <iterator>

namespace host::scene {

void NumberRuns::Add(int number)
{
    auto next = m_runs.upper_bound(number);
    int first = number;
    int last = number;
    if (next != m_runs.begin()) {
        const auto previous = std::prev(next);
        if (previous->second >= number)
            return;
        if (previous->second == number - 1) {
            first = previous->first;
            m_runs.erase(previous);
        }
    }
    if (next != m_runs.end() && next->first == number + 1) {
        last = next->second;
        m_runs.erase(next);
    }
    m_runs.emplace(first, last);
}

void NumberRuns::Remove(int number)
{
    const auto next = m_runs.upper_bound(number);
    if (next == m_runs.begin())
        return;
    const auto run = std::prev(next);
    const auto [first, last] = *run;
    if (last < number)
        return;
    m_runs.erase(run);
    if (first < number)
        m_runs.emplace(first, number - 1);
    if (number < last)
        m_runs.emplace(number + 1, last);
}

int NumberRuns::FirstFree(int number) const
{
    const auto next = m_runs.upper_bound(number);
    if (next == m_runs.begin())
        return number;
    const auto run = std::prev(next);
    return run->second < number ? number : run->second + 1;
}

} // namespace host::scene
