// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "base/Property.h"

namespace vtx {

/// A client of the event system. Owned by who got it.
class HIDEventClient {
public:
    HIDEventClient() = default;
    HIDEventClient(const HIDEventClient&) = delete;
    HIDEventClient& operator=(const HIDEventClient&) = delete;
    virtual ~HIDEventClient() = default;
};

/// An array of services that a client matched. Owned by who got it.
class HIDServices {
public:
    HIDServices() = default;
    HIDServices(const HIDServices&) = delete;
    HIDServices& operator=(const HIDServices&) = delete;
    virtual ~HIDServices() = default;

    [[nodiscard]] virtual std::size_t count() const = 0;
};

/// An event of a service. Owned by who got it.
class HIDEvent {
public:
    HIDEvent() = default;
    HIDEvent(const HIDEvent&) = delete;
    HIDEvent& operator=(const HIDEvent&) = delete;
    virtual ~HIDEvent() = default;
};

/// Which services a client is for.
struct HIDMatching {
    std::int32_t primaryUsagePage = 0;
    std::int32_t primaryUsage = 0;
};

/// The functions of the event system as the process has them. The bodies of symbols that were not
/// resolved may not be called, nor one for a service that `services` does not count. One object is
/// used by one thread at a time.
class HIDEventFunctions {
public:
    HIDEventFunctions() = default;
    HIDEventFunctions(const HIDEventFunctions&) = delete;
    HIDEventFunctions& operator=(const HIDEventFunctions&) = delete;
    virtual ~HIDEventFunctions() = default;

    /// `dlsym`: whether the process has the symbol.
    [[nodiscard]] virtual bool resolve(const char* symbol) = 0;

    /// "IOHIDEventSystemClientCreate" with the default allocator and 0; null if it fails.
    [[nodiscard]] virtual std::unique_ptr<HIDEventClient> createClient() = 0;
    /// "IOHIDEventSystemClientSetMatching".
    virtual void setMatching(HIDEventClient& client, const HIDMatching& matching) = 0;
    /// "IOHIDEventSystemClientCopyServices"; null if it fails. The client outlives the array.
    [[nodiscard]] virtual std::unique_ptr<HIDServices> copyServices(HIDEventClient& client) = 0;

    /// "IOHIDServiceClientCopyEvent": the service's current event of a type, or null.
    [[nodiscard]] virtual std::unique_ptr<HIDEvent> copyEvent(const HIDServices& services,
                                                              std::size_t index, std::int64_t type,
                                                              std::int32_t options,
                                                              std::int64_t timestamp) = 0;
    /// "IOHIDEventGetFloatValue", as it comes.
    [[nodiscard]] virtual double eventGetFloatValue(const HIDEvent& event, std::int32_t field) = 0;
    /// "IOHIDServiceClientCopyProperty": of any kind, or absent.
    [[nodiscard]] virtual std::optional<Property> copyProperty(const HIDServices& services,
                                                               std::size_t index,
                                                               std::string_view key) = 0;
};

/// The event system of human interface devices, through which temperature sensors speak too. Its
/// functions are no part of the platform's documented interface and are looked up by name in the
/// running process. Main executor.
class HIDEventSystem {
public:
    HIDEventSystem() = default;
    HIDEventSystem(const HIDEventSystem&) = delete;
    HIDEventSystem& operator=(const HIDEventSystem&) = delete;
    virtual ~HIDEventSystem() = default;

    /// `dlopen` of no path, in a mode of the platform's bits; null where that fails.
    [[nodiscard]] virtual std::unique_ptr<HIDEventFunctions> open(int mode) = 0;
};

}  // namespace vtx
