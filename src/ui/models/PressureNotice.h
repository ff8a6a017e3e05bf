// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "memory/MemoryStats.h"
#include "processes/ProcessSnapshot.h"
#include "ui/models/Formatters.h"

namespace vtx {

/// Memory runs short: how badly, and who uses most of it. Texts in the language in force.
struct PressureNotice {
    struct Consumer {
        std::string name;
        std::string size;

        friend bool operator==(const Consumer&, const Consumer&) = default;
    };

    Tint tint = Tint::orange;
    std::string_view symbol;
    std::string title;
    std::string status;
    std::string consumersTitle;
    std::vector<Consumer> consumers;

    friend bool operator==(const PressureNotice&, const PressureNotice&) = default;
};

/// How many processes the overview names.
inline constexpr std::size_t overviewConsumers = 3;

/// Absent while the level is normal.
[[nodiscard]] std::optional<PressureNotice> describePressure(
    MemoryStats::Pressure level, const std::vector<ProcessSnapshot>& consumers);

}  // namespace vtx
