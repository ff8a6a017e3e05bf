// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedUnifiedLog.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdio>

namespace vtx {
namespace {

constexpr std::array<std::string_view, 4> levelNames{"debug", "info", "default", "error"};

}  // namespace

void SimulatedUnifiedLog::write(LogLevel level, std::string_view subsystem,
                                std::string_view category, std::string_view message) noexcept {
    const std::lock_guard lock(mutex_);
    lines_.push_back({level, std::string(subsystem), std::string(category), std::string(message)});
    if (lines_.size() > capacity) lines_.pop_front();
    if (!echo_) return;
    const auto& name = levelNames[static_cast<std::size_t>(level)];
    const std::string line = fmt::format("{} [{}:{}] {}\n", name, subsystem, category, message);
    std::fputs(line.c_str(), stderr);
}

bool SimulatedUnifiedLog::isEnabled(LogLevel level) const noexcept {
    const std::lock_guard lock(mutex_);
    return level >= lowest_;
}

void SimulatedUnifiedLog::setLowestLevel(LogLevel level) {
    const std::lock_guard lock(mutex_);
    lowest_ = level;
}

void SimulatedUnifiedLog::setEcho(bool echo) {
    const std::lock_guard lock(mutex_);
    echo_ = echo;
}

std::vector<SimulatedUnifiedLog::Line> SimulatedUnifiedLog::lines(
    std::optional<std::string_view> category) const {
    const std::lock_guard lock(mutex_);
    std::vector<Line> found;
    std::ranges::copy_if(lines_, std::back_inserter(found), [category](const Line& line) {
        return !category || line.category == *category;
    });
    return found;
}

std::size_t SimulatedUnifiedLog::count(LogLevel level, std::string_view category,
                                       std::string_view message) const {
    const std::lock_guard lock(mutex_);
    return static_cast<std::size_t>(std::ranges::count_if(lines_, [&](const Line& line) {
        return line.level == level && line.category == category && line.message == message;
    }));
}

bool SimulatedUnifiedLog::contains(LogLevel level, std::string_view category,
                                   std::string_view message) const {
    return count(level, category, message) > 0;
}

bool SimulatedUnifiedLog::contains(std::string_view part) const {
    const std::lock_guard lock(mutex_);
    return std::ranges::any_of(
        lines_, [part](const Line& line) { return line.message.find(part) != std::string::npos; });
}

void SimulatedUnifiedLog::clear() {
    const std::lock_guard lock(mutex_);
    lines_.clear();
}

}  // namespace vtx
