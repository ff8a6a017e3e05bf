// SPDX-License-Identifier: MIT
#include "ui/surfaces/HistoryRangePicker.h"

#include <algorithm>

#include "core/MetricsCoordinator.h"
#include "language/Localization.h"
#include "ui/models/ChartRange.h"
#include "ui/surfaces/QtText.h"

namespace vtx {

namespace {

constexpr auto& ranges = DisplayPreferences::allHistoryRanges;

int indexOf(DisplayPreferences::HistoryRange range) {
    return static_cast<int>(std::ranges::find(ranges, range) - ranges.begin());
}

}  // namespace

HistoryRangePicker::HistoryRangePicker(MetricsCoordinator& coordinator, QWidget* parent)
    : SegmentedControl(parent), coordinator_(coordinator) {
    std::vector<QString> labels;
    for (const auto range : ranges) labels.push_back(qt(historyLabel(range)));
    setSegments(std::move(labels));
    setCurrent(indexOf(coordinator_.preferences->historyRange));
    connect(this, &SegmentedControl::selected, this, &HistoryRangePicker::pick);
}

void HistoryRangePicker::showEvent(QShowEvent* event) {
    SegmentedControl::showEvent(event);
    if (!followed_.empty()) return;
    followed_.push_back(
        coordinator_.preferences.subscribe([this](const DisplayPreferences& preferences) {
            setCurrent(indexOf(preferences.historyRange));
        }));
    followed_.push_back(
        Localization::shared().effective.subscribe([this](const auto&) { nameItself(); }));
}

void HistoryRangePicker::nameItself() {
    const QString name = qt(Localization::shared().string(L10n::Key::settings_graphs));
    if (accessibleName() != name) setAccessibleName(name);
}

void HistoryRangePicker::hideEvent(QHideEvent* event) {
    followed_.clear();
    SegmentedControl::hideEvent(event);
}

void HistoryRangePicker::pick(int index) {
    DisplayPreferences changed = *coordinator_.preferences;
    changed.historyRange = ranges.at(static_cast<std::size_t>(index));
    coordinator_.preferences = std::move(changed);
}

}  // namespace vtx
