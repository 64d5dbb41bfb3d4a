#pragma once

#include <map>

namespace host::scene {

/// A set of numbers that knows the first free one at once, however many are taken in a row.
class NumberRuns
{
public:
    void Add(int number);
    void Remove(int number);
    /// The first number from `number` on that is not in the set.
    int FirstFree(int number) const;

private:
    /// First and last number of every run; runs neither touch nor overlap.
    std::map<int, int> m_runs;
};

} // namespace host::scene
