// SPDX-License-Identifier: MIT
#include "platform/linux/ControlGroup.h"

#include <algorithm>

#include "platform/linux/Parse.h"

namespace vtx {
namespace {

/// Takes the first name off the front of a path.
std::string_view takeName(std::string_view& path) {
    path.remove_prefix(std::min(path.find_first_not_of('/'), path.size()));
    const auto name = path.substr(0, path.find('/'));
    path.remove_prefix(name.size());
    return name;
}

/// Below app.slice. Applications have units of their own, named for it; what the session did not
/// start itself but took in is a scope.
ControlGroupRole roleOfApp(std::string_view path) {
    while (!path.empty()) {
        const auto name = takeName(path);
        if (name.starts_with("app-") || name.ends_with(".scope"))
            return ControlGroupRole::application;
    }
    return ControlGroupRole::service;
}

/// Below user@NUMBER.service, the user's own session manager.
ControlGroupRole roleInSession(std::string_view path) {
    const auto slice = takeName(path);
    if (slice == "app.slice") return roleOfApp(path);
    if (slice == "session.slice" || slice == "init.scope") return ControlGroupRole::system;
    return slice.empty() ? ControlGroupRole::system : ControlGroupRole::service;
}

}  // namespace

std::string_view controlGroupPath(std::string_view text) {
    std::string_view found;
    while (!text.empty()) {
        const auto line = takeLine(text);
        const auto first = line.find(':');
        const auto second = first == std::string_view::npos ? first : line.find(':', first + 1);
        if (second == std::string_view::npos) continue;
        const auto controllers = line.substr(first + 1, second - first - 1);
        const auto path = line.substr(second + 1);
        if (!controllers.empty() && controllers != "name=systemd") continue;
        if (path.size() > 1 && (found.empty() || controllers.empty())) found = path;
    }
    return found;
}

ControlGroupRole controlGroupRole(std::string_view path) {
    while (!path.empty()) {
        const auto name = takeName(path);
        if (name == "system.slice" || name == "init.scope") return ControlGroupRole::system;
        if (name.starts_with("user@") && name.ends_with(".service")) return roleInSession(path);
    }
    return ControlGroupRole::unknown;
}

}  // namespace vtx
