// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace vtx {

/// Named kernel values. Any thread.
class Sysctl {
public:
    Sysctl() = default;
    Sysctl(const Sysctl&) = delete;
    Sysctl& operator=(const Sysctl&) = delete;
    virtual ~Sysctl() = default;

    /// Reads a value of at most `into.size()` bytes and sets `size` to the bytes written. An empty
    /// `into` asks for the size alone. Numbers are 4 or 8 bytes in the machine's order, texts end
    /// with a zero byte that counts. Returns 0, ENOENT for an unknown name, ENOMEM for a value that
    /// does not fit, or another errno value; on failure `into` and `size` mean nothing.
    [[nodiscard]] virtual int sysctlbyname(std::string_view name, std::span<std::byte> into,
                                           std::size_t& size) = 0;
};

}  // namespace vtx
