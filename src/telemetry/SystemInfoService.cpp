// SPDX-License-Identifier: MIT
#include "telemetry/SystemInfoService.h"

#include <algorithm>
#include <utility>

#include "base/Log.h"
#include "platform/Ports.h"
#include "platform/ProcessInfo.h"
#include "telemetry/SystemInfoDetection.h"

namespace vtx {
namespace {

constexpr Logger logger{"SystemInfoService"};

SystemInfo infoOf(const Ports& ports) {
    if (SystemInfoService::isRunningTests(ports.processInfo)) {
        logger.standard("SystemInfoService: test environment, using placeholder");
        return SystemInfoService::placeholder();
    }
    SystemInfo info = SystemInfoService::detect(ports);
    logger.info(
        "SystemInfo: chip={} arch={} cores={}P+{}E ram={}GB gpu={} battery={} fans={} "
        "model={}",
        info.chipName, name(info.architecture), info.pCoreCount, info.eCoreCount,
        info.totalRAMBytes >> 30, info.gpuName.value_or("—"), info.hasBattery, info.fanCount,
        info.modelIdentifier);
    return info;
}

}  // namespace

SystemInfoService::SystemInfoService(const Ports& ports) : info(*this, infoOf(ports)) {}

bool SystemInfoService::isRunningTests(const ProcessInfo& process) {
    if (process.environment("XCTestConfigurationFilePath")) return true;
    const auto bundles = process.loadedBundlePaths();
    return std::ranges::any_of(bundles, [](const auto& path) { return path.ends_with(".xctest"); });
}

SystemInfo SystemInfoService::detect(const Ports& ports) {
    return SystemInfoDetection(ports).detect();
}

SystemInfo SystemInfoService::placeholder() {
    SystemInfo info;
    info.chipName = "Apple Silicon";
    info.architecture = SystemInfo::Architecture::appleSilicon;
    info.modelIdentifier = "Unknown";
    info.modelFamily = "Mac";
    return info;
}

}  // namespace vtx
