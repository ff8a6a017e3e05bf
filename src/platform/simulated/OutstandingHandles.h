// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <string_view>

#include "base/Subscription.h"

namespace vtx {

/// Counts what the simulated platform has handed out and not got back, by kind, so that a test can
/// assert that nothing leaked. Any thread. Outlives every handle.
class OutstandingHandles {
public:
    using Counts = std::map<std::string, std::size_t, std::less<>>;

    void add(std::string_view kind);
    void remove(std::string_view kind);
    /// Counts one handle for as long as the token lives, which also holds `inner`.
    [[nodiscard]] Subscription hold(std::string_view kind, Subscription inner = {});

    [[nodiscard]] std::size_t outstanding() const;
    [[nodiscard]] std::size_t outstanding(std::string_view kind) const;
    /// The kinds that are out, each with its number.
    [[nodiscard]] Counts all() const;

private:
    mutable std::mutex mutex_;
    Counts counts_;
};

/// The kinds of handles.
namespace handles {
inline constexpr std::string_view kernelArray = "KernelArray";
inline constexpr std::string_view memoryPressureSource = "MemoryPressureSource";
inline constexpr std::string_view powerSourcesInfo = "PowerSourcesInfo";
inline constexpr std::string_view registryEntry = "RegistryEntry";
inline constexpr std::string_view registryIterator = "RegistryIterator";
inline constexpr std::string_view ioReportDictionary = "IOReportDictionary";
inline constexpr std::string_view ioReportSubscription = "IOReportSubscription";
inline constexpr std::string_view activity = "Activity";
inline constexpr std::string_view willSleep = "Subscription:willSleep";
inline constexpr std::string_view didWake = "Subscription:didWake";
inline constexpr std::string_view powerStateDidChange = "Subscription:powerStateDidChange";
}  // namespace handles

}  // namespace vtx
