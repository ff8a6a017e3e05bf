// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace vtx {

/// An absolute path as a URI of the scheme "file", each byte escaped that has a meaning there or is
/// not plain ASCII.
[[nodiscard]] std::string fileURI(std::string_view path);

}  // namespace vtx
