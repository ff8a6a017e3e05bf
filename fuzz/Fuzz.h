// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace vtx::fuzz {

inline std::string_view asInputText(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

inline std::span<const std::byte> asInputBytes(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const std::byte*>(data), size};
}

/// What holds for every input. Where it does not, the program ends and keeps the input.
inline void expect(bool holds) {
    if (!holds) __builtin_trap();
}

}  // namespace vtx::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
