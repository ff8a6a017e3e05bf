// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxHeapRelief.h"

#include <malloc.h>

#include <algorithm>

#include "platform/linux/Parse.h"

namespace vtx {
namespace {

/// Beyond this no memory goes.
constexpr std::uint64_t kibibytesLimit = std::uint64_t{1} << 50;

std::optional<std::int64_t> kibibytes(std::string_view text, std::string_view key) {
    auto value = fieldOf(text, key);
    if (!value || !value->ends_with(" kB")) return std::nullopt;
    value->remove_suffix(3);
    const auto number = parseUnsigned(*value);
    if (!number || *number > kibibytesLimit) return std::nullopt;
    return static_cast<std::int64_t>(*number);
}

}  // namespace

std::optional<std::int64_t> LinuxHeapRelief::heldBytes(std::string_view smapsRollup) {
    const auto resident = kibibytes(smapsRollup, "Anonymous");
    const auto swapped = kibibytes(smapsRollup, "Swap");
    if (!resident || !swapped) return std::nullopt;
    return (*resident + *swapped) * 1024;
}

std::optional<std::int64_t> LinuxHeapRelief::heldBytes() const {
    const auto text = root_.read("/proc/self/smaps_rollup");
    return text ? heldBytes(*text) : std::nullopt;
}

void LinuxHeapRelief::trim() { ::malloc_trim(0); }

void LinuxHeapRelief::shareHeaps() { ::mallopt(M_ARENA_MAX, 2); }

std::int64_t LinuxHeapRelief::mallocZonePressureRelief() {
    const auto before = heldBytes();
    trim();
    const auto after = heldBytes();
    // Another thread may have taken more meanwhile than was given back.
    return before && after ? std::max<std::int64_t>(*before - *after, 0) : 0;
}

}  // namespace vtx
