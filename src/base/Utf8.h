// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace vtx {

/// The bytes as UTF-8, with U+FFFD in place of each part that is none: surrogates, overlong forms
/// and numbers beyond the last character are none. Of a sequence that breaks off, the longest
/// beginning that could have become a character is one part.
[[nodiscard]] std::string repairedUtf8(std::string_view bytes);

}  // namespace vtx
