// SPDX-License-Identifier: MIT
#include "platform/linux/NvidiaLoad.h"

namespace vtx {
namespace {

/// A driver that refused is not pressed: a session that cannot begin costs more than one that does.
constexpr int callsAfterRefusal = 60;

}  // namespace

GraphicsLoad::Percent NvidiaLoad::next() {
    if (callsToSkip_ > 0) {
        --callsToSkip_;
        return std::nullopt;
    }
    const auto percent = library_->utilization(address_);
    if (percent && *percent <= 100) return *percent;
    callsToSkip_ = callsAfterRefusal;
    // After an update of the driver, or a device that was lost, only a new session works.
    library_->close();
    return std::nullopt;
}

}  // namespace vtx
