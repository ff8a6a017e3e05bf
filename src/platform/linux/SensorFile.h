// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "base/Date.h"
#include "platform/linux/KeptFile.h"
#include "platform/linux/LinuxRoot.h"
#include "platform/linux/RuntimePower.h"
#include "platform/linux/SensorScan.h"

namespace vtx {

/// Tells the continuous time, on any thread and for as long as the process lives.
using TimeSource = std::function<Instant()>;

/// One figure of a sensor, read from its file each time by a descriptor that stays open. Absent
/// where the driver refuses, calls the sensor faulty, or says what no sensor measures.
///
/// Asking a device that sleeps wakes it, and asking one that may go to sleep keeps it awake. So a
/// sleeping device's figure is absent, and one that suspends itself is asked only when it had the
/// time to do so since the last time; in between the last figure stands.
///
/// Owns all that it uses, for whoever reads may hang in it for good. Any thread.
class SensorFile {
public:
    /// `part` of a fan is "input", "min", "max" or "target"; of a temperature "input".
    SensorFile(const LinuxRoot& root, TimeSource now, const FoundSensor& sensor,
               std::string_view part = "input");

    /// Waits for who is reading, and blocks as long as the driver does.
    [[nodiscard]] std::optional<double> read();
    /// False, and nothing read, while somebody else is reading, who may hang.
    [[nodiscard]] bool tryRead(std::optional<double>& value);

private:
    // With the mutex held.
    [[nodiscard]] std::optional<double> readAwake();
    [[nodiscard]] std::optional<double> ask();
    [[nodiscard]] std::optional<double> valueOf(std::string_view text) const;
    [[nodiscard]] static bool isSaid(std::optional<KeptFile>& flag);

    const TimeSource now_;
    const SensorKind kind_;
    std::mutex mutex_;  ///< of all below
    KeptFile value_;
    std::optional<KeptFile> fault_;      ///< absent where the driver has no such flag
    std::optional<KeptFile> alarm_;      ///< the same; of a measured speed alone
    std::optional<RuntimePower> power_;  ///< absent where the device never sleeps
    std::optional<Instant> aloneUntil_;  ///< absent while it may be asked
    std::optional<double> last_;
};

}  // namespace vtx
