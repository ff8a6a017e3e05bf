// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

#include "base/Property.h"

namespace vtx {

/// What the power sources were at one moment. Owned by who asked for it.
class PowerSourcesInfo {
public:
    PowerSourcesInfo() = default;
    PowerSourcesInfo(const PowerSourcesInfo&) = delete;
    PowerSourcesInfo& operator=(const PowerSourcesInfo&) = delete;
    virtual ~PowerSourcesInfo() = default;

    /// "Battery Power" while the machine runs on a battery, another text on mains, or absent.
    [[nodiscard]] virtual std::optional<std::string> providingPowerSourceType() const = 0;

    /// `IOPSCopyPowerSourcesList`: how many sources there are; absent if there is no list.
    [[nodiscard]] virtual std::optional<std::size_t> powerSourceCount() const = 0;

    /// `IOPSGetPowerSourceDescription`: what the source says of itself by the platform's names, or
    /// nothing. Valid as long as this object.
    [[nodiscard]] virtual PropertyView powerSourceDescription(std::size_t index) const = 0;
};

/// The power sources of the machine. Main executor.
class PowerSources {
public:
    PowerSources() = default;
    PowerSources(const PowerSources&) = delete;
    PowerSources& operator=(const PowerSources&) = delete;
    virtual ~PowerSources() = default;

    /// Null only if the platform cannot answer at all.
    [[nodiscard]] virtual std::unique_ptr<PowerSourcesInfo> copyPowerSourcesInfo() = 0;
};

}  // namespace vtx
