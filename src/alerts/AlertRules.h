// SPDX-License-Identifier: MIT
#pragma once

namespace vtx {

/// What the user wants to be told of. Loads are fractions from 0.0 to 1.0, the temperature is in
/// degrees Celsius.
struct AlertRules {
    /// One threshold, which a value reaches or stays below.
    struct Rule {
        bool isEnabled = false;
        double threshold = 0.0;
    };

    Rule cpu;
    Rule gpu;
    Rule memory;
    bool isPressureEnabled = false;
    Rule temperature;

    [[nodiscard]] constexpr bool isAnyEnabled() const {
        return cpu.isEnabled || gpu.isEnabled || memory.isEnabled || isPressureEnabled ||
               temperature.isEnabled;
    }
};

}  // namespace vtx
