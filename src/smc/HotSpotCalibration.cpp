// SPDX-License-Identifier: MIT
#include "smc/HotSpotCalibration.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "base/Log.h"
#include "smc/PersistentDenylistStore.h"

namespace vtx {
namespace {

constexpr Logger logger{"SMCBridge"};

std::string oneDecimal(double celsius) { return fmt::format("{:.1f}", celsius); }

/// "Tp01=78.2°C, Tp05=77.0°C", hottest first.
std::string list(const SensorKeySet& keys, const SensorPeaks& peaks) {
    std::vector<std::pair<std::string_view, double>> hottestFirst;
    for (const auto& key : keys) hottestFirst.emplace_back(key, peaks.find(key)->second);
    std::ranges::sort(hottestFirst, [](const auto& a, const auto& b) {
        return a.second != b.second ? a.second > b.second : a.first < b.first;
    });
    std::string text;
    for (const auto& [key, peak] : hottestFirst)
        text += fmt::format("{}{}={:.1f}°C", text.empty() ? "" : ", ", key, peak);
    return text;
}

}  // namespace

HotSpotCalibration::HotSpotCalibration(const Machine& machine, std::span<const std::string> cpuKeys,
                                       const SensorKeySet& preset, UserDefaults& defaults,
                                       const Clock& clock)
    : defaults_(defaults),
      clock_(clock),
      storageKey_(
          PersistentDenylistStore::storageKey(machine.chip, machine.model, machine.osBuild)) {
    const SensorKeySet known(cpuKeys.begin(), cpuKeys.end());
    std::ranges::copy_if(preset, std::inserter(denylist_, denylist_.end()),
                         [&known](const auto& key) { return known.contains(key); });
    const auto stored = PersistentDenylistStore::load(defaults, storageKey_);
    if (!stored) return;
    for (const auto& key : *stored)
        if (known.contains(key) && denylist_.insert(key).second) ++restoredCount_;
    isDone_ = true;
}

void HotSpotCalibration::updateCalibration(std::span<const SensorValue> readings) {
    const Moment now(clock_);
    if (!start_) start_ = now;
    notePeaks(readings);
    // Not by the dates alone: a clock that was set back would hold the window open as far.
    const double passed =
        std::max(toSeconds(now.date - start_->date), toSeconds(now.instant - start_->instant));
    if (passed < windowSeconds) return;
    closeWindow();
}

void HotSpotCalibration::notePeaks(std::span<const SensorValue> readings) {
    for (const SensorValue& reading : readings) {
        if (denylist_.contains(reading.key)) continue;
        const auto found = peaks_.find(reading.key);
        if (found == peaks_.end())
            peaks_.emplace(reading.key, reading.temp);
        else
            found->second = std::max(found->second, reading.temp);
    }
}

void HotSpotCalibration::closeWindow() {
    const auto verdict = HotSpotClassifier::classifyWithStats(peaks_);
    denylist_.insert(verdict.denylist.begin(), verdict.denylist.end());
    PersistentDenylistStore::save(defaults_, storageKey_, denylist_);
    tell(verdict);
    isDone_ = true;
    peaks_.clear();
}

void HotSpotCalibration::tell(const HotSpotClassifier::Verdict& verdict) const {
    if (verdict.denylist.empty()) {
        logger.info(
            "CPU sensor calibration complete: {} sensors, no hot-spots detected (40th-pct peak {} "
            "°C); persisted {} total",
            peaks_.size(), oneDecimal(verdict.baseline), denylist_.size());
        return;
    }
    logger.standard(
        "CPU sensor calibration complete: denylisted {} hot-spot sensors above {} °C: {}; "
        "persisted {} total",
        verdict.denylist.size(), oneDecimal(verdict.cutoff), list(verdict.denylist, peaks_),
        denylist_.size());
}

}  // namespace vtx
