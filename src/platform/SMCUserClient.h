// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/RegistryWalk.h"
#include "platform/SMCConnection.h"

namespace vtx {

/// The answer of `IOServiceOpen`.
struct SMCOpened {
    KernReturn result = kernFailure;
    SMCConnection connection;
};

/// The System Management Controller's user client: finding its services, connecting to one, and the
/// one call through which a connection asks and writes the values that stand under keys of four
/// characters. What the call carries is a block of 80 bytes each way (see "platform/shapes").
///
/// One connection is used by one thread at a time, different ones by any. A call made on the main
/// executor returns within a millisecond: where a value can be slow to get, the platform gives the
/// last one and asks for the next.
class SMCUserClient : public RegistryObjects, public SMCConnections {
public:
    /// `IOServiceMatching`: a search for services of a class; absent if it cannot be made.
    [[nodiscard]] virtual std::optional<ServiceMatch> serviceMatching(
        std::string_view className) = 0;
    /// `IOServiceGetMatchingServices`.
    [[nodiscard]] virtual RegistryWalk getMatchingServices(const ServiceMatch& match) = 0;
    /// `IOIteratorNext`: null at the end.
    [[nodiscard]] virtual RegistryEntry iteratorNext(const RegistryIterator& iterator) = 0;
    /// `IORegistryEntryGetName`, at most 127 bytes of it; absent if it cannot be read.
    [[nodiscard]] virtual std::optional<std::string> entryGetName(const RegistryEntry& entry) = 0;

    /// `IOServiceOpen` for this task. The connection does not need the service's entry any more.
    [[nodiscard]] virtual SMCOpened serviceOpen(const RegistryEntry& service,
                                                std::uint32_t type) = 0;

    /// `IOConnectCallStructMethod`. `outputSize` says how much of `output` may be filled and then
    /// how much the platform says it filled, which nobody has checked. On failure both mean
    /// nothing. The block tells of failures of its own.
    [[nodiscard]] virtual KernReturn connectCallStructMethod(const SMCConnection& connection,
                                                             std::uint32_t selector,
                                                             std::span<const std::byte> input,
                                                             std::span<std::byte> output,
                                                             std::size_t& outputSize) = 0;
};

}  // namespace vtx
