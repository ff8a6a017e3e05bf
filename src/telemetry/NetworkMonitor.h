// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Moment.h"
#include "base/Published.h"
#include "telemetry/NetworkReading.h"

namespace vtx {

/// What the link records of one name said.
struct LinkInfo {
    std::uint64_t bytesIn = 0;
    std::uint64_t bytesOut = 0;
    std::optional<std::string> mac;
    std::uint32_t flags = 0;
    std::optional<LinkKind> kind;  ///< absent where the name is to tell
};

/// What all records of one name said so far, while they are read. The name is the list's.
struct LinkNotes {
    std::string_view name;
    std::optional<LinkInfo> link;
    std::optional<std::string> ipv4;
    std::optional<std::string> ipv6;
};

/// Publishes the network interfaces and what goes through them. Lives on the main executor; made
/// once at start and owned by the composition root for the life of the process.
class NetworkMonitor : public ObservableObject {
public:
    /// An interface's counters at the last refresh.
    struct PrevSample {
        std::uint64_t bytesIn = 0;
        std::uint64_t bytesOut = 0;
        Date timestamp;

        friend bool operator==(const PrevSample&, const PrevSample&) = default;
    };
    using Samples = std::map<std::string, PrevSample, std::less<>>;

    /// The ports must outlive the monitor.
    NetworkMonitor(NetworkInterfaces& network, const Clock& clock)
        : network_(network), clock_(clock) {}

    /// Reads all interfaces and publishes them, with rates from the second time on.
    void refresh();

    /// Absent before the first refresh; never absent again after that.
    Published<std::optional<NetworkReading>> latest{*this};

    /// By name; of the last refresh alone.
    [[nodiscard]] const Samples& previous() const { return previous_; }

    /// Every interface that has a link record, by name; empty, and said so, where the platform
    /// gives none.
    [[nodiscard]] std::vector<NetworkInterfaceSnapshot> readInterfaces();
    /// The six bytes behind the name; absent for another number of them and for zeros alone.
    [[nodiscard]] static std::optional<std::string> extractMAC(const SocketAddress& from);
    /// Without its zone; absent where the platform cannot say it.
    [[nodiscard]] std::optional<std::string> formatIPv6(const SocketAddress& address);

private:
    LinkNotes& named(std::string_view name);
    void take(const InterfaceRecord& record);
    void takeLink(const InterfaceRecord& record, std::optional<LinkInfo>& into);
    void remember(const NetworkReading& reading);

    NetworkInterfaces& network_;
    const Clock& clock_;
    Samples previous_;
    std::optional<Moment> lastReadingAt_;
    std::vector<LinkNotes> working_;  ///< empty between two refreshes; kept for its memory
};

}  // namespace vtx
