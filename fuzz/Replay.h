// SPDX-License-Identifier: MIT
// The targets without their fuzzer: all in one program of tests, which hands them the kept inputs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <source_location>
#include <string>

namespace vtx::fuzz {

using Target = int (*)(const std::uint8_t* data, std::size_t size);

/// By the names of their folders in `corpus`.
std::map<std::string, Target>& targets();

/// Adds the target of a source file before the program starts.
struct Replayed {
    Replayed(const char* name, Target target) { targets().emplace(name, target); }
};

/// Leaves the target, and fails the test: an expectation does not hold for the input at hand.
[[noreturn]] void breakAt(const std::source_location& where);

}  // namespace vtx::fuzz
