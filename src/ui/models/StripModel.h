// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vtx {

struct DisplayPreferences;

/// What the strip is drawn from: the readings it shows, each absent until there is one.
struct StripReadings {
    std::optional<double> cpuUsage;           ///< fraction
    bool isGPUAvailable = false;              ///< whether GPU sampling works on this machine
    std::optional<double> gpuUtilization;     ///< fraction
    std::optional<double> cpuMaxC;            ///< degrees Celsius
    std::optional<std::string> thermalLevel;  ///< capitalised level of the system
    std::optional<double> memoryFraction;     ///< used over total
    std::optional<double> diskReadPerSecond;  ///< bytes
    std::optional<double> diskWrittenPerSecond;
    std::optional<long long> fanMaxRPM;
    std::string criticalMetric = "cpu";  ///< identifier of the tile that compact mode shows
};

/// One tile: a symbol and, where it is live, a label in the space of its widest expected text.
struct StripTile {
    std::string id;
    std::string symbol;
    std::optional<std::string> label;  ///< absent where only the symbol is shown
    std::string_view reference;        ///< the hidden text that reserves the label's width

    friend bool operator==(const StripTile&, const StripTile&) = default;
};

/// All that the strip says.
struct StripModel {
    std::vector<StripTile> tiles;
    double spacing = 6.0;  ///< between tiles, logical pixels
    std::string summary;   ///< the spoken text of the whole strip

    friend bool operator==(const StripModel&, const StripModel&) = default;
};

StripModel describeStrip(const StripReadings& readings, const DisplayPreferences& preferences);

}  // namespace vtx
