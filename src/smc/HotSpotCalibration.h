// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/Moment.h"
#include "smc/HotSpotClassifier.h"

namespace vtx {

class UserDefaults;

/// The value of one sensor in one poll.
struct SensorValue {
    std::string_view key;  ///< valid during the poll
    double temp = 0.0;     ///< degrees Celsius
};

/// Finds the sensors that run far above their neighbours. For a minute from the first poll on it
/// notes the peak of each, then calls those that stand out hot spots and remembers them for this
/// chip, model and build, for which it so runs only once. Owned by `SMCBridge`, which asks it with
/// each poll; main executor.
class HotSpotCalibration {
public:
    /// The three by which a verdict is remembered.
    struct Machine {
        std::string chip;
        std::string model;
        std::string osBuild;
    };

    static constexpr double windowSeconds = 60.0;

    /// Starts from the preset and from what an earlier run stored, of both what stands in
    /// `cpuKeys`. The settings and the clock must outlive it.
    HotSpotCalibration(const Machine& machine, std::span<const std::string> cpuKeys,
                       const SensorKeySet& preset, UserDefaults& defaults, const Clock& clock);

    /// Takes the values of a poll; the first one after a minute closes the window. Not to be called
    /// once it is done.
    void updateCalibration(std::span<const SensorValue> readings);

    /// Keys that do not count for the processor's temperature.
    [[nodiscard]] const SensorKeySet& denylist() const { return denylist_; }
    [[nodiscard]] bool isDone() const { return isDone_; }
    /// How many keys the stored list added to the preset.
    [[nodiscard]] std::size_t restoredCount() const { return restoredCount_; }
    /// The highest value of each key so far; empty once it is done.
    [[nodiscard]] const SensorPeaks& peaks() const { return peaks_; }

private:
    void notePeaks(std::span<const SensorValue> readings);
    void closeWindow();
    void tell(const HotSpotClassifier::Verdict& verdict) const;

    UserDefaults& defaults_;
    const Clock& clock_;
    const std::string storageKey_;
    SensorKeySet denylist_;
    SensorPeaks peaks_;
    std::optional<Moment> start_;  // of the first poll
    std::size_t restoredCount_ = 0;
    bool isDone_ = false;
};

}  // namespace vtx
