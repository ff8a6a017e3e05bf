// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxNetworkInterfaces.h"

#include <arpa/inet.h>

#include <algorithm>
#include <cerrno>

#include "platform/linux/LinkKinds.h"
#include "platform/linux/NetDevice.h"
#include "platform/linux/Parse.h"

namespace vtx {
namespace {

constexpr std::size_t usualCounters = 4096;
constexpr std::size_t countersLimit = 4 << 20;

/// The kernel was busy with changes, and the next time it will not be.
bool isPassing(int error) { return error == EINTR || error == EAGAIN || error == ENOBUFS; }

InterfaceRecord linkRecord(const KernelLink& link, LinkKind kind) {
    SocketAddress address;
    address.family = AddressFamily::link;
    address.link.addressLength = static_cast<std::uint8_t>(link.address.size());
    address.link.data = link.address;
    return {link.name, link.flags, address, {}, kind};
}

InterfaceRecord addressRecord(const KernelLink& link, const KernelAddress& of) {
    SocketAddress address;
    address.family = of.isIPv6 ? AddressFamily::inet6 : AddressFamily::inet;
    address.host = of.host;
    address.scope = of.isIPv6 && of.isLinkLocal ? of.index : 0;
    return {link.name, link.flags, address, {}, {}};
}

}  // namespace

InterfaceAddresses LinuxNetworkInterfaces::getifaddrs() {
    if (routes_->hasChanged() || !isTableGood_)
        if (const int error = readTable()) return {error, {}};
    Seen seen = readCounters();
    if (seen == Seen::others) {
        // Some came or went since they were asked for.
        if (const int error = readTable()) return {error, {}};
        seen = readCounters();
    }
    if (seen == Seen::nothing) return {EIO, {}};
    return {0, {*this, records_}};
}

int LinuxNetworkInterfaces::readTable() {
    RouteTable fresh;
    const int error = routes_->read(fresh);
    if (error != 0) {
        if (isTableGood_ && isPassing(error)) return 0;
        isTableGood_ = false;
        return error;
    }
    table_ = std::move(fresh);
    isTableGood_ = true;
    makeRecords();
    return 0;
}

void LinuxNetworkInterfaces::makeRecords() {
    records_.clear();
    figures_.clear();
    for (const KernelLink& link : table_.links)
        records_.push_back(linkRecord(link, kindOf(link, readLinkFacts(root_, link.name))));
    for (const KernelAddress& address : table_.addresses) {
        const auto link = std::ranges::find(table_.links, address.index, &KernelLink::index);
        if (link == table_.links.end()) continue;
        records_.push_back(addressRecord(*link, address));
        const SocketAddress& shown = *records_.back().address;
        if (auto text = figuresOf(shown)) figures_.push_back({shown, *std::move(text)});
    }
}

LinuxNetworkInterfaces::Seen LinuxNetworkInterfaces::readCounters() {
    // The first part has them all, as a rule, and what is behind it would have been announced.
    const auto part = counters_.read(usualCounters);
    if (part && takeCounters(*part) == Seen::all) return Seen::all;
    const auto whole = counters_.readWhole(countersLimit);
    return whole ? takeCounters(*whole) : Seen::nothing;
}

LinuxNetworkInterfaces::Seen LinuxNetworkInterfaces::takeCounters(std::string_view rest) {
    const auto links = std::span(records_).first(table_.links.size());
    for (auto& record : links) record.data.reset();
    std::size_t place = 0;
    std::size_t seen = 0;
    bool areOthers = false;
    while (!rest.empty()) {
        const auto line = parseNetDeviceLine(takeLine(rest));
        if (!line) continue;
        // The kernel lists them in the same order, as a rule.
        const auto isIt = [&line](const InterfaceRecord& each) { return each.name == line->name; };
        auto found = std::ranges::find_if(links.subspan(place), isIt);
        if (found == links.end()) found = std::ranges::find_if(links, isIt);
        areOthers = areOthers || found == links.end();
        if (found == links.end()) continue;
        found->data = {line->bytesIn, line->bytesOut};
        place = static_cast<std::size_t>(found - links.begin()) + 1;
        ++seen;
    }
    return areOthers || seen != links.size() ? Seen::others : Seen::all;
}

std::optional<std::string> LinuxNetworkInterfaces::getnameinfo(const SocketAddress& address) {
    const auto known = std::ranges::find_if(figures_, [&address](const Figures& each) {
        return each.of.family == address.family && each.of.host == address.host &&
               each.of.scope == address.scope;
    });
    return known == figures_.end() ? figuresOf(address) : known->text;
}

std::optional<std::string> LinuxNetworkInterfaces::figuresOf(const SocketAddress& address) const {
    const bool isIPv6 = address.family == AddressFamily::inet6;
    if (!isIPv6 && address.family != AddressFamily::inet) return std::nullopt;
    std::array<char, INET6_ADDRSTRLEN> text{};
    if (!::inet_ntop(isIPv6 ? AF_INET6 : AF_INET, address.host.data(), text.data(), text.size()))
        return std::nullopt;
    std::string figures = text.data();
    if (address.scope == 0) return figures;
    const auto link = std::ranges::find(table_.links, address.scope, &KernelLink::index);
    if (link != table_.links.end()) figures.append("%").append(link->name);
    return figures;
}

}  // namespace vtx
