// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

#include "platform/linux/ArrivalCheck.h"
#include "platform/linux/FileDescriptor.h"
#include "platform/linux/RouteMessages.h"

namespace vtx {

/// All interfaces and addresses, in the kernel's order.
struct RouteTable {
    std::vector<KernelLink> links;
    std::vector<KernelAddress> addresses;
};

/// What the kernel knows of interfaces, and whether that changed. Main executor.
class RouteSource {
public:
    RouteSource() = default;
    RouteSource(const RouteSource&) = delete;
    RouteSource& operator=(const RouteSource&) = delete;
    virtual ~RouteSource() = default;

    /// Whether something may have changed since the last call. Ask before reading, so that what
    /// changes while reading is found the next time. True at first.
    [[nodiscard]] virtual bool hasChanged() = 0;
    /// Fills the table; 0 or an errno value, with which the table means nothing.
    [[nodiscard]] virtual int read(RouteTable& into) = 0;
};

/// By one socket that is kept. The kernel's announcements wait in it until somebody asks: they wake
/// nobody. Where too many waited some are lost, which counts as a change. It is opened with the
/// first call and again after it failed.
class RouteSocket final : public RouteSource {
public:
    [[nodiscard]] bool hasChanged() override;
    [[nodiscard]] int read(RouteTable& into) override;

private:
    [[nodiscard]] int open();
    [[nodiscard]] int ask(std::uint16_t type, std::uint8_t family);
    /// One request and its whole answer, `handle` being given each payload of the type.
    template <class Handle>
    [[nodiscard]] int dump(std::uint16_t request, std::uint16_t type, const Handle& handle);
    /// The next datagram: more than nothing, 0 for none that counts, or an errno value below zero.
    [[nodiscard]] int receive();

    FileDescriptor socket_;
    ArrivalCheck arrivals_;  ///< in the socket, as long as there is one
    std::uint32_t port_ = 0;
    std::uint32_t sequence_ = 0;
    bool hasChanged_ = true;  ///< seen among answers, or not known
    std::vector<std::byte> buffer_;
};

}  // namespace vtx
