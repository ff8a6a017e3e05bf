// SPDX-License-Identifier: MIT
#include "alerts/AlertText.h"

#include <fmt/format.h>

#include <cmath>

namespace vtx::alertText {

std::string filled(std::string_view text, std::string_view placeholder, double number) {
    // Adding zero takes the sign of a zero away. No integer type: a stored threshold may be of any
    // size.
    const std::string digits = fmt::format("{:.0f}", std::round(number) + 0.0);
    std::string result;
    for (std::size_t from = 0;;) {
        const std::size_t at = text.find(placeholder, from);
        result += text.substr(from, at - from);
        if (at == std::string_view::npos) return result;
        result += digits;
        from = at + placeholder.size();
    }
}

}  // namespace vtx::alertText
