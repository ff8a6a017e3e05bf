// SPDX-License-Identifier: MIT
#include "ui/models/SectionFormatters.h"

#include <fmt/format.h>

#include <cmath>

#include "ui/models/Formatters.h"

namespace vtx {
namespace {

constexpr double kib = 1024.0;
constexpr double mib = kib * kib;
constexpr double gib = mib * kib;
constexpr double tib = gib * kib;

constexpr std::int64_t minutesPerHour = 60;

std::string unknown() { return std::string(emptyMark); }

double real(std::uint64_t bytes) { return static_cast<double>(bytes); }

// Half away from zero, as whole numbers are rounded everywhere.
double whole(double value) { return std::round(value) + 0.0; }

std::string megabytesOrMore(double bytes) {
    if (bytes >= gib) return fmt::format("{:.1f} GB", bytes / gib);
    return fmt::format("{:.0f} MB", whole(bytes / mib));
}

}  // namespace

std::string formatFreq(std::optional<double> mhz) {
    if (!mhz || !std::isfinite(*mhz) || *mhz <= 0.0) return unknown();
    if (*mhz < 1000.0) return fmt::format("{:.0f} MHz", whole(*mhz));
    return fmt::format("{:.2f} GHz", *mhz / 1000.0);
}

std::string formatThroughput(double bytesPerSecond) {
    if (!std::isfinite(bytesPerSecond)) return unknown();
    if (bytesPerSecond <= 0.0) return "0 B/s";
    if (bytesPerSecond >= mib) return fmt::format("{:.1f} MB/s", bytesPerSecond / mib);
    return fmt::format("{:.0f} KB/s", bytesPerSecond / kib);
}

std::string formatDiskBytes(std::uint64_t bytes) {
    if (real(bytes) >= gib) return fmt::format("{:.1f} GB", real(bytes) / gib);
    return fmt::format("{:.0f} MB", real(bytes) / mib);
}

std::string formatIOPS(std::optional<double> perSecond) {
    if (!perSecond || !std::isfinite(*perSecond)) return unknown() + " IOPS";
    return fmt::format("{:.0f} IOPS", whole(*perSecond));
}

std::string formatRate(std::optional<double> bytesPerSecond) {
    if (!bytesPerSecond || !std::isfinite(*bytesPerSecond)) return unknown();
    const double rate = *bytesPerSecond;
    if (rate < kib) return fmt::format("{:.0f} B/s", whole(rate));
    if (rate < mib) return fmt::format("{:.0f} KB/s", rate / kib);
    if (rate < gib) return fmt::format("{:.1f} MB/s", rate / mib);
    return fmt::format("{:.2f} GB/s", rate / gib);
}

std::string formatNetworkBytes(std::uint64_t bytes) {
    const double moved = real(bytes);
    if (moved < mib) return fmt::format("{:.0f} KB", moved / kib);
    if (moved < gib) return fmt::format("{:.1f} MB", moved / mib);
    if (moved < tib) return fmt::format("{:.2f} GB", moved / gib);
    return fmt::format("{:.2f} TB", moved / tib);
}

std::string formatGB(std::uint64_t bytes) { return fmt::format("{:.1f} GB", real(bytes) / gib); }

std::string formatGBCompact(std::optional<std::uint64_t> bytes) {
    return bytes ? megabytesOrMore(real(*bytes)) : unknown();
}

std::string formatMB(std::uint64_t bytes) { return megabytesOrMore(real(bytes)); }

std::string formatMBSigned(std::int64_t bytes) {
    const auto size = static_cast<double>(bytes);
    return size < 0.0 ? "-" + megabytesOrMore(-size) : megabytesOrMore(size);
}

std::string formatInstalledBytes(std::uint64_t bytes) {
    if (real(bytes) >= tib) return fmt::format("{:.1f} TB", real(bytes) / tib);
    return fmt::format("{:.0f} GB", real(bytes) / gib);
}

std::string formatMinutes(std::int64_t minutes) {
    if (minutes < minutesPerHour) return fmt::format("{} min", minutes);
    if (minutes % minutesPerHour == 0) return fmt::format("{} h", minutes / minutesPerHour);
    return fmt::format("{} h {} min", minutes / minutesPerHour, minutes % minutesPerHour);
}

std::string formatWhole(std::optional<std::int64_t> value, const char* unit) {
    if (!value) return unknown();
    return *unit == '\0' ? fmt::format("{}", *value) : fmt::format("{} {}", *value, unit);
}

std::string formatCores(std::int64_t performance, std::int64_t efficiency) {
    return fmt::format("{} P · {} E", performance, efficiency);
}

}  // namespace vtx
