// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "base/Date.h"
#include "telemetry/CoreLayout.h"

namespace vtx {

/// One processor's cumulative tick counters, in the kernel's order. Each wraps at 2^32.
struct CPUTicks {
    std::uint32_t user = 0;
    std::uint32_t system = 0;
    std::uint32_t idle = 0;
    std::uint32_t nice = 0;

    friend bool operator==(const CPUTicks&, const CPUTicks&) = default;
};

/// The counters of all processors at one moment.
struct RawCPUSample {
    std::vector<CPUTicks> perCpu;  ///< by processor number
    Date timestamp;                ///< right after the counters were copied

    friend bool operator==(const RawCPUSample&, const RawCPUSample&) = default;
};

/// The clusters that ever told a clock. One that idles tells none for a while.
struct SeenClocks {
    bool pCore = false;
    bool eCore = false;

    friend bool operator==(const SeenClocks&, const SeenClocks&) = default;
};

/// One reading of the processor: loads between two samples, as fractions from 0.0 to 1.0.
struct CPUStats {
    double totalUsage = 0.0;           ///< mean over all processors, each weighing the same
    double pCoreUsage = 0.0;           ///< mean of `pPerCore`; 0.0 when that is empty
    double eCoreUsage = 0.0;           ///< mean of `ePerCore`; 0.0 when that is empty
    std::vector<double> perCoreUsage;  ///< by processor number
    std::vector<double> pPerCore;      ///< performance cores in processor order
    std::vector<double> ePerCore;      ///< efficiency cores in processor order
    std::optional<double> pCoreCurrentFrequencyMHz;  ///< mean clock; absent where not measured
    std::optional<double> eCoreCurrentFrequencyMHz;
    SeenClocks seenClocks;  ///< in this reading or any before it
    CoreLayout layout;      ///< in force for this reading, so that a view needs nothing else
    Date timestamp;

    friend bool operator==(const CPUStats&, const CPUStats&) = default;

    /// The loads between the samples; absent unless both hold exactly the processors of the layout.
    static std::optional<CPUStats> make(const RawCPUSample& current, const RawCPUSample& previous,
                                        const CoreLayout& layout);
};

}  // namespace vtx
