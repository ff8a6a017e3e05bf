// SPDX-License-Identifier: MIT
#include "platform/linux/NvmlLibrary.h"

#include <dlfcn.h>

#include <utility>

namespace vtx {
namespace {

constexpr int success = 0;

template <class Function>
bool resolve(void* library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(::dlsym(library, name));
    return function != nullptr;
}

}  // namespace

std::shared_ptr<Nvml> NvmlLibrary::open(const char* name) {
    void* const library = ::dlopen(name, RTLD_NOW | RTLD_LOCAL);
    if (!library) return nullptr;
    Functions functions;
    if (!resolve(library, "nvmlInit_v2", functions.init) ||
        !resolve(library, "nvmlShutdown", functions.shutdown) ||
        !resolve(library, "nvmlDeviceGetHandleByPciBusId_v2", functions.deviceByAddress) ||
        !resolve(library, "nvmlDeviceGetUtilizationRates", functions.utilizationRates)) {
        ::dlclose(library);
        return nullptr;
    }
    return std::shared_ptr<Nvml>(new NvmlLibrary(functions));
}

NvmlLibrary::~NvmlLibrary() { close(); }

std::optional<std::uint32_t> NvmlLibrary::utilization(const std::string& address) {
    const auto device = deviceAt(address);
    Utilization rates;
    if (!device || functions_.utilizationRates(*device, &rates) != success) return std::nullopt;
    return rates.gpu;
}

void NvmlLibrary::close() {
    devices_.clear();
    if (std::exchange(isInitialized_, false)) functions_.shutdown();
}

std::optional<NvmlLibrary::Device> NvmlLibrary::deviceAt(const std::string& address) {
    if (const auto known = devices_.find(address); known != devices_.end()) return known->second;
    if (!isInitialized_ && functions_.init() != success) return std::nullopt;
    isInitialized_ = true;
    Device device = nullptr;
    if (functions_.deviceByAddress(address.c_str(), &device) != success) return std::nullopt;
    devices_.emplace(address, device);
    return device;
}

}  // namespace vtx
