// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <mutex>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/linux/BlockDevices.h"
#include "platform/linux/BlockStat.h"
#include "platform/linux/KeptFile.h"
#include "platform/linux/LinuxRoot.h"
#include "platform/linux/RegistryNode.h"

namespace vtx {

/// A disk's driver, with its medium below it: /sys/block/NAME/stat as "Statistics", which are
/// missing while it cannot be read, and the model as "Product Name" of "Device Characteristics".
/// Shared by the source and by those that hold entries. Any thread.
///
/// The file of one disk takes a third of the time of /proc/diskstats on a machine with ten devices,
/// and that one also has a line for each partition, loop and mapping.
class BlockDisk final : public RegistryNode {
public:
    BlockDisk(const LinuxRoot& root, BlockDevice device);

    [[nodiscard]] bool isThere() override { return !isRemoved_; }
    [[nodiscard]] std::optional<PropertyMap> properties() override;
    [[nodiscard]] bool property(std::string_view key, KeptProperty& kept) override;

    [[nodiscard]] const BlockDevice& device() const { return device_; }
    /// Whether the last reading failed, as it does for a disk that has gone.
    [[nodiscard]] bool isFailing() const { return isFailing_; }
    /// The kernel lists it no more.
    void remove() { isRemoved_ = true; }

private:
    [[nodiscard]] std::optional<BlockStat> read();
    /// The sum over the ways to it: kernels before 6.4 count there alone.
    [[nodiscard]] BlockStat readPaths();

    const BlockDevice device_;
    std::atomic<bool> isRemoved_ = false;
    std::atomic<bool> isFailing_ = false;

    std::mutex mutex_;  ///< of all below
    KeptFile stat_;
    std::vector<KeptFile> pathStats_;
};

}  // namespace vtx
