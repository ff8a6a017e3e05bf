// SPDX-License-Identifier: MIT
#include "platform/simulated/Failures.h"

#include <algorithm>

namespace vtx {

void Failures::failNext(std::string_view operation, std::size_t times, int result) {
    plan(operation, {0, times, result});
}

void Failures::failAfter(std::string_view operation, std::size_t healthy, std::size_t times,
                         int result) {
    plan(operation, {healthy, times, result});
}

void Failures::failAlways(std::string_view operation, int result) {
    plan(operation, {0, std::nullopt, result});
}

void Failures::heal(std::string_view operation) {
    const std::lock_guard lock(mutex_);
    if (const auto found = plans_.find(operation); found != plans_.end()) plans_.erase(found);
}

void Failures::healAll() {
    const std::lock_guard lock(mutex_);
    plans_.clear();
}

std::optional<int> Failures::take(std::string_view operation) {
    const std::lock_guard lock(mutex_);
    const auto found = plans_.find(operation);
    if (found == plans_.end()) return std::nullopt;
    Plan& plan = found->second;
    if (plan.healthy > 0) {
        --plan.healthy;
        return std::nullopt;
    }
    const int result = plan.result;
    if (plan.times && --*plan.times == 0) plans_.erase(found);
    return result;
}

bool Failures::hasUnused() const {
    const std::lock_guard lock(mutex_);
    return std::ranges::any_of(plans_,
                               [](const auto& entry) { return entry.second.times.has_value(); });
}

void Failures::plan(std::string_view operation, Plan how) {
    const std::lock_guard lock(mutex_);
    if (how.times == 0u) return;
    plans_.insert_or_assign(std::string(operation), how);
}

}  // namespace vtx
