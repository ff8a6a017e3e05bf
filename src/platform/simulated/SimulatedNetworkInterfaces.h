// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "platform/NetworkInterfaces.h"
#include "platform/simulated/Instruments.h"
#include "platform/simulated/SimulatedNetwork.h"

namespace vtx {

/// The network interfaces of the simulated machine as its kernel lists them. Main executor.
class SimulatedNetworkInterfaces final : public NetworkInterfaces, private InterfaceMemory {
public:
    SimulatedNetworkInterfaces(SimulatedNetwork& network, Instruments& instruments);
    ~SimulatedNetworkInterfaces() override;

    [[nodiscard]] InterfaceAddresses getifaddrs() override;
    [[nodiscard]] std::optional<std::string> getnameinfo(const SocketAddress& address) override;

private:
    struct Allocation;

    [[nodiscard]] std::unique_ptr<Allocation> makeList() const;
    void freeifaddrs(const InterfaceRecord* first) noexcept override;

    SimulatedNetwork& network_;
    Instruments& instruments_;
    std::map<const InterfaceRecord*, std::unique_ptr<Allocation>> lists_;
};

}  // namespace vtx
