// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>

namespace vtx::e2e {

using Span = std::chrono::milliseconds;
using SteadyTime = std::chrono::steady_clock::time_point;

/// How long something that is sure to happen may take on a machine that is busy with other things.
inline constexpr Span patience{10'000};

/// Asks until the condition holds. False if it does not within the time; never returns late for one
/// that holds at once.
[[nodiscard]] bool eventually(const std::function<bool()>& condition, Span within = patience);

/// Asks `look` again and again for this long: for what is told by a course of time.
void watchFor(Span span, const std::function<void()>& look);

}  // namespace vtx::e2e
