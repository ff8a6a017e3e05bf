// SPDX-License-Identifier: MIT
#include "ui/models/HogPanelModel.h"

#include <fmt/format.h>

#include <cmath>

#include "language/Localization.h"
#include "ui/models/Formatters.h"

namespace vtx {
namespace {

constexpr double severePeak = 2.0;
constexpr double severeSeconds = 900.0;
constexpr double notableSeconds = 300.0;

HogRowModel rowOf(const HogReport& report) {
    return {severityOf(report), report.name.empty() ? std::string(emptyMark) : report.name,
            hogSubtitle(report), fmt::format("{:.0f}%", report.averageCPU * 100.0)};
}

}  // namespace

HogSeverity severityOf(const HogReport& report) {
    if (report.peakCPU >= severePeak || report.activeSeconds >= severeSeconds)
        return HogSeverity::severe;
    return report.activeSeconds >= notableSeconds ? HogSeverity::notable : HogSeverity::slight;
}

std::string hogSubtitle(const HogReport& report) {
    return fmt::format("{:.0f} min · peak {:.0f}%", std::trunc(report.activeSeconds / 60.0),
                       std::trunc(report.peakCPU * 100.0));
}

std::string_view symbolOf(HogSeverity severity) {
    switch (severity) {
        case HogSeverity::severe:
            return "exclamationmark.triangle.fill";
        case HogSeverity::notable:
            return "exclamationmark.circle";
        case HogSeverity::slight:
            break;
    }
    return "circle";
}

HogPanelModel describeHogPanel(bool isDetectorEnabled, const std::vector<HogReport>& hogs) {
    const Localization& texts = Localization::shared();
    HogPanelModel panel;
    panel.title = texts.string(L10n::Key::hog_title);
    if (!isDetectorEnabled) {
        panel.hint = texts.string(L10n::Key::hog_disabledHint);
        return panel;
    }
    if (hogs.empty()) {
        panel.hint = texts.string(L10n::Key::hog_empty);
        return panel;
    }
    panel.count = fmt::format("{}", hogs.size());
    for (const HogReport& report : hogs) panel.rows.push_back(rowOf(report));
    return panel;
}

}  // namespace vtx
