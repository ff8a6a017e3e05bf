// SPDX-License-Identifier: MIT
#pragma once

#include <deque>
#include <map>
#include <mutex>
#include <set>
#include <string>

#include "platform/SMCUserClient.h"
#include "platform/simulated/Instruments.h"
#include "platform/simulated/SimulatedSMC.h"

namespace vtx {

/// The user client of the simulated machine's SMC. Any thread.
class SimulatedSMCUserClient final : public SMCUserClient {
public:
    SimulatedSMCUserClient(SimulatedSMC& smc, Instruments& instruments)
        : smc_(smc), instruments_(instruments) {}

    [[nodiscard]] std::optional<ServiceMatch> serviceMatching(std::string_view className) override;
    [[nodiscard]] RegistryWalk getMatchingServices(const ServiceMatch& match) override;
    [[nodiscard]] RegistryEntry iteratorNext(const RegistryIterator& iterator) override;
    [[nodiscard]] std::optional<std::string> entryGetName(const RegistryEntry& entry) override;
    [[nodiscard]] SMCOpened serviceOpen(const RegistryEntry& service, std::uint32_t type) override;
    [[nodiscard]] KernReturn connectCallStructMethod(const SMCConnection& connection,
                                                     std::uint32_t selector,
                                                     std::span<const std::byte> input,
                                                     std::span<std::byte> output,
                                                     std::size_t& outputSize) override;
    void serviceClose(IOConnect connection) noexcept override;
    void objectRelease(IOObject object) noexcept override;

private:
    /// What stands behind a handle: a service, or a walk over those ahead.
    struct Object {
        std::string name;
        std::deque<std::string> ahead;
        Subscription held;
    };

    [[nodiscard]] IOObject keep(Object object);
    [[nodiscard]] bool isOpen(const SMCConnection& connection) const;
    void count(std::uint8_t command);

    SimulatedSMC& smc_;
    Instruments& instruments_;
    mutable std::mutex mutex_;
    std::map<IOObject, Object> objects_;
    std::map<IOConnect, Subscription> connections_;
    IOObject lastObject_ = ioObjectNull;
    IOConnect lastConnection_ = ioConnectNull;
};

}  // namespace vtx
