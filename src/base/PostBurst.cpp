// SPDX-License-Identifier: MIT
#include "base/PostBurst.h"

#include <algorithm>

namespace vtx {
namespace {

constinit thread_local PostBurst* current = nullptr;

}  // namespace

PostBurst::PostBurst() : outer_(current) { current = this; }

PostBurst::~PostBurst() {
    current = outer_;
    for (auto* const waited : waited_) wake(*waited);
}

void PostBurst::wake(std::condition_variable& waited) {
    if (!current) return waited.notify_one();
    auto& all = current->waited_;
    if (std::ranges::find(all, &waited) == all.end()) all.push_back(&waited);
}

}  // namespace vtx
