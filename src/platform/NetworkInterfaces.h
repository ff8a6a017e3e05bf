// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace vtx {

/// What a network interface is.
enum class LinkKind { wifi, ethernet, loopback, cellular, vpn, other };

/// The families of addresses that are told apart.
enum class AddressFamily { inet, inet6, link, other };

/// A link-layer address: the interface's name, which need not be there, and then the address itself
/// in `data`. The two lengths are as the kernel says them and may be beyond its end.
struct LinkLayerAddress {
    std::uint8_t nameLength = 0;     ///< `sdl_nlen`
    std::uint8_t addressLength = 0;  ///< `sdl_alen`
    std::span<const std::byte> data;
};

/// An address of any family. Valid as long as the list that it is from.
struct SocketAddress {
    AddressFamily family = AddressFamily::other;
    /// 4 bytes of an IPv4 address, 16 of an IPv6 one.
    std::array<std::byte, 16> host{};
    /// The interface to which an IPv6 address is confined; 0 for none.
    std::uint32_t scope = 0;
    LinkLayerAddress link;
};

/// The kernel's counters of an interface: `ifi_ibytes` and `ifi_obytes`, which wrap at 2^32 on the
/// Mac. Other kernels count in 64 bits.
struct InterfaceData {
    std::uint64_t inBytes = 0;
    std::uint64_t outBytes = 0;
};

/// One record of `getifaddrs`: an interface with one of its addresses. The records of one interface
/// need not stand together. Valid as long as the list.
struct InterfaceRecord {
    std::string_view name;
    std::uint32_t flags = 0;
    std::optional<SocketAddress> address;
    /// Of link records alone, and not of all of them.
    std::optional<InterfaceData> data;
    /// Of link records, where the platform itself knows it; else the name tells.
    std::optional<LinkKind> kind;
};

/// Bits of the flags.
inline constexpr std::uint32_t interfaceIsUp = 0x1;
inline constexpr std::uint32_t interfaceIsRunning = 0x40;

/// Takes lists back.
class InterfaceMemory {
public:
    InterfaceMemory() = default;
    InterfaceMemory(const InterfaceMemory&) = delete;
    InterfaceMemory& operator=(const InterfaceMemory&) = delete;
    virtual ~InterfaceMemory() = default;

    virtual void freeifaddrs(const InterfaceRecord* first) noexcept = 0;
};

/// Owns a list of records, or nothing. Leaving scope gives it back, on every path.
class InterfaceList {
public:
    InterfaceList() = default;
    InterfaceList(InterfaceMemory& memory, std::span<const InterfaceRecord> records)
        : memory_(&memory), records_(records) {}
    InterfaceList(InterfaceList&& other) noexcept
        : memory_(std::exchange(other.memory_, nullptr)),
          records_(std::exchange(other.records_, {})) {}
    InterfaceList& operator=(InterfaceList&& other) noexcept {
        if (this != &other) {
            release();
            memory_ = std::exchange(other.memory_, nullptr);
            records_ = std::exchange(other.records_, {});
        }
        return *this;
    }
    InterfaceList(const InterfaceList&) = delete;
    InterfaceList& operator=(const InterfaceList&) = delete;
    ~InterfaceList() { release(); }

    [[nodiscard]] std::span<const InterfaceRecord> records() const { return records_; }

private:
    void release() {
        if (auto* const memory = std::exchange(memory_, nullptr))
            memory->freeifaddrs(records_.data());
    }

    InterfaceMemory* memory_ = nullptr;
    std::span<const InterfaceRecord> records_;
};

/// The answer of `getifaddrs`: 0 and a list, which may be empty, or an errno value.
struct InterfaceAddresses {
    int error = 0;
    InterfaceList list;
};

/// The machine's network interfaces. Main executor. Nothing is sent.
class NetworkInterfaces {
public:
    NetworkInterfaces() = default;
    NetworkInterfaces(const NetworkInterfaces&) = delete;
    NetworkInterfaces& operator=(const NetworkInterfaces&) = delete;
    virtual ~NetworkInterfaces() = default;

    /// All records as they are now. One list is out at a time.
    [[nodiscard]] virtual InterfaceAddresses getifaddrs() = 0;

    /// `getnameinfo` with `NI_NUMERICHOST`: the address in figures, an IPv6 one with its zone
    /// behind a "%" where it is confined to one; absent where that fails.
    [[nodiscard]] virtual std::optional<std::string> getnameinfo(const SocketAddress& address) = 0;
};

}  // namespace vtx
