// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace vtx {

/// Bytes without a meaning of their own, as stores and registries hold them.
using Data = std::vector<std::byte>;

inline Data toData(std::string_view text) {
    const auto bytes = std::as_bytes(std::span(text.data(), text.size()));
    return {bytes.begin(), bytes.end()};
}

/// The bytes read as text; the view lives as long as the data and need not be valid UTF-8.
inline std::string_view asText(std::span<const std::byte> data) {
    return {reinterpret_cast<const char*>(data.data()), data.size()};
}

}  // namespace vtx
