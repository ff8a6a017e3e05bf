// SPDX-License-Identifier: MIT
#include "platform/linux/IntelLoad.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>
#include <utility>

#include "platform/linux/Parse.h"

namespace vtx {
namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr std::size_t shortFile = 64;
constexpr auto firstSpan = std::chrono::milliseconds(100);
/// Over less, milliseconds say too little: whoever asks again so soon is told the same.
constexpr auto shortestSpan = std::chrono::milliseconds(50);
/// More idle time than that beyond the span itself is no jitter.
constexpr double jitterMs = 1000.0;

GraphicsLoad::Percent readIdle(KeptFile& file) {
    const auto text = file.read(shortFile);
    return text && text->size() < shortFile ? parseUnsigned(*text) : std::nullopt;
}

/// The files "<folder>/<part>*/<file>" of parts that idle.
std::vector<std::string> countersIn(const LinuxRoot& root, const std::string& folder,
                                    std::string_view part, const std::string& file) {
    std::vector<std::string> found;
    for (const auto& name : root.list(folder)) {
        const auto at = fmt::format("{}/{}", folder, name);
        if (!name.starts_with(part) || !root.exists(at + file)) continue;
        if (root.readText(at + "/rc6_enable") != "0") found.push_back(at + file);
    }
    return found;
}

}  // namespace

GraphicsLoad::Percent busyBetween(std::uint64_t before, std::uint64_t now, Duration span) {
    constexpr auto limit32 = std::uint64_t{std::numeric_limits<std::uint32_t>::max()};
    std::uint64_t idle = now - before;
    if (now < before && before <= limit32) idle &= limit32;
    const double spanMs = Milliseconds(span).count();
    const auto idleMs = static_cast<double>(idle);
    if (spanMs <= 0.0 || idleMs > 2.0 * spanMs + jitterMs) return std::nullopt;
    const double busy = std::clamp(1.0 - idleMs / spanMs, 0.0, 1.0);
    return static_cast<std::uint64_t>(std::lround(busy * 100.0));
}

IntelLoad::IntelLoad(const Clock& clock, Pause pause, const std::vector<std::string>& files)
    : clock_(clock), pause_(std::move(pause)) {
    for (const auto& file : files) counters_.push_back({KeptFile(file), std::nullopt});
}

GraphicsLoad::Percent IntelLoad::first() {
    letGo();
    (void)next();
    pause_(firstSpan);
    return next();
}

GraphicsLoad::Percent IntelLoad::next() {
    const Instant now = clock_.continuous();
    if (lastTime_ && now - *lastTime_ < shortestSpan) return last_;
    const auto since = std::exchange(lastTime_, now);
    last_.reset();
    for (auto& [file, idleMs] : counters_) {
        const auto before = std::exchange(idleMs, readIdle(file));
        if (!since || !before || !idleMs) continue;
        const auto busy = busyBetween(*before, *idleMs, now - *since);
        if (busy && (!last_ || *busy > *last_)) last_ = busy;
    }
    return last_;
}

std::vector<std::string> IntelLoad::countersOf(const LinuxRoot& root, const std::string& card,
                                               const std::string& device) {
    auto counters = countersIn(root, card + "/gt", "gt", "/rc6_residency_ms");
    if (counters.empty()) counters = countersIn(root, card, "power", "/rc6_residency_ms");
    if (!counters.empty()) return counters;
    for (const auto& name : root.list(device)) {
        if (!name.starts_with("tile")) continue;
        const auto more = countersIn(root, device + "/" + name, "gt", "/gtidle/idle_residency_ms");
        counters.insert(counters.end(), more.begin(), more.end());
    }
    return counters;
}

}  // namespace vtx
