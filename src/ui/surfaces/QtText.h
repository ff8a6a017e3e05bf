// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <string_view>

namespace vtx {

/// A text of the logic as one of the toolkit.
inline QString qt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace vtx
