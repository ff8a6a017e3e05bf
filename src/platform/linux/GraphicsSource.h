// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "base/Clock.h"
#include "platform/linux/AmdGraphics.h"
#include "platform/linux/DeviceChanges.h"
#include "platform/linux/LinuxRoot.h"
#include "platform/linux/RegistryNode.h"

namespace vtx {

/// The services of the class "IOAccelerator": the graphics devices whose load the kernel tells, one
/// for each PCI address, integrated ones first. So far those of the driver amdgpu. Looked for in
/// /sys/class/drm at first and when devices changed, never else. Owned by the registry.
class GraphicsSource final : public RegistrySource {
public:
    GraphicsSource(const LinuxRoot& root, const Clock& clock, DeviceChanges& changes)
        : root_(root), clock_(clock), changes_(changes) {}

    [[nodiscard]] std::string_view className() const override { return "IOAccelerator"; }
    [[nodiscard]] RegistryNodes services() override;

private:
    /// Integrated before discrete, then by address.
    using Key = std::pair<bool, std::string>;

    void look();
    [[nodiscard]] std::optional<Key> keyOf(const std::string& card) const;

    const LinuxRoot& root_;
    const Clock& clock_;
    DeviceChanges& changes_;
    std::uint64_t generation_ = 0;  ///< of the last look
    std::map<Key, std::shared_ptr<AmdGraphics>> devices_;
};

}  // namespace vtx
