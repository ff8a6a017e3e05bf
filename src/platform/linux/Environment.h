// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace vtx {

/// Looks up an environment variable; absent when it is not set.
using Environment = std::function<std::optional<std::string>(std::string_view name)>;

/// The environment of this process.
inline Environment processEnvironment() {
    return [](std::string_view name) -> std::optional<std::string> {
        const char* const value = std::getenv(std::string(name).c_str());
        if (!value) return std::nullopt;
        return value;
    };
}

/// Where the bus of the user's session listens, whether or not there is one. Never empty, which
/// would stand for the system's; a variable that is empty counts as one that is not set.
inline std::string sessionBusAddress(const Environment& environment = processEnvironment()) {
    auto address = environment("DBUS_SESSION_BUS_ADDRESS");
    if (address && !address->empty()) return *std::move(address);
    const auto folder = environment("XDG_RUNTIME_DIR").value_or("");
    return "unix:path=" + (folder.empty() ? "/nonexistent" : folder) + "/bus";
}

}  // namespace vtx
