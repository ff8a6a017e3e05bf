// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "base/Clock.h"
#include "platform/linux/DeviceChanges.h"
#include "platform/linux/KeptFile.h"
#include "platform/linux/LinuxRoot.h"
#include "platform/linux/MemInfo.h"

namespace vtx {

/// Reads /proc/meminfo, and the pools of zram devices where there are any, for all ports that tell
/// of the memory: one `pread` of a file kept open serves the page counts and the swap figures of
/// the same moment. Any thread; owned by the platform.
class MemInfoReader {
public:
    struct Sample {
        MemInfo info;
        std::uint64_t zramBytes = 0;  ///< taken by the pools of all zram devices
    };

    MemInfoReader(const LinuxRoot& root, const Clock& clock, DeviceChanges& changes);

    /// As it is now; absent where the file is not understood. Tells those that follow.
    [[nodiscard]] std::optional<Sample> read();
    /// The last sample if that is a few milliseconds old, else one read now, which nobody is told
    /// of.
    [[nodiscard]] std::optional<Sample> recent();

    /// Calls `handler` with each `read`, on its thread, so that what belongs to a sample of the
    /// memory is read along with it. Once the token has gone it is not running.
    [[nodiscard]] Subscription onRead(std::function<void()> handler);

private:
    using Handlers = std::list<std::function<void()>>;
    struct Followers {
        std::mutex mutex;
        Handlers handlers;
    };
    struct ZramDevice {
        std::string name;
        KeptFile file;
    };

    [[nodiscard]] std::optional<Sample> readLocked();
    [[nodiscard]] std::uint64_t zramBytes();
    void findZramDevices();

    const LinuxRoot& root_;
    const Clock& clock_;
    DeviceChanges& changes_;
    const std::shared_ptr<Followers> followers_ = std::make_shared<Followers>();

    std::mutex mutex_;  ///< of all below
    KeptFile file_;
    MemInfoText text_;              ///< of that file
    std::uint64_t generation_ = 0;  ///< of the zram devices
    std::vector<ZramDevice> zram_;
    std::optional<Sample> last_;
    Instant lastTime_;
};

}  // namespace vtx
