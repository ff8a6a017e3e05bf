// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "base/Date.h"

namespace vtx {

/// One reading of the system's thermal level. It is no temperature.
struct ThermalStats {
    /// Raw value: the case's name.
    enum class Level : std::uint8_t { nominal, fair, serious, critical };
    static constexpr std::array allLevels{Level::nominal, Level::fair, Level::serious,
                                          Level::critical};

    Level level = Level::nominal;
    Date timestamp;

    friend bool operator==(const ThermalStats&, const ThermalStats&) = default;
};

/// The level of a state that the platform gives; one that is not known reads as nominal.
constexpr ThermalStats::Level thermalLevelOf(std::int64_t state) {
    constexpr auto& all = ThermalStats::allLevels;
    const bool isKnown = state >= 0 && state < static_cast<std::int64_t>(all.size());
    return isKnown ? all[static_cast<std::size_t>(state)] : ThermalStats::Level::nominal;
}

constexpr std::string_view rawValue(ThermalStats::Level level) {
    constexpr std::array<std::string_view, 4> names{"nominal", "fair", "serious", "critical"};
    return names[static_cast<std::size_t>(level)];
}

}  // namespace vtx
