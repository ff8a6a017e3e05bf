// SPDX-License-Identifier: MIT
#include "ui/models/PressureNotice.h"

#include "language/Localization.h"
#include "ui/models/SectionFormatters.h"

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
        notice.consumers.push_back({each.name.empty() ? std::string(emptyMark) : each.name,
                                    formatMB(each.residentMemoryBytes)});
    return notice;
}

}  // namespace vtx
