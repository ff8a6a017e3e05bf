// SPDX-License-Identifier: MIT
#include "smc/IOHIDBridge.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Clock.h"
#include "base/Log.h"
#include "base/Shared.h"
#include "platform/Ports.h"
#include "smc/BatteryTemperatureReader.h"
#include "smc/TemperatureOutlierFilter.h"

namespace vtx {
namespace {

constexpr Logger logger{"IOHIDBridge"};

constexpr int resolveNowAndGlobally = 10;
constexpr std::int64_t kIOHIDEventTypeTemperature = 15;
constexpr std::int32_t kIOHIDEventFieldTemperatureLevel = 0xF0000;
constexpr std::int32_t kHIDPageAppleVendor = 0xFF00;
constexpr std::int32_t kHIDUsageAppleVendorTemperatureSensor = 5;

constexpr const char* symbols[] = {"IOHIDEventSystemClientCreate",
                                   "IOHIDEventSystemClientSetMatching",
                                   "IOHIDEventSystemClientCopyServices",
                                   "IOHIDServiceClientCopyEvent",
                                   "IOHIDEventGetFloatValue",
                                   "IOHIDServiceClientCopyProperty"};

constexpr std::string_view excluded[] = {"battery", "nand", "ambient", "case", "skin",
                                         "tcal",    "tdev", "charger", "wifi", "display"};
constexpr std::string_view wanted[] = {"cpu", "pacc", "eacc", "tdie"};

bool holdsAny(std::string_view name, std::span<const std::string_view> words) {
    return std::ranges::any_of(
        words, [name](auto word) { return name.find(word) != std::string_view::npos; });
}

char lowerCase(char each) {
    return each >= 'A' && each <= 'Z' ? static_cast<char>(each - 'A' + 'a') : each;
}

}  // namespace

IOHIDBridge* IOHIDBridge::shared() { return Shared<SharedIOHIDBridge>::get().bridge.get(); }

std::unique_ptr<IOHIDBridge> IOHIDBridge::open(const Ports& ports) {
    auto functions = ports.hidEventSystem.open(resolveNowAndGlobally);
    if (!functions) {
        logger.error("dlopen(nil) failed — IOHID bridge disabled");
        return nullptr;
    }
    if (!std::ranges::all_of(symbols, [&](auto symbol) { return functions->resolve(symbol); })) {
        logger.error("One or more IOHIDEventSystem symbols unresolved — falling back");
        return nullptr;
    }
    auto client = functions->createClient();
    if (!client) {
        logger.error("IOHIDEventSystemClientCreate returned nil");
        return nullptr;
    }
    functions->setMatching(*client, {kHIDPageAppleVendor, kHIDUsageAppleVendorTemperatureSensor});
    auto services = functions->copyServices(*client);
    if (!services) {
        logger.error("IOHIDEventSystemClientCopyServices returned nil");
        return nullptr;
    }
    logger.info("IOHID temperature bridge ready ({} services)", services->count());
    return std::unique_ptr<IOHIDBridge>(
        new IOHIDBridge(ports, std::move(functions), std::move(client), std::move(services)));
}

IOHIDBridge::IOHIDBridge(const Ports& ports, std::unique_ptr<HIDEventFunctions> functions,
                         std::unique_ptr<HIDEventClient> client,
                         std::unique_ptr<HIDServices> services)
    : clock_(ports.clock),
      registry_(ports.ioRegistry),
      functions_(std::move(functions)),
      client_(std::move(client)),
      services_(std::move(services)) {}

TemperatureReading IOHIDBridge::readTemperatureReading() {
    std::vector<double> values;
    const std::size_t count = services_->count();
    for (std::size_t index = 0; index < count; ++index)
        if (const auto celsius = readService(index)) values.push_back(*celsius);
    return {TemperatureOutlierFilter::maxRejectingOutliers(std::move(values)),
            BatteryTemperatureReader::readFromAppleSmartBattery(registry_), clock_.now()};
}

std::optional<double> IOHIDBridge::readService(std::size_t index) {
    const auto event = functions_->copyEvent(*services_, index, kIOHIDEventTypeTemperature, 0, 0);
    if (!event) return std::nullopt;
    const double celsius = functions_->eventGetFloatValue(*event, kIOHIDEventFieldTemperatureLevel);
    if (!(celsius > 0.0 && celsius < 120.0)) return std::nullopt;
    const std::string name = lowerCaseName(index);
    if (holdsAny(name, excluded) || !holdsAny(name, wanted)) return std::nullopt;
    return celsius;
}

std::string IOHIDBridge::lowerCaseName(std::size_t index) {
    const auto product = functions_->copyProperty(*services_, index, "Product");
    const auto text = product ? PropertyView(*product).text() : std::nullopt;
    if (!text) return {};
    std::string name(*text);
    std::ranges::transform(name, name.begin(), lowerCase);
    return name;
}

}  // namespace vtx
