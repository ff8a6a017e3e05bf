// SPDX-License-Identifier: MIT
#pragma once

#include <map>

#include "platform/linux/Nvml.h"

namespace vtx {

/// The library itself, loaded when a device of its driver was found and never before, so that the
/// program neither needs nor maps it elsewhere. Its few functions are declared here as their
/// documentation gives them. A session opens the control file of the driver, and a device's file
/// when the device is first asked: both stay open until the session ends. The library stays loaded.
class NvmlLibrary final : public Nvml {
public:
    static constexpr const char* usualName = "libnvidia-ml.so.1";

    /// Null where it cannot be loaded or lacks a function.
    [[nodiscard]] static std::shared_ptr<Nvml> open(const char* name = usualName);
    ~NvmlLibrary() override;

    [[nodiscard]] std::optional<std::uint32_t> utilization(const std::string& address) override;
    void close() override;

private:
    using Result = int;  ///< `nvmlReturn_t`; 0 is success
    using Device = struct NvmlDeviceTag*;

    /// `nvmlUtilization_t`
    struct Utilization {
        unsigned int gpu = 0;
        unsigned int memory = 0;
    };

    struct Functions {
        Result (*init)() = nullptr;
        Result (*shutdown)() = nullptr;
        Result (*deviceByAddress)(const char* address, Device* device) = nullptr;
        Result (*utilizationRates)(Device device, Utilization* utilization) = nullptr;
    };

    explicit NvmlLibrary(const Functions& functions) : functions_(functions) {}
    [[nodiscard]] std::optional<Device> deviceAt(const std::string& address);

    const Functions functions_;
    bool isInitialized_ = false;
    std::map<std::string, Device> devices_;  ///< of this session, by address
};

}  // namespace vtx
