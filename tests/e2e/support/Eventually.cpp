// SPDX-License-Identifier: MIT
#include "support/Eventually.h"

#include <poll.h>

namespace vtx::e2e {
namespace {

constexpr Span betweenLooks{20};

void letOthersRun() { ::poll(nullptr, 0, static_cast<int>(betweenLooks.count())); }

}  // namespace

bool eventually(const std::function<bool()>& condition, Span within) {
    const SteadyTime deadline = std::chrono::steady_clock::now() + within;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= deadline) return false;
        letOthersRun();
    }
    return true;
}

void watchFor(Span span, const std::function<void()>& look) {
    const SteadyTime end = std::chrono::steady_clock::now() + span;
    for (look(); std::chrono::steady_clock::now() < end; look()) letOthersRun();
}

}  // namespace vtx::e2e
