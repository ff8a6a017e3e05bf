// SPDX-License-Identifier: MIT
#include "platform/linux/ReadPace.h"

#include <algorithm>

namespace vtx {

bool ReadPace::isFast(Instant now) const {
    const std::lock_guard lock(mutex_);
    return fastFrom_ && now >= *fastFrom_;
}

void ReadPace::note(Reader reader, Duration took, Instant now) {
    const std::lock_guard lock(mutex_);
    isUnanswered_ = false;
    if (took <= longRead) {
        if (!fastFrom_) fastFrom_ = now;
        return;
    }
    fastFrom_ = now + penalty_;
    if (reader == Reader::caller) penalty_ = std::min(2 * penalty_, longestPenalty);
}

void ReadPace::noteUnanswered() {
    const std::lock_guard lock(mutex_);
    isUnanswered_ = true;
}

bool ReadPace::isWorthWaiting() const {
    const std::lock_guard lock(mutex_);
    return !isUnanswered_;
}

void ReadPace::noteWaited(Duration took) {
    const std::lock_guard lock(mutex_);
    waited_ += took;
}

Duration ReadPace::waited() const {
    const std::lock_guard lock(mutex_);
    return waited_;
}

}  // namespace vtx
