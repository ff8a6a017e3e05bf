// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#ifdef VANTRIX_FUZZ_TARGET
#include "Replay.h"
#endif

namespace vtx::fuzz {

inline std::string_view asInputText(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

inline std::span<const std::byte> asInputBytes(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const std::byte*>(data), size};
}

/// What holds for every input. Where it does not, the fuzzer ends and keeps the input, and the test
/// fails that replays it.
#ifdef VANTRIX_FUZZ_TARGET
inline void expect(bool holds, std::source_location where = std::source_location::current()) {
    if (!holds) breakAt(where);
}
#else
inline void expect(bool holds) {
    if (!holds) __builtin_trap();
}
#endif

}  // namespace vtx::fuzz

#ifdef VANTRIX_FUZZ_TARGET
static int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
static const vtx::fuzz::Replayed replayed(VANTRIX_FUZZ_TARGET, LLVMFuzzerTestOneInput);
#else
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
#endif
