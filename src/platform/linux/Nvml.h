// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace vtx {

/// What is asked of the management library of NVIDIA's driver. One thread at a time.
class Nvml {
public:
    Nvml() = default;
    Nvml(const Nvml&) = delete;
    Nvml& operator=(const Nvml&) = delete;
    virtual ~Nvml() = default;

    /// `nvmlDeviceGetUtilizationRates` of the device with that PCI address, in percent; absent
    /// where the driver refuses. Begins a session first where there is none. May block, and wakes
    /// the device.
    [[nodiscard]] virtual std::optional<std::uint32_t> utilization(const std::string& address) = 0;
    /// `nvmlShutdown`: ends the session, if there is one, and with it the hold on every device.
    virtual void close() = 0;
};

/// Opens the library; null where the machine has none.
using NvmlOpener = std::function<std::shared_ptr<Nvml>()>;

}  // namespace vtx
