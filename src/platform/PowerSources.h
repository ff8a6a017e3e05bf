// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>

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
