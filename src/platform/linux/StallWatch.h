// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>

#include "base/Clock.h"
#include "platform/linux/KeptFile.h"
#include "platform/linux/LinuxRoot.h"
#include "platform/linux/MemInfoReader.h"
#include "platform/linux/PressureText.h"
#include "platform/linux/PressureTriggers.h"
#include "platform/linux/RunLoop.h"

namespace vtx {

/// Follows the stalls for one pressure source and tells each change of their level once: what
/// `LinuxMemoryPressure` says of them is done here. Main executor, but for the averages, which are
/// read on the thread that samples the memory. Owned by its source; its callbacks hold it weakly.
class StallWatch : public std::enable_shared_from_this<StallWatch> {
public:
    StallWatch(const LinuxRoot& root, RunLoop& loop, Clock& clock, PressureTriggers& triggers,
               MemInfoReader& memory, std::uint32_t mask);

    void setHandler(std::function<void(std::uint32_t)> handler);
    void begin();
    /// Tells nothing from now on.
    void end();

private:
    /// Each is the worse the larger.
    enum class Level : std::uint8_t { normal, warning, critical };
    /// Microseconds of stall, and when they were read.
    struct Totals {
        MemoryPressure pressure;
        Instant time;
    };
    struct Trigger {
        FileDescriptor file;
        Subscription watch;
    };

    [[nodiscard]] bool openTriggers();
    void closeTriggers();
    void watchTrigger(Trigger& trigger, Level level);
    void followAverages();
    void fired(const FileDescriptor& file, Level level);
    void lookAgainLater();
    void lookAgain();
    void sampled();

    [[nodiscard]] std::optional<MemoryPressure> readPressure();
    /// With the lock held.
    void tell(Level level);

    RunLoop& loop_;
    Clock& clock_;
    PressureTriggers& triggers_;
    MemInfoReader& memory_;
    const std::uint32_t mask_;

    // Main executor alone.
    std::array<Trigger, 2> opened_;
    Subscription nextLook_;
    std::optional<Totals> before_;
    Subscription samples_;

    std::mutex mutex_;  ///< of all below
    KeptFile file_;
    std::function<void(std::uint32_t)> handler_;
    Level level_ = Level::normal;
    bool isUnderWay_ = false;
};

}  // namespace vtx
