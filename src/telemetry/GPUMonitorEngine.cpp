// SPDX-License-Identifier: MIT
#include "telemetry/GPUMonitorEngine.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/Clock.h"
#include "base/Log.h"
#include "platform/IORegistry.h"

namespace vtx {
namespace {

constexpr Logger logger{"GPUMonitor"};

std::optional<double> fraction(PropertyView percentage) {
    const auto value = percentage.real();
    if (!value || std::isnan(*value)) return std::nullopt;
    return std::clamp(*value / 100.0, 0.0, 1.0);
}

}  // namespace

std::optional<GPUStats> GPUMonitorEngine::sample() {
    if (cachedEntry_) {
        if (const auto stats = readStats(cachedEntry_)) return stats;
        cachedEntry_.reset();
        logger.standard("Cached IOAccelerator entry went stale — re-matching");
    }
    return findAccelerator();
}

std::optional<GPUStats> GPUMonitorEngine::findAccelerator() {
    const auto match = registry_.serviceMatching("IOAccelerator");
    if (!match) {
        logger.error("IOServiceMatching(\"IOAccelerator\") returned nil");
        return std::nullopt;
    }
    const auto services = registry_.getMatchingServices(*match);
    if (services.result != kernSuccess) {
        logger.error("IOServiceGetMatchingServices failed: kr={}", services.result);
        return std::nullopt;
    }
    if (!services.iterator) return std::nullopt;
    while (auto entry = registry_.iteratorNext(services.iterator)) {
        if (const auto stats = readStats(entry)) {
            cachedEntry_ = std::move(entry);
            return stats;
        }
    }
    return std::nullopt;
}

std::optional<GPUStats> GPUMonitorEngine::readStats(const RegistryEntry& from) {
    const auto [result, properties] = registry_.entryProperties(from);
    if (result != kernSuccess || !properties.exists()) {
        logger.error("IORegistryEntryCreateCFProperties failed: kr={}", result);
        return std::nullopt;
    }
    const PropertyView statistics = properties["PerformanceStatistics"];
    const auto device = fraction(statistics["Device Utilization %"]);
    if (!device) return std::nullopt;
    return GPUStats{*device, fraction(statistics["Tiler Utilization %"]),
                    fraction(statistics["Renderer Utilization %"]), clock_.now()};
}

}  // namespace vtx
