#pragma once

/// Runs the registered benchmarks in turn and prints, beside the library's own table, the ratio of
/// every benchmark "name" to its floor "name/floor" measured in the same run, with its goal.
/// Nothing is asserted: the figures are for a person to read.
int RunBenchmarks(int argc, char** argv);

/// The most that `name` may take relative to its floor.
void RatioGoal(const char* name, double ratio);
/// The most that `name` may take by itself, in milliseconds.
void TimeGoal(const char* name, double milliseconds);
