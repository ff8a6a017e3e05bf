// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "base/Data.h"

namespace vtx {

/// Bytes as text in the standard alphabet, padded.
[[nodiscard]] std::string toBase64(std::span<const std::byte> bytes);

/// The bytes that `toBase64` made the text from; absent for every other text.
[[nodiscard]] std::optional<Data> fromBase64(std::string_view text);

}  // namespace vtx
