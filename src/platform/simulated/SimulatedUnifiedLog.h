// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <deque>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "platform/UnifiedLog.h"

namespace vtx {

/// Keeps the lines that are logged, for tests to read, and shows them on standard error if asked
/// to, for the program. Any thread.
class SimulatedUnifiedLog final : public UnifiedLog {
public:
    struct Line {
        LogLevel level;
        std::string subsystem;
        std::string category;
        std::string message;
        friend bool operator==(const Line&, const Line&) = default;
    };

    /// Older lines go when there are more.
    static constexpr std::size_t capacity = 10'000;

    void write(LogLevel level, std::string_view subsystem, std::string_view category,
               std::string_view message) noexcept override;
    [[nodiscard]] bool isEnabled(LogLevel level) const noexcept override;

    /// Levels below are off. All are on at first.
    void setLowestLevel(LogLevel level);
    /// Whether lines are shown on standard error too.
    void setEcho(bool echo);

    /// All lines, or those of one category, oldest first.
    [[nodiscard]] std::vector<Line> lines(std::optional<std::string_view> category = {}) const;
    /// How often just this was logged.
    [[nodiscard]] std::size_t count(LogLevel level, std::string_view category,
                                    std::string_view message) const;
    [[nodiscard]] bool contains(LogLevel level, std::string_view category,
                                std::string_view message) const;
    /// Whether any line has this text somewhere in its message.
    [[nodiscard]] bool contains(std::string_view part) const;
    void clear();

private:
    mutable std::mutex mutex_;
    std::deque<Line> lines_;
    LogLevel lowest_ = LogLevel::debug;
    bool echo_ = false;
};

}  // namespace vtx
