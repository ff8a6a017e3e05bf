// SPDX-License-Identifier: MIT
#include "UnevenLoad.h"

#include <array>
#include <chrono>

namespace vtx::bench {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

/// Of each second; neighbours differ by more than what else a quiet machine does.
constexpr std::array busyParts{40ms, 160ms, 80ms, 240ms, 120ms, 200ms};
constexpr auto step = 10ms;

void spinUntil(Clock::time_point end) {
    while (Clock::now() < end) {
    }
}

}  // namespace

void UnevenLoad::run(const std::stop_token& stop) {
    auto second = Clock::now();
    for (std::size_t i = 0; !stop.stop_requested(); ++i) {
        spinUntil(second + busyParts[i % busyParts.size()]);
        second += 1s;
        while (!stop.stop_requested() && Clock::now() < second) std::this_thread::sleep_for(step);
    }
}

}  // namespace vtx::bench
