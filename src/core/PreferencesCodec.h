// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "base/Data.h"
#include "core/DisplayPreferences.h"

namespace vtx {

/// Reads a stored record, whatever its generation. A damaged member costs as little as its class
/// allows; members that no field has are passed over, and a JSON null counts as absent. Absent
/// where the bytes are no JSON object in UTF-8, nest deeper than 512 levels, or hold a member of
/// the wrong type whose class does not forgive it. Values come as stored: no bounds are applied
/// here.
[[nodiscard]] std::optional<DisplayPreferences> decodePreferences(
    std::span<const std::byte> stored);

/// The record as a JSON object with one member per field. Absent where a float is not finite or a
/// text is not UTF-8, which JSON cannot hold.
[[nodiscard]] std::optional<Data> encodePreferences(const DisplayPreferences& preferences);

}  // namespace vtx
