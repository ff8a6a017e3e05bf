// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "base/Data.h"
#include "ui/shell/StripPlacement.h"

namespace vtx {

/// How the place of the strip is stored: a small JSON object under a key of its own.
namespace StripRecordCodec {

inline constexpr std::string_view key = "linuxStrip.placement.v1";

[[nodiscard]] Data encode(const StripRecord& record);

/// Absent for anything that is not a whole record; distances beyond any screen are limited.
[[nodiscard]] std::optional<StripRecord> decode(std::span<const std::byte> stored);

}  // namespace StripRecordCodec

}  // namespace vtx
