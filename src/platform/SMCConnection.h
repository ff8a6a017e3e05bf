// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <utility>

namespace vtx {

/// Names a connection to a user client, as the platform does; 0 names none.
using IOConnect = std::uint32_t;
inline constexpr IOConnect ioConnectNull = 0;

/// Takes connections back.
class SMCConnections {
public:
    SMCConnections() = default;
    SMCConnections(const SMCConnections&) = delete;
    SMCConnections& operator=(const SMCConnections&) = delete;
    virtual ~SMCConnections() = default;

    /// `IOServiceClose`. Any thread.
    virtual void serviceClose(IOConnect connection) noexcept = 0;
};

/// Owns one connection to the SMC, or none. Leaving scope closes it, on every path. The port that
/// opened it outlives it.
class SMCConnection {
public:
    SMCConnection() = default;
    SMCConnection(SMCConnections& owner, IOConnect connection)
        : owner_(&owner), connection_(connection) {}
    SMCConnection(SMCConnection&& other) noexcept
        : owner_(other.owner_), connection_(std::exchange(other.connection_, ioConnectNull)) {}
    SMCConnection& operator=(SMCConnection&& other) noexcept {
        if (this != &other) {
            reset();
            owner_ = other.owner_;
            connection_ = std::exchange(other.connection_, ioConnectNull);
        }
        return *this;
    }
    SMCConnection(const SMCConnection&) = delete;
    SMCConnection& operator=(const SMCConnection&) = delete;
    ~SMCConnection() { reset(); }

    [[nodiscard]] IOConnect get() const { return connection_; }
    explicit operator bool() const { return connection_ != ioConnectNull; }

    /// Closes it now.
    void reset() {
        if (const auto open = std::exchange(connection_, ioConnectNull)) owner_->serviceClose(open);
    }

private:
    SMCConnections* owner_ = nullptr;
    IOConnect connection_ = ioConnectNull;
};

}  // namespace vtx
