// SPDX-License-Identifier: MIT
#include "ui/models/PressureNotice.h"

#include <fmt/format.h>

#include <cmath>

#include "language/Localization.h"

namespace vtx {

std::optional<PressureNotice> describePressure(MemoryStats::Pressure level,
                                               const std::vector<ProcessSnapshot>& consumers) {
    if (level == MemoryStats::Pressure::normal) return std::nullopt;
    const bool isCritical = level == MemoryStats::Pressure::critical;
    const auto text = [](L10n::Key key) { return std::string(Localization::shared().string(key)); };
    PressureNotice notice;
    notice.tint = isCritical ? Tint::red : Tint::orange;
    notice.symbol = isCritical ? "exclamationmark.triangle.fill" : "exclamationmark.circle";
    notice.title = text(L10n::Key::memory_pressureTitle);
    notice.status =
        text(isCritical ? L10n::Key::memory_statusCritical : L10n::Key::memory_statusWarning);
    notice.consumersTitle = text(L10n::Key::memory_topConsumers);
    for (const ProcessSnapshot& each : consumers)
        notice.consumers.push_back({each.name, formatProcessMB(each.residentMemoryBytes)});
    for (PressureNotice::Consumer& each : notice.consumers) {
        if (each.name.empty()) each.name = emptyMark;
    }
    return notice;
}

std::string formatProcessMB(std::uint64_t bytes) {
    const double megabytes = static_cast<double>(bytes) / 1048576.0;
    return megabytes < 1024.0 ? fmt::format("{:.0f} MB", std::round(megabytes))
                              : fmt::format("{:.1f} GB", megabytes / 1024.0);
}

}  // namespace vtx
