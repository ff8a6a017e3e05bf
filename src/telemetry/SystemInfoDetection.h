// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/Property.h"
#include "telemetry/SystemInfo.h"

namespace vtx {

class IORegistry;
struct Ports;

/// Asks the machine for what `SystemInfo` holds, one field after the other. Nothing fails: what is
/// not told is absent or has its default. Used once, at start, on the main executor.
class SystemInfoDetection {
public:
    /// The ports must outlive it.
    explicit SystemInfoDetection(const Ports& ports) : ports_(ports) {}

    [[nodiscard]] SystemInfo detect() const;

private:
    void detectArchitecture(SystemInfo& info) const;
    void detectCoreLayout(SystemInfo& info) const;
    void detectTopClocks(SystemInfo& info) const;
    void detectRAMInfo(SystemInfo& info) const;
    void detectGPU(SystemInfo& info) const;
    void detectBattery(SystemInfo& info) const;
    [[nodiscard]] std::optional<std::string> detectMarketingName() const;

    /// Of an entry of the device tree; absent where there is none.
    [[nodiscard]] std::optional<Property> propertiesAt(std::string_view path) const;

    const Ports& ports_;
};

}  // namespace vtx
