// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <vector>

#include "base/Date.h"

namespace vtx {

/// One fan, identified by its index; speeds in revolutions a minute.
struct FanReading {
    int index = 0;  ///< number of the fan, from 0
    int currentRPM = 0;
    std::optional<int> targetRPM;  ///< commanded; absent where its key fails, as the next two
    std::optional<int> minRPM;
    std::optional<int> maxRPM;

    friend bool operator==(const FanReading&, const FanReading&) = default;
};

/// One reading of all fans, in index order.
struct FanStats {
    std::vector<FanReading> fans;
    Date timestamp;

    friend bool operator==(const FanStats&, const FanStats&) = default;

    /// The speed of the fastest fan; absent without fans.
    [[nodiscard]] std::optional<int> maxRPM() const;
    /// The mean place of the fans between their lowest and highest speeds, 0.0 to 1.0. Absent where
    /// no fan has such a range.
    [[nodiscard]] std::optional<double> averageLoad() const;

    /// The process's one reading without fans; its time is that of its first use. Main executor.
    static const FanStats& empty();
};

}  // namespace vtx
