// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <string_view>

namespace vtx {

/// Counts the calls of each operation of the simulated platform, those that failed included, so
/// that a test can say what a pass asks of the machine. Any thread.
class CallCounter {
public:
    using Counts = std::map<std::string, std::size_t, std::less<>>;

    void count(std::string_view operation);

    [[nodiscard]] std::size_t calls(std::string_view operation) const;
    [[nodiscard]] std::size_t totalCalls() const;
    /// Operations that were called, by name.
    [[nodiscard]] Counts all() const;
    void resetCalls();

private:
    mutable std::mutex mutex_;
    Counts counts_;
};

}  // namespace vtx
