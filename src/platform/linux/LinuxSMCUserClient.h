// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <map>
#include <mutex>
#include <set>

#include "platform/SMCUserClient.h"
#include "platform/linux/SensorKeys.h"

namespace vtx {

/// The user client of the machine's sensors: the service "AppleSMC" of the name
/// "AppleSMCKeysEndpoint" is there where the machine has any sensor, and answers the commands that
/// read on the block of 80 bytes. Writing needs rights that this process has not. Owned by the
/// platform; any thread.
class LinuxSMCUserClient final : public SMCUserClient {
public:
    LinuxSMCUserClient(const LinuxRoot& root, const SensorKeys::Tools& tools)
        : keys_(root, tools) {}

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

    /// Entries, iterators and connections that were given out and have not come back.
    [[nodiscard]] std::size_t outstanding() const;

private:
    /// What a handle stands for: the service, a walk that still has it ahead, or one at its end.
    enum class Object { service, walkBefore, walkBehind };

    [[nodiscard]] IOObject keep(Object object);
    [[nodiscard]] bool isService(const RegistryEntry& entry) const;
    [[nodiscard]] bool isOpen(const SMCConnection& connection) const;

    SensorKeys keys_;
    mutable std::mutex mutex_;  ///< of all below
    std::map<IOObject, Object> objects_;
    std::set<IOConnect> connections_;
    IOObject lastObject_ = ioObjectNull;
    IOConnect lastConnection_ = ioConnectNull;
};

}  // namespace vtx
