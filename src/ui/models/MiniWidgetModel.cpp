// SPDX-License-Identifier: MIT
#include "ui/models/MiniWidgetModel.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "ui/models/Formatters.h"

namespace vtx {
namespace {

/// The temperature that fills its bar.
constexpr double hottestCelsius = 100.0;

using Fraction = std::optional<double>;

Fraction limited(Fraction fraction) {
    if (!fraction || !std::isfinite(*fraction)) return std::nullopt;
    return std::clamp(*fraction, 0.0, 1.0);
}

MiniWidgetRow loadRow(std::string_view label, Fraction load, MiniWidgetTint tint) {
    return {label, compactPercent(load), tint, limited(load)};
}

MiniWidgetRow temperatureRow(const MiniWidgetReadings& readings) {
    const auto celsius =
        readings.temperature ? readings.temperature->cpuMaxC : std::optional<double>();
    const bool isKnown = celsius && std::isfinite(*celsius);
    return {"CPU Temp", temperatureLabel(celsius, thermalLevelName(readings.thermal.level)),
            MiniWidgetTint::temperature,
            isKnown ? limited(*celsius / hottestCelsius) : std::nullopt};
}

/// A machine without cores of that kind has no load of them, not none.
MiniWidgetChip chip(std::string_view label, const std::optional<CPUStats>& cpu,
                    double CPUStats::* load, int CoreLayout::* count, MiniWidgetTint tint) {
    const bool isKnown = cpu && cpu->layout.*count > 0 && std::isfinite((*cpu).*load);
    if (!isKnown) return {label, std::string(emptyMark), tint};
    const double whole = std::round(*limited((*cpu).*load) * 100.0);
    return {label, fmt::format("{}", static_cast<long long>(whole)), tint};
}

Date newest(const MiniWidgetReadings& readings) {
    Date date = readings.thermal.timestamp;
    if (readings.cpu) date = std::max(date, readings.cpu->timestamp);
    if (readings.gpu) date = std::max(date, readings.gpu->timestamp);
    if (readings.memory) date = std::max(date, readings.memory->timestamp);
    if (readings.temperature) date = std::max(date, readings.temperature->timestamp);
    return date;
}

}  // namespace

MiniWidgetModel describeMiniWidget(const MiniWidgetReadings& readings,
                                   const std::function<std::string(Date)>& timeOfDay) {
    const auto& [cpu, gpu, memory, temperature, thermal] = readings;
    MiniWidgetModel model;
    model.time = timeOfDay(newest(readings));
    model.rows = {
        loadRow("CPU", cpu ? Fraction(cpu->totalUsage) : std::nullopt, MiniWidgetTint::cpu),
        loadRow("GPU", gpu ? Fraction(gpu->deviceUtilization) : std::nullopt, MiniWidgetTint::gpu),
        loadRow("RAM", limited(memory ? Fraction(memory->usedFraction()) : std::nullopt),
                MiniWidgetTint::memory),
        temperatureRow(readings)};
    model.chips = {
        chip("P", cpu, &CPUStats::pCoreUsage, &CoreLayout::pCoreCount, MiniWidgetTint::pCore),
        chip("E", cpu, &CPUStats::eCoreUsage, &CoreLayout::eCoreCount, MiniWidgetTint::eCore)};
    return model;
}

}  // namespace vtx
