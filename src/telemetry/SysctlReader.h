// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vtx {

class Sysctl;

/// Typed reads of named kernel values. Each is absent on any failure of the read. Any thread.
class SysctlReader {
public:
    /// The port must outlive the reader.
    explicit SysctlReader(Sysctl& sysctl) : sysctl_(sysctl) {}

    [[nodiscard]] std::optional<std::int32_t> int32(std::string_view name) const;
    /// A value of 4 bytes reads as its number too.
    [[nodiscard]] std::optional<std::int64_t> int64(std::string_view name) const;
    [[nodiscard]] std::optional<std::uint64_t> uint64(std::string_view name) const;
    /// Up to the first zero byte; absent for a value without any byte.
    [[nodiscard]] std::optional<std::string> string(std::string_view name) const;

private:
    Sysctl& sysctl_;
};

}  // namespace vtx
