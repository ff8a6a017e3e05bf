// SPDX-License-Identifier: MIT
#include "platform/shapes/DeviceTree.h"

#include <cmath>
#include <limits>

#include "base/Bytes.h"

namespace vtx {
namespace {

constexpr double hertzPerMHz = 1'000'000.0;
constexpr double kilohertzPerMHz = 1'000.0;
/// From here on a raw value is read as kHz, and as hertz from a thousand times as much.
constexpr double leastKilohertz = 100'000.0;
constexpr double leastHertz = 100'000'000.0;
constexpr double largest = std::numeric_limits<std::uint32_t>::max();

std::uint32_t rawStep(double mhz, StepUnit unit) {
    if (!std::isfinite(mhz) || mhz <= 0.0) return 0;
    if (unit == StepUnit::hertz) {
        const double raw = std::round(mhz * hertzPerMHz);
        if (raw >= leastHertz && raw <= largest) return static_cast<std::uint32_t>(raw);
    }
    if (unit != StepUnit::megahertz) {
        const double raw = std::round(mhz * kilohertzPerMHz);
        if (raw >= leastKilohertz && raw < leastHertz) return static_cast<std::uint32_t>(raw);
    }
    return static_cast<std::uint32_t>(std::fmin(std::round(mhz), leastKilohertz - 1.0));
}

}  // namespace

Data encodeDeviceTreeNumber(std::uint32_t value) {
    Data data;
    appendLittleEndian32(data, value);
    return data;
}

Data encodeVoltageStates(std::span<const double> stepsMHz, StepUnit unit) {
    Data data;
    data.reserve(stepsMHz.size() * 8);
    for (const double mhz : stepsMHz) {
        appendLittleEndian32(data, rawStep(mhz, unit));
        appendLittleEndian32(data, 0);
    }
    return data;
}

Data encodeClusters(std::span<const ClusterRecord> clusters) {
    Data data;
    for (const ClusterRecord& cluster : clusters) {
        data.push_back(std::byte{cluster.table});
        data.push_back(std::byte{cluster.tier});
        data.insert(data.end(), 6, std::byte{0});
    }
    return data;
}

}  // namespace vtx
