// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>

#include "base/Clock.h"
#include "base/Executor.h"
#include "platform/linux/ReadPace.h"
#include "platform/linux/SensorFile.h"
#include "platform/linux/SlowRead.h"

namespace vtx {

/// A sensor that never holds up who asks: read at once where its chip is fast, else on the worker.
/// The first call waits for the worker a short while, since nothing is known yet; later ones give
/// what the worker read last and ask for the next. Owned by the key store; the worker and the clock
/// outlive it. Any thread.
class PacedSensor {
public:
    /// What sensors are read with.
    struct Tools {
        Executor& worker;
        const Clock& clock;
        TimeSource now;
        Duration patience = SlowRead<double>::usualPatience;
    };

    /// Whether the first call always waits, since who does not get a value then never asks again,
    /// or only while the sensors of the chip were not waited for too long already.
    enum class FirstCall { waits, waitsWithinBound };

    PacedSensor(std::shared_ptr<SensorFile> file, std::shared_ptr<ReadPace> pace,
                const Tools& tools, FirstCall firstCall = FirstCall::waits);

    [[nodiscard]] std::optional<double> value();

private:
    [[nodiscard]] bool isWorthWaiting() const;
    [[nodiscard]] std::optional<double> first();
    [[nodiscard]] std::optional<double> later(Instant now);
    void keep(std::optional<double> value, Instant now);

    const std::shared_ptr<SensorFile> file_;
    const std::shared_ptr<ReadPace> pace_;
    const TimeSource now_;
    const Duration patience_;
    const FirstCall firstCall_;
    SlowRead<double> slow_;
    std::atomic<bool> wasAsked_ = false;
    /// What a caller read itself last; counts until the worker has answered after it.
    std::mutex mutex_;  ///< of all below
    std::optional<double> own_;
    Instant ownAt_{};
    std::uint64_t ownAnswers_ = 0;  ///< of the worker by then
};

}  // namespace vtx
