// SPDX-License-Identifier: MIT
#include "platform/simulated/OutstandingHandles.h"

#include <fmt/format.h>

#include <utility>

#include "base/Fault.h"

namespace vtx {

void OutstandingHandles::add(std::string_view kind) {
    const std::lock_guard lock(mutex_);
    ++counts_.try_emplace(std::string(kind)).first->second;
}

void OutstandingHandles::remove(std::string_view kind) {
    const std::lock_guard lock(mutex_);
    const auto found = counts_.find(kind);
    if (found == counts_.end()) programmingFault(fmt::format("released twice: {}", kind));
    if (--found->second == 0) counts_.erase(found);
}

Subscription OutstandingHandles::hold(std::string_view kind, Subscription inner) {
    add(kind);
    return Subscription([this, name = std::string(kind), held = std::move(inner)]() mutable {
        held.cancel();
        remove(name);
    });
}

std::size_t OutstandingHandles::outstanding() const {
    const std::lock_guard lock(mutex_);
    std::size_t total = 0;
    for (const auto& [kind, count] : counts_) total += count;
    return total;
}

std::size_t OutstandingHandles::outstanding(std::string_view kind) const {
    const std::lock_guard lock(mutex_);
    const auto found = counts_.find(kind);
    return found == counts_.end() ? 0 : found->second;
}

OutstandingHandles::Counts OutstandingHandles::all() const {
    const std::lock_guard lock(mutex_);
    return counts_;
}

}  // namespace vtx
