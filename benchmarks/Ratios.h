#pragma once

#include <string>
#include <vector>

/// A figure and what it is held against: both are benchmarks of the same run, doing the same amount of work.
struct Ratio {
    std::string figure;
    std::string ours; ///< benchmark name
    std::string peer; ///< benchmark name
    double target; ///< the least speed of ours, as a multiple of the peer's
};

/// Runs all benchmarks, in random order and several times over, since the machines are noisy; then prints for
/// each ratio the speed of ours against the peer's, by the best processor times. A figure below its target is
/// marked, and makes the exit code 1 when --strict is given.
int runBenchmarks(int argc, char** argv, const std::vector<Ratio>& ratios);
