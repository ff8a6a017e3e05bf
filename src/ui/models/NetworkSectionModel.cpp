// SPDX-License-Identifier: MIT
#include "ui/models/NetworkSectionModel.h"

#include <algorithm>

#include "ui/models/Formatters.h"
#include "ui/models/SectionFormatters.h"
#include "ui/models/SectionText.h"

namespace vtx {
namespace {

using Key = L10n::Key;
using Kind = NetworkInterfaceSnapshot::Kind;

struct KindDescription {
    Key label;
    const char* symbol;
};

KindDescription describe(Kind kind) {
    switch (kind) {
        case Kind::wifi:
            return {Key::network_typeWiFi, "wifi"};
        case Kind::ethernet:
            return {Key::network_typeEthernet, "cable.connector"};
        case Kind::loopback:
            return {Key::network_typeLoopback, "arrow.triangle.2.circlepath"};
        case Kind::cellular:
            return {Key::network_typeCellular, "antenna.radiowaves.left.and.right"};
        case Kind::vpn:
            return {Key::network_typeVPN, "lock.shield"};
        case Kind::other:
            break;
    }
    return {Key::network_typeOther, "questionmark.circle"};
}

std::vector<FigureModel> throughputOf(const NetworkReading& reading, const Localization& texts) {
    return {{"arrow.down.circle.fill", text(texts, Key::network_downSpeed),
             formatRate(reading.bytesInPerSecond), Hue::cyan, text(texts, Key::network_totalDown),
             formatNetworkBytes(reading.totalBytesIn)},
            {"arrow.up.circle.fill", text(texts, Key::network_upSpeed),
             formatRate(reading.bytesOutPerSecond), Hue::orange, text(texts, Key::network_totalUp),
             formatNetworkBytes(reading.totalBytesOut)}};
}

PrimaryInterfaceModel primaryOf(const NetworkInterfaceSnapshot& primary,
                                const Localization& texts) {
    const auto row = [&texts](Key key, const std::optional<std::string>& address) {
        return KeyValueModel{text(texts, key), address.value_or(std::string(emptyMark))};
    };
    return {describe(primary.kind).symbol,
            text(texts, Key::network_active),
            primary.bsdName,
            {row(Key::network_ipv4, primary.ipv4), row(Key::network_ipv6, primary.ipv6),
             row(Key::network_macAddress, primary.macAddress)}};
}

InterfaceRowModel rowOf(const NetworkInterfaceSnapshot& interface, const Localization& texts) {
    const KindDescription kind = describe(interface.kind);
    return {kind.symbol,
            interface.bsdName,
            text(texts, kind.label),
            text(texts, interface.isActive ? Key::network_active : Key::network_inactive),
            interface.isActive ? Hue::green : Hue::secondary,
            interface.isActive};
}

}  // namespace

NetworkSectionModel describeNetworkSection(const std::optional<NetworkReading>& reading,
                                           const Localization& texts) {
    NetworkSectionModel model;
    if (!reading) {
        model.collecting = text(texts, Key::memory_collecting);
        return model;
    }
    if (reading->interfaces.empty()) {
        model.placeholder =
            PlaceholderModel{"wifi.slash", text(texts, Key::network_unavailable), ""};
        return model;
    }
    model.title = text(texts, Key::network_title);
    model.throughput = throughputOf(*reading, texts);
    if (reading->primary) model.primary = primaryOf(*reading->primary, texts);
    model.interfacesTitle = text(texts, Key::network_interfaces);
    if (std::ranges::none_of(reading->interfaces, &NetworkInterfaceSnapshot::isActive))
        model.noneActive = text(texts, Key::network_noActive);
    for (const NetworkInterfaceSnapshot& interface : reading->interfaces)
        model.interfaces.push_back(rowOf(interface, texts));
    return model;
}

}  // namespace vtx
