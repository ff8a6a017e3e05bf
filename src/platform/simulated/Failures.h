// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

namespace vtx {

/// Makes single operations of the simulated platform fail, by name (see Operations.h). What the
/// result means is the operation's: an errno value, a kernel result, or nothing. Any thread.
class Failures {
public:
    /// An I/O error as errno value and the general failure as kernel result.
    static constexpr int usualResult = 5;

    /// The next `times` calls fail.
    void failNext(std::string_view operation, std::size_t times = 1, int result = usualResult);
    /// After `healthy` more calls that succeed, `times` calls fail.
    void failAfter(std::string_view operation, std::size_t healthy, std::size_t times = 1,
                   int result = usualResult);
    /// Every call fails until `heal`.
    void failAlways(std::string_view operation, int result = usualResult);
    void heal(std::string_view operation);
    void healAll();

    /// Asked by the ports once a call: the result with which this one fails, or absent.
    [[nodiscard]] std::optional<int> take(std::string_view operation);

    /// Whether a failure that was asked for a number of times has not come about as often yet: a
    /// test that leaves one has not tested it.
    [[nodiscard]] bool hasUnused() const;

private:
    struct Plan {
        std::size_t healthy = 0;
        std::optional<std::size_t> times;  // absent: always
        int result = usualResult;
    };

    void plan(std::string_view operation, Plan how);

    mutable std::mutex mutex_;
    std::map<std::string, Plan, std::less<>> plans_;
};

}  // namespace vtx
