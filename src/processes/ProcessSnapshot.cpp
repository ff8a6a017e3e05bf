// SPDX-License-Identifier: MIT
#include "processes/ProcessSnapshot.h"

#include <algorithm>
#include <array>

namespace vtx {
namespace {

/// Lower numbers belong to what the system starts first.
constexpr std::int32_t leastModifiablePid = 100;

constexpr std::array<std::string_view, 6> systemPaths{"/System/",  "/usr/libexec/", "/usr/sbin/",
                                                      "/usr/bin/", "/sbin/",        "/bin/"};

}  // namespace

bool isSystemPath(std::string_view executablePath) {
    return std::ranges::any_of(
        systemPaths, [=](std::string_view path) { return executablePath.starts_with(path); });
}

bool ProcessSnapshot::isOwnSoftware(std::uint32_t user) const {
    if (uid != user || !executablePath) return false;
    return !isSystemSoftware.value_or(isSystemPath(*executablePath));
}

bool ProcessSnapshot::isModifiable(std::uint32_t user) const {
    return isOwnSoftware(user) && pid >= leastModifiablePid && name != "kernel_task" &&
           name != "launchd";
}

}  // namespace vtx
