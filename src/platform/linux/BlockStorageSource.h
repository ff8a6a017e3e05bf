// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "platform/linux/BlockDisk.h"
#include "platform/linux/DeviceChanges.h"
#include "platform/linux/LinuxRoot.h"
#include "platform/linux/RegistryNode.h"

namespace vtx {

/// The services of the class "IOBlockStorageDriver": one for each whole disk. Looked for in
/// /sys/block at first, when devices changed, and when a disk stops answering; never else. Owned by
/// the registry.
class BlockStorageSource final : public RegistrySource {
public:
    BlockStorageSource(const LinuxRoot& root, DeviceChanges& changes)
        : root_(root), changes_(changes) {}

    [[nodiscard]] std::string_view className() const override { return "IOBlockStorageDriver"; }
    [[nodiscard]] RegistryNodes services() override;
    [[nodiscard]] SharedNodes sharedServices() override;

private:
    void renew();
    void look();
    [[nodiscard]] std::shared_ptr<BlockDisk> diskOf(const BlockDevice& device) const;

    const LinuxRoot& root_;
    DeviceChanges& changes_;
    std::uint64_t generation_ = 0;  ///< of the last look
    std::ptrdiff_t failing_ = 0;    ///< disks that did not answer, when it was last asked
    std::vector<std::shared_ptr<BlockDisk>> disks_;
    SharedNodes nodes_ = std::make_shared<const RegistryNodes>();  ///< the same disks
};

}  // namespace vtx
