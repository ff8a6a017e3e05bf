// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "base/Subscription.h"
#include "ui/models/StripModel.h"

namespace vtx {

class MetricsCoordinator;

/// What the strip and the tray are drawn from, as the coordinator has it now.
[[nodiscard]] StripReadings stripReadingsOf(const MetricsCoordinator& coordinator);

/// Calls `follow` now and with every change of it, or of the preferences, as long as the tokens
/// live.
[[nodiscard]] Subscriptions followStripReadings(MetricsCoordinator& coordinator,
                                                const std::function<void()>& follow);

}  // namespace vtx
