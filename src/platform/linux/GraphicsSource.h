// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "base/Clock.h"
#include "base/Executor.h"
#include "platform/linux/DeviceChanges.h"
#include "platform/linux/GraphicsDevice.h"
#include "platform/linux/IntelLoad.h"
#include "platform/linux/LinuxRoot.h"
#include "platform/linux/Nvml.h"
#include "platform/linux/RegistryNode.h"

namespace vtx {

/// The services of the class "IOAccelerator": the graphics devices whose driver tells a load, one
/// for each PCI address, integrated ones first. Looked for at first and when devices changed, never
/// else. Owned by the registry.
///
/// | driver | found in | load |
/// |---|---|---|
/// | amdgpu | /sys/class/drm | `AmdLoad`, on the thread for what may block |
/// | i915, xe | /sys/class/drm | `IntelLoad` |
/// | nvidia | /sys/bus/pci/drivers/nvidia, for it may have no card | `NvidiaLoad`, on that thread |
///
/// Other drivers, nouveau among them, tell none.
class GraphicsSource final : public RegistrySource {
public:
    /// What loads are read with. The executor outlives the source.
    struct Tools {
        Executor& slowReads;
        NvmlOpener openNvml;
        IntelLoad::Pause pause;
    };

    GraphicsSource(const LinuxRoot& root, const Clock& clock, DeviceChanges& changes, Tools tools)
        : root_(root), clock_(clock), changes_(changes), tools_(std::move(tools)) {}

    [[nodiscard]] std::string_view className() const override { return "IOAccelerator"; }
    [[nodiscard]] RegistryNodes services() override;

private:
    /// Integrated before discrete, then by address.
    using Key = std::pair<bool, std::string>;
    using Devices = std::map<Key, std::shared_ptr<GraphicsDevice>>;
    using Load = std::unique_ptr<GraphicsLoad>;

    void look();
    void lookAtCard(const std::string& card, Devices& found);
    void lookAtNvidia(Devices& found);
    void add(bool isDiscrete, const std::string& driver, const std::string& address,
             const std::function<Load()>& makeLoad, Devices& found);
    [[nodiscard]] Load slowly(const std::string& folder, std::shared_ptr<GraphicsLoad> load);

    const LinuxRoot& root_;
    const Clock& clock_;
    DeviceChanges& changes_;
    const Tools tools_;
    std::shared_ptr<Nvml> nvml_;    ///< null until a device needs it, and where there is none
    std::uint64_t generation_ = 0;  ///< of the last look
    Devices devices_;
};

}  // namespace vtx
