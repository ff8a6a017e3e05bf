// SPDX-License-Identifier: MIT
#include "telemetry/SystemInfoDetection.h"

#include <algorithm>
#include <span>

#include "base/Bytes.h"
#include "base/ValidUtf8.h"
#include "platform/IORegistry.h"
#include "platform/Ports.h"
#include "telemetry/CoreLayout.h"
#include "telemetry/FanCountReader.h"
#include "telemetry/PMGRReader.h"
#include "telemetry/SysctlReader.h"

namespace vtx {
namespace {

constexpr std::uint32_t transfersInMega = 1'000'000;
constexpr std::string_view zeroBytes("\0", 1);
constexpr std::string_view whiteSpace = " \t\n\v\f\r";

std::string_view trim(std::string_view text, std::string_view characters) {
    const auto first = text.find_first_not_of(characters);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(characters) - first + 1);
}

std::optional<std::string> orAbsent(std::string_view text) {
    if (text.empty()) return std::nullopt;
    return std::string(text);
}

bool isAscii(std::string_view text) {
    return std::ranges::all_of(
        text, [](char character) { return static_cast<unsigned char>(character) < 0x80; });
}

/// Bytes that read as ASCII, as text; absent where they are none.
std::optional<std::string_view> asciiText(PropertyView property) {
    const Data* const bytes = property.data();
    if (!bytes || !isAscii(asText(*bytes))) return std::nullopt;
    return trim(asText(*bytes), zeroBytes);
}

}  // namespace

SystemInfo SystemInfoDetection::detect() const {
    const SysctlReader sysctl(ports_.sysctl);
    SystemInfo info;
    info.chipName = sysctl.string("machdep.cpu.brand_string").value_or("Unknown CPU");
    detectArchitecture(info);
    detectCoreLayout(info);
    detectTopClocks(info);
    info.totalRAMBytes = sysctl.uint64("hw.memsize").value_or(0);
    detectRAMInfo(info);
    detectGPU(info);
    detectBattery(info);
    info.fanCount = FanCountReader(ports_.smc).count();
    info.modelIdentifier = sysctl.string("hw.model").value_or("Unknown");
    const auto marketingName = detectMarketingName();
    info.modelFamily =
        marketingName.value_or(std::string(SystemInfo::modelFamilyFor(info.modelIdentifier)));
    return info;
}

void SystemInfoDetection::detectArchitecture(SystemInfo& info) const {
    const SysctlReader sysctl(ports_.sysctl);
    if (sysctl.int32("hw.optional.arm64") == 1)
        info.architecture = SystemInfo::Architecture::appleSilicon;
    else if (sysctl.int32("hw.cputype"))
        info.architecture = SystemInfo::Architecture::intel;
}

void SystemInfoDetection::detectCoreLayout(SystemInfo& info) const {
    const auto counts = CoreLayout::detectCounts(ports_.sysctl);
    if (!counts) return;
    info.pCoreCount = counts->performance;
    info.eCoreCount = counts->efficiency;
    info.totalCores = info.pCoreCount + info.eCoreCount;
}

void SystemInfoDetection::detectTopClocks(SystemInfo& info) const {
    const auto tables = PMGRReader::detectFrequencyTables(ports_.ioRegistry);
    const auto topClock = [this](const std::vector<double>* stepsMHz, int perflevel) {
        if (stepsMHz && !stepsMHz->empty()) return std::optional(stepsMHz->back());
        return CoreLayout::sysctlMaxMHz(ports_.sysctl, perflevel);
    };
    if (info.pCoreCount >= 1)
        info.pClusterMaxMHz = topClock(tables ? &tables->performanceStepsMHz : nullptr, 0);
    if (info.eCoreCount >= 1)
        info.eClusterMaxMHz = topClock(tables ? &tables->efficiencyStepsMHz : nullptr, 1);
}

void SystemInfoDetection::detectRAMInfo(SystemInfo& info) const {
    const auto properties = propertiesAt("IODeviceTree:/memory");
    if (!properties) return;
    const PropertyView memory(*properties);
    if (const auto type = asciiText(memory["dram-type"])) info.ramType = orAbsent(*type);
    const Data* const speed = memory["dram-speed"].data();
    if (speed && speed->size() >= 4)
        info.ramSpeedMTps = readLittleEndian32(std::span(*speed).first<4>()) / transfersInMega;
}

void SystemInfoDetection::detectGPU(SystemInfo& info) const {
    IORegistry& registry = ports_.ioRegistry;
    const auto match = registry.serviceMatching("IOAccelerator");
    if (!match) return;
    const auto services = registry.getMatchingServices(*match);
    if (services.result != kernSuccess || !services.iterator) return;
    while (const auto entry = registry.iteratorNext(services.iterator)) {
        const auto copied = registry.entryCreateCFProperties(entry);
        if (copied.result != kernSuccess || !copied.properties) continue;
        const PropertyView properties(*copied.properties);
        if (!properties["PerformanceStatistics"].exists()) continue;
        info.hasGPU = true;
        auto name = asciiText(properties["model"]);
        if (!name) name = properties["IOClass"].text();
        info.gpuName = orAbsent(name.value_or(""));
        info.gpuCoreCount = properties["gpu-core-count"].number();
        return;
    }
}

void SystemInfoDetection::detectBattery(SystemInfo& info) const {
    IORegistry& registry = ports_.ioRegistry;
    const auto match = registry.serviceMatching("AppleSmartBattery");
    if (!match) return;
    const auto battery = registry.getMatchingService(*match);
    if (!battery) return;
    info.hasBattery = true;
    const auto copied = registry.entryCreateCFProperties(battery);
    if (copied.result != kernSuccess || !copied.properties) return;
    const PropertyView properties(*copied.properties);
    info.batteryDesignCapacityMAh = properties["DesignCapacity"].number();
    info.batteryCycleCount = properties["CycleCount"].number();
}

std::optional<std::string> SystemInfoDetection::detectMarketingName() const {
    const auto properties = propertiesAt("IODeviceTree:/product");
    if (!properties) return std::nullopt;
    const Data* const bytes = PropertyView(*properties)["product-name"].data();
    if (!bytes || !isValidUtf8(asText(*bytes))) return std::nullopt;
    return orAbsent(trim(trim(asText(*bytes), zeroBytes), whiteSpace));
}

std::optional<Property> SystemInfoDetection::propertiesAt(std::string_view path) const {
    const auto entry = ports_.ioRegistry.entryFromPath(path);
    if (!entry) return std::nullopt;
    auto copied = ports_.ioRegistry.entryCreateCFProperties(entry);
    if (copied.result != kernSuccess) return std::nullopt;
    return std::move(copied.properties);
}

}  // namespace vtx
