// SPDX-License-Identifier: MIT
#include "telemetry/NetworkMonitor.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "base/Log.h"

namespace vtx {
namespace {

constexpr Logger logger{"NetworkMonitor"};
constexpr double leastIntervalSeconds = 0.001;
constexpr std::size_t macBytes = 6;

bool isActive(LinkKind kind, std::uint32_t flags, bool hasAddress) {
    if ((flags & interfaceIsUp) == 0) return false;
    return kind == LinkKind::loopback || ((flags & interfaceIsRunning) != 0 && hasAddress);
}

}  // namespace

void NetworkMonitor::refresh() {
    NetworkReading reading;
    const Moment now(clock_);
    reading.timestamp = now.date;
    reading.interfaces = readInterfaces();
    for (const auto& each : reading.interfaces) {
        if (!each.isActive) continue;
        reading.totalBytesIn += each.bytesIn;
        reading.totalBytesOut += each.bytesOut;
    }
    if (const auto& last = *latest; last && lastReadingAt_) {
        const double interval = secondsBetween(*lastReadingAt_, now);
        if (interval > leastIntervalSeconds) {
            reading.bytesInPerSecond =
                rateBetween(last->totalBytesIn, reading.totalBytesIn, interval);
            reading.bytesOutPerSecond =
                rateBetween(last->totalBytesOut, reading.totalBytesOut, interval);
        }
    }
    reading.primary = pickPrimary(reading.interfaces);
    lastReadingAt_ = now;
    remember(reading);
    latest = std::move(reading);
}

std::vector<NetworkInterfaceSnapshot> NetworkMonitor::readInterfaces() {
    std::vector<NetworkInterfaceSnapshot> interfaces;
    const auto [error, list] = network_.getifaddrs();
    if (error != 0 || list.records().empty()) {
        logger.error("getifaddrs failed: {}", error);
        return interfaces;
    }
    working_.clear();
    for (const InterfaceRecord& record : list.records()) take(record);
    std::ranges::sort(working_, {}, &LinkNotes::name);
    interfaces.reserve(working_.size());
    for (auto& [name, link, ipv4, ipv6] : working_) {
        if (!link) continue;
        NetworkInterfaceSnapshot& shown = interfaces.emplace_back();
        shown.bsdName = name;
        shown.kind = link->kind ? *link->kind : kindByName(name);
        shown.isActive = isActive(shown.kind, link->flags, ipv4 || ipv6);
        shown.ipv4 = std::move(ipv4);
        shown.ipv6 = std::move(ipv6);
        shown.macAddress = std::move(link->mac);
        shown.bytesIn = link->bytesIn;
        shown.bytesOut = link->bytesOut;
    }
    working_.clear();  // the names go with the list
    return interfaces;
}

void NetworkMonitor::take(const InterfaceRecord& record) {
    if (!record.address) return;
    switch (record.address->family) {
        case AddressFamily::inet: {
            auto& ipv4 = named(record.name).ipv4;
            if (!ipv4) ipv4 = network_.getnameinfo(*record.address);
            break;
        }
        case AddressFamily::inet6: {
            auto text = formatIPv6(*record.address);
            auto& ipv6 = named(record.name).ipv6;
            // A link-local one only fills an empty place.
            if (text && !(ipv6 && text->starts_with("fe80"))) ipv6 = std::move(text);
            break;
        }
        case AddressFamily::link:
            takeLink(record, named(record.name).link);
            break;
        case AddressFamily::other:
            break;
    }
}

void NetworkMonitor::takeLink(const InterfaceRecord& record, std::optional<LinkInfo>& into) {
    if (!into) into.emplace();
    if (record.data) {
        into->bytesIn = record.data->inBytes;
        into->bytesOut = record.data->outBytes;
    }
    if (auto mac = extractMAC(*record.address)) into->mac = std::move(mac);
    if (record.kind) into->kind = record.kind;
    into->flags = record.flags;
}

LinkNotes& NetworkMonitor::named(std::string_view name) {
    // A machine has few interfaces, and most records follow one of the same name.
    const auto found =
        std::ranges::find(working_.rbegin(), working_.rend(), name, &LinkNotes::name);
    if (found != working_.rend()) return *found;
    working_.push_back({name, {}, {}, {}});
    return working_.back();
}

std::optional<std::string> NetworkMonitor::extractMAC(const SocketAddress& from) {
    const auto& [nameLength, addressLength, data] = from.link;
    if (addressLength != macBytes || data.size() < nameLength + macBytes) return std::nullopt;
    const auto mac = data.subspan(nameLength, macBytes);
    if (std::ranges::all_of(mac, [](std::byte each) { return each == std::byte{0}; }))
        return std::nullopt;
    return fmt::format("{:02x}:{:02x}:{:02x}:{:02x}:{:02x}:{:02x}", mac[0], mac[1], mac[2], mac[3],
                       mac[4], mac[5]);
}

std::optional<std::string> NetworkMonitor::formatIPv6(const SocketAddress& address) {
    auto text = network_.getnameinfo(address);
    if (text) text->resize(std::min(text->find('%'), text->size()));
    return text;
}

void NetworkMonitor::remember(const NetworkReading& reading) {
    for (const auto& each : reading.interfaces)
        previous_[each.bsdName] = {each.bytesIn, each.bytesOut, reading.timestamp};
    if (previous_.size() == reading.interfaces.size()) return;
    std::erase_if(previous_, [&reading](const auto& sample) {
        return !std::ranges::binary_search(reading.interfaces, sample.first, {},
                                           &NetworkInterfaceSnapshot::bsdName);
    });
}

}  // namespace vtx
