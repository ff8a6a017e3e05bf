// SPDX-License-Identifier: MIT
#include "platform/simulated/CallCounter.h"

namespace vtx {

void CallCounter::count(std::string_view operation) {
    const std::lock_guard lock(mutex_);
    const auto found = counts_.find(operation);
    if (found != counts_.end())
        ++found->second;
    else
        counts_.emplace(operation, 1);
}

std::size_t CallCounter::calls(std::string_view operation) const {
    const std::lock_guard lock(mutex_);
    const auto found = counts_.find(operation);
    return found == counts_.end() ? 0 : found->second;
}

std::size_t CallCounter::totalCalls() const {
    const std::lock_guard lock(mutex_);
    std::size_t total = 0;
    for (const auto& [operation, calls] : counts_) total += calls;
    return total;
}

CallCounter::Counts CallCounter::all() const {
    const std::lock_guard lock(mutex_);
    return counts_;
}

void CallCounter::resetCalls() {
    const std::lock_guard lock(mutex_);
    counts_.clear();
}

}  // namespace vtx
