// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>

#include "base/Date.h"
#include "platform/IOReportLibrary.h"

namespace vtx {

/// Holds a subscription to the chip's energy counters, which nothing samples yet. Opens the private
/// library itself and shares nothing with the bridge. Owned by `ANEMonitor`, main executor.
class IOReportEnergyReader {
public:
    /// Null, silently, where the library, one of its symbols or the energy counters are missing.
    static std::unique_ptr<IOReportEnergyReader> make(IOReportLibrary& library);

    IOReportEnergyReader(std::unique_ptr<IOReport> library, IOReportSubscribed subscribed);

private:
    // In the order in which they depend on each other.
    std::unique_ptr<IOReport> library_;
    std::unique_ptr<IOReportSubscriptionObject> subscription_;
    IOReportDictionaryOwner subscribedChannels_;
    IOReportDictionaryOwner previousSample_;
    [[maybe_unused]] std::optional<Date> previousAt_;
};

}  // namespace vtx
