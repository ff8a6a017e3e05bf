// SPDX-License-Identifier: MIT
#include "telemetry/DiskIOMonitor.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "platform/IORegistry.h"

namespace vtx {
namespace {

constexpr int entriesUpward = 6;
constexpr std::string_view unnamed = "—";

std::string_view withoutBlanks(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n\v\f";
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

bool holdsNumbersAlone(PropertyView statistics) {
    const auto* const all = statistics.map();
    return all && std::ranges::all_of(*all, [](const auto& each) {
               return PropertyView(each.second).real().has_value();
           });
}

std::uint64_t counter(PropertyView value) {
    // Registries hold unsigned numbers in the same 64 bits.
    if (const auto whole = value.number()) return static_cast<std::uint64_t>(*whole);
    constexpr double limit = 18446744073709551616.0;  // 2^64, the first that does not fit
    const double real = value.real().value_or(0.0);
    return real > 0.0 && real < limit ? static_cast<std::uint64_t>(real) : 0;
}

}  // namespace

void DiskIOMonitor::refresh() {
    DiskIOReading reading;
    const Moment now(clock_);
    reading.timestamp = now.date;
    reading.volumes = collectVolumes();
    addUp(reading.volumes, totals_);
    if (previousSampleAt_) {
        const double interval = secondsBetween(*previousSampleAt_, now);
        if (const auto rates = ratesBetween(previousTotals_, totals_, interval)) {
            reading.bytesReadPerSecond = rates->bytesRead;
            reading.bytesWrittenPerSecond = rates->bytesWritten;
            reading.readIOPS = rates->readOps;
            reading.writeIOPS = rates->writeOps;
        }
    }
    std::swap(previousTotals_, totals_);
    previousSampleAt_ = now;
    latest = std::move(reading);
}

std::vector<DiskIOSnapshot> DiskIOMonitor::collectVolumes() {
    std::vector<DiskIOSnapshot> volumes;
    const auto match = registry_.serviceMatching("IOBlockStorageDriver");
    if (!match) return volumes;
    const auto services = registry_.getMatchingServices(*match);
    if (services.result != kernSuccess || !services.iterator) return volumes;
    volumes.reserve(drives_);
    while (const auto entry = registry_.iteratorNext(services.iterator))
        if (auto drive = readSnapshot(entry)) volumes.push_back(*std::move(drive));
    drives_ = volumes.size();
    return volumes;
}

std::optional<DiskIOSnapshot> DiskIOMonitor::readSnapshot(const RegistryEntry& from) {
    DiskIOSnapshot drive;
    // The view ends with the next call for the entry, so the numbers are taken first.
    const PropertyView statistics = registry_.entryProperty(from, "Statistics");
    if (!holdsNumbersAlone(statistics)) return std::nullopt;
    drive.bytesRead = counter(statistics["Bytes (Read)"]);
    drive.bytesWritten = counter(statistics["Bytes (Write)"]);
    drive.readOps = counter(statistics["Operations (Read)"]);
    drive.writeOps = counter(statistics["Operations (Write)"]);
    auto [name, bsdDevice] = names(from);
    drive.name = std::move(name);
    drive.bsdDevice = std::move(bsdDevice);
    return drive;
}

DiskIOMonitor::Names DiskIOMonitor::names(const RegistryEntry& of) {
    const auto identifier = registry_.entryGetRegistryEntryID(of);
    if (!identifier) return resolveNames(of);
    const auto known = nameCache_.find(*identifier);
    if (known != nameCache_.end()) return known->second;
    return nameCache_.emplace(*identifier, resolveNames(of)).first->second;
}

DiskIOMonitor::Names DiskIOMonitor::resolveNames(const RegistryEntry& of) {
    auto bsdDevice = bsdNameFromChildren(of);
    auto name = productName(of);
    if (!name) name = bsdDevice;
    if (!name) {
        const auto own = registry_.entryProperty(of, "Name").text();
        name = std::string(own.value_or(unnamed));
    }
    return {*std::move(name), std::move(bsdDevice)};
}

std::optional<std::string> DiskIOMonitor::bsdNameFromChildren(const RegistryEntry& of) {
    const auto children = registry_.entryGetChildIterator(of, planes::service);
    if (children.result != kernSuccess || !children.iterator) return std::nullopt;
    while (const auto child = registry_.iteratorNext(children.iterator))
        if (const auto name = registry_.entryProperty(child, "BSD Name").text())
            return std::string(*name);
    return std::nullopt;
}

std::optional<std::string> DiskIOMonitor::productName(const RegistryEntry& ofAncestorOf) {
    auto entry = registry_.objectRetain(ofAncestorOf);
    for (int i = 0; i < entriesUpward && entry; ++i) {
        const auto product =
            registry_.entryProperty(entry, "Device Characteristics")["Product Name"].text();
        if (product && !withoutBlanks(*product).empty())
            return std::string(withoutBlanks(*product));
        if (i + 1 < entriesUpward) entry = registry_.entryGetParentEntry(entry, planes::service);
    }
    return std::nullopt;
}

}  // namespace vtx
