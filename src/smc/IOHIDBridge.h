// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "platform/HIDEventSystem.h"
#include "smc/TemperatureReading.h"

namespace vtx {

class Clock;
class IORegistry;
struct Ports;

/// The processor's temperature by the sensors that speak as human interface devices, for machines
/// whose SMC gives none. Main executor; one for the process, made by the first poll that needs it.
class IOHIDBridge {
public:
    /// The process's one, made on first use; null for good where that failed.
    static IOHIDBridge* shared();

    /// Null, and logged, where a step fails. The ports must outlive the bridge.
    static std::unique_ptr<IOHIDBridge> open(const Ports& ports);

    /// One poll. Always a reading, possibly without any value.
    [[nodiscard]] TemperatureReading readTemperatureReading();

private:
    IOHIDBridge(const Ports& ports, std::unique_ptr<HIDEventFunctions> functions,
                std::unique_ptr<HIDEventClient> client, std::unique_ptr<HIDServices> services);

    [[nodiscard]] std::optional<double> readService(std::size_t index);
    [[nodiscard]] std::string lowerCaseName(std::size_t index);

    const Clock& clock_;
    IORegistry& registry_;
    std::unique_ptr<HIDEventFunctions> functions_;
    std::unique_ptr<HIDEventClient> client_;
    std::unique_ptr<HIDServices> services_;
};

/// What `IOHIDBridge::shared` keeps, a failure to open included.
struct SharedIOHIDBridge {
    std::unique_ptr<IOHIDBridge> bridge;
};

}  // namespace vtx
