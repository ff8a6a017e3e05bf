// SPDX-License-Identifier: MIT
#include "ui/models/Formatters.h"

#include <fmt/format.h>

#include <cmath>

namespace vtx {
namespace {

constexpr double kib = 1024.0;
constexpr double mib = 1048576.0;
constexpr double gib = 1073741824.0;

std::optional<double> wholePercent(std::optional<double> fraction) {
    if (!fraction || !std::isfinite(*fraction)) return std::nullopt;
    return std::round(*fraction * 100.0) + 0.0;  // never "-0"
}

}  // namespace

std::string compactPercent(std::optional<double> fraction) {
    const auto whole = wholePercent(fraction);
    return whole ? fmt::format("{:.0f}%", *whole) : std::string(emptyMark);
}

std::string percent(std::optional<double> fraction) {
    const auto whole = wholePercent(fraction);
    return whole ? fmt::format("{:.0f} %", *whole) : std::string(emptyMark);
}

std::string formatMHz(double mhz) {
    if (!std::isfinite(mhz)) return std::string(emptyMark);
    return mhz >= 1000.0 ? fmt::format("{:.2f} GHz", mhz / 1000.0) : fmt::format("{:.0f} MHz", mhz);
}

std::string gigabytes(std::uint64_t bytes) {
    return fmt::format("{:.1f}G", static_cast<double>(bytes) / gib);
}

std::string temperatureLabel(std::optional<double> celsius, std::string_view fallback) {
    if (!celsius || !std::isfinite(*celsius)) return std::string(fallback);
    return fmt::format("{:.0f}°C", std::round(*celsius) + 0.0);
}

std::string thermalLevelName(ThermalStats::Level level) {
    std::string name(rawValue(level));
    name.front() = static_cast<char>(name.front() - 'a' + 'A');
    return name;
}

std::string formatTemp(std::optional<double> celsius) {
    if (!celsius || !std::isfinite(*celsius)) return std::string(emptyMark);
    return fmt::format("{:.0f} °C", std::round(*celsius) + 0.0);
}

std::string throughputLabel(double bytesPerSecond) {
    if (!std::isfinite(bytesPerSecond)) return std::string(emptyMark);
    const double m = bytesPerSecond / mib;
    if (m >= 100.0) return fmt::format("{:.0f}M", std::trunc(m));
    if (m >= 10.0) return fmt::format("{:.0f}M", m);
    if (m >= 1.0) return fmt::format("{:.1f}M", m);
    return fmt::format("{:.0f}K", std::trunc(bytesPerSecond / kib) + 0.0);
}

std::string throughputLabel(std::optional<double> read, std::optional<double> written) {
    if (!read && !written) return std::string(emptyMark);
    return throughputLabel(read.value_or(0.0) + written.value_or(0.0));
}

Tint loadTint(std::optional<double> fraction) {
    if (!fraction || !(*fraction >= 0.7)) return Tint::primary;
    if (*fraction >= 0.95) return Tint::red;
    return *fraction >= 0.85 ? Tint::orange : Tint::yellow;
}

Tint memoryTint(std::uint64_t used, std::uint64_t total) {
    if (total == 0) return Tint::primary;
    const double fraction = static_cast<double>(used) / static_cast<double>(total);
    if (fraction >= 0.9) return Tint::red;
    if (fraction >= 0.8) return Tint::orange;
    return fraction >= 0.65 ? Tint::yellow : Tint::primary;
}

}  // namespace vtx
