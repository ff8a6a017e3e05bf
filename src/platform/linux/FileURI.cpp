// SPDX-License-Identifier: MIT
#include "platform/linux/FileURI.h"

#include <fmt/format.h>

namespace vtx {

std::string fileURI(std::string_view path) {
    constexpr std::string_view plain =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
    std::string uri = "file://";
    for (const char c : path) {
        if (plain.find(c) != std::string_view::npos)
            uri += c;
        else
            uri += fmt::format("%{:02X}", static_cast<unsigned char>(c));
    }
    return uri;
}

}  // namespace vtx
