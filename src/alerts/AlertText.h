// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace vtx::alertText {

/// The text with every `placeholder` replaced by the number, rounded to a whole one with halves
/// away from zero.
[[nodiscard]] std::string filled(std::string_view text, std::string_view placeholder,
                                 double number);

inline constexpr std::string_view value = "{value}";
inline constexpr std::string_view threshold = "{threshold}";

}  // namespace vtx::alertText
