// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

namespace vtx {

/// Keeps a spike of one poll off the screen: tells the median of the last values.
class CPUTemperatureSmoother {
public:
    static constexpr std::size_t windowSize = 3;

    /// Takes a value and returns the smoothed one: the middle of the window's values, the lower of
    /// two, and the first value as it came.
    double push(double value);

    void clear() { samples_.clear(); }

private:
    std::vector<double> samples_;  // oldest first
};

}  // namespace vtx
