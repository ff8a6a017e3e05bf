// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <vector>

namespace vtx::bench {

/// Durations of the same work, one for each time it was done.
class Statistics {
public:
    using Microseconds = std::chrono::duration<double, std::micro>;

    void add(std::chrono::nanoseconds one) { all_.push_back(one); }

    /// The value that the given part, 0 to 1, of all do not exceed. At least one must be there.
    [[nodiscard]] Microseconds quantile(double part) const;
    [[nodiscard]] Microseconds median() const { return quantile(0.5); }
    [[nodiscard]] Microseconds p95() const { return quantile(0.95); }
    /// What it took when nothing else on the machine was in its way.
    [[nodiscard]] Microseconds least() const { return quantile(0.0); }

private:
    std::vector<std::chrono::nanoseconds> all_;
};

}  // namespace vtx::bench
