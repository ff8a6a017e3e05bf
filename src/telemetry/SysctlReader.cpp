// SPDX-License-Identifier: MIT
#include "telemetry/SysctlReader.h"

#include <algorithm>
#include <span>
#include <vector>

#include "platform/Sysctl.h"

namespace vtx {
namespace {

template <class Number>
std::optional<Number> readNumber(Sysctl& sysctl, std::string_view name) {
    Number value = 0;
    std::size_t size = sizeof value;
    const auto into = std::as_writable_bytes(std::span(&value, 1));
    if (sysctl.sysctlbyname(name, into, size) != 0) return std::nullopt;
    return value;
}

}  // namespace

std::optional<std::int32_t> SysctlReader::int32(std::string_view name) const {
    return readNumber<std::int32_t>(sysctl_, name);
}

std::optional<std::int64_t> SysctlReader::int64(std::string_view name) const {
    return readNumber<std::int64_t>(sysctl_, name);
}

std::optional<std::uint64_t> SysctlReader::uint64(std::string_view name) const {
    return readNumber<std::uint64_t>(sysctl_, name);
}

std::optional<std::string> SysctlReader::string(std::string_view name) const {
    std::size_t size = 0;
    if (sysctl_.sysctlbyname(name, {}, size) != 0 || size < 1) return std::nullopt;
    std::vector<std::byte> buffer(size);
    if (sysctl_.sysctlbyname(name, buffer, size) != 0) return std::nullopt;
    const auto end = std::ranges::find(buffer, std::byte{0});
    return std::string(reinterpret_cast<const char*>(buffer.data()),
                       static_cast<std::size_t>(end - buffer.begin()));
}

}  // namespace vtx
