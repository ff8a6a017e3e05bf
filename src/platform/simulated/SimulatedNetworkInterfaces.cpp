// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedNetworkInterfaces.h"

#include <arpa/inet.h>

#include <algorithm>
#include <list>
#include <vector>

#include "base/Fault.h"
#include "platform/simulated/Operations.h"

namespace vtx {
/// A list with all that its records look at. Whoever gives it back names it by its first record.
struct SimulatedNetworkInterfaces::Allocation {
    std::vector<InterfaceRecord> records;
    std::list<std::string> names;
    std::list<std::vector<std::byte>> links;
};

namespace {

SocketAddress socketAddress(const std::string& figures, std::uint32_t index) {
    SocketAddress address;
    if (::inet_pton(AF_INET, figures.c_str(), address.host.data()) == 1) {
        address.family = AddressFamily::inet;
    } else if (::inet_pton(AF_INET6, figures.c_str(), address.host.data()) == 1) {
        address.family = AddressFamily::inet6;
        if (figures.starts_with("fe80")) address.scope = index;
    }
    return address;
}

// The kernel writes the name before the address, both into `bytes`.
InterfaceRecord linkRecord(const SimulatedInterface& interface, std::string_view name,
                           std::vector<std::byte>& bytes) {
    for (const char letter : name) bytes.push_back(static_cast<std::byte>(letter));
    SocketAddress address;
    address.family = AddressFamily::link;
    address.link.nameLength = static_cast<std::uint8_t>(name.size());
    if (interface.mac) {
        for (const auto byte : *interface.mac) bytes.push_back(std::byte{byte});
        address.link.addressLength = static_cast<std::uint8_t>(interface.mac->size());
    }
    address.link.data = bytes;
    InterfaceRecord record{name, interface.flags, address, {}, interface.kind};
    if (interface.hasCounters) record.data = {interface.bytesIn, interface.bytesOut};
    return record;
}

}  // namespace

SimulatedNetworkInterfaces::SimulatedNetworkInterfaces(SimulatedNetwork& network,
                                                       Instruments& instruments)
    : network_(network), instruments_(instruments) {}

SimulatedNetworkInterfaces::~SimulatedNetworkInterfaces() = default;

std::unique_ptr<SimulatedNetworkInterfaces::Allocation> SimulatedNetworkInterfaces::makeList()
    const {
    auto made = std::make_unique<Allocation>();
    std::uint32_t index = 0;
    for (const auto& interface : network_.interfaces) {
        const std::string_view name = made->names.emplace_back(interface.name);
        ++index;
        if (interface.hasLink)
            made->records.push_back(linkRecord(interface, name, made->links.emplace_back()));
        for (const auto& figures : interface.addresses)
            made->records.push_back({name, interface.flags, socketAddress(figures, index), {}, {}});
    }
    return made;
}

InterfaceAddresses SimulatedNetworkInterfaces::getifaddrs() {
    if (const auto error = instruments_.enter(operations::getifaddrs)) return {*error, {}};
    if (instruments_.failures.take(operations::getifaddrsNull)) return {};
    network_.liveOn();
    auto made = makeList();
    if (instruments_.failures.take(operations::getifaddrsNoAddress))
        for (auto& record : made->records) record.address.reset();
    if (made->records.empty()) return {};
    instruments_.handles.add(handles::interfaceList);
    const std::span<const InterfaceRecord> records = made->records;
    lists_.emplace(records.data(), std::move(made));
    return {0, {*this, records}};
}

void SimulatedNetworkInterfaces::freeifaddrs(const InterfaceRecord* first) noexcept {
    instruments_.counter.count(operations::freeifaddrs);
    if (lists_.erase(first) == 0) programmingFault("freeifaddrs of what is no list");
    instruments_.handles.remove(handles::interfaceList);
}

std::optional<std::string> SimulatedNetworkInterfaces::getnameinfo(const SocketAddress& address) {
    if (instruments_.enter(operations::getnameinfo)) return std::nullopt;
    std::string text(INET6_ADDRSTRLEN, '\0');
    const int family = address.family == AddressFamily::inet ? AF_INET : AF_INET6;
    if (!::inet_ntop(family, address.host.data(), text.data(), INET6_ADDRSTRLEN))
        return std::nullopt;
    text.resize(text.find('\0'));
    if (address.scope != 0 && address.scope <= network_.interfaces.size())
        text += "%" + network_.interfaces[address.scope - 1].name;
    return text;
}

}  // namespace vtx
