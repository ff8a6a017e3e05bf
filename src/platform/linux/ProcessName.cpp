// SPDX-License-Identifier: MIT
#include "platform/linux/ProcessName.h"

#include <algorithm>

namespace vtx {
namespace {

/// An interpreter has at most a few options before the script.
constexpr int argumentsLookedAt = 6;
/// Longer names are no file names.
constexpr std::size_t nameLimit = 255;

std::string_view lastPart(std::string_view path) { return path.substr(path.rfind('/') + 1); }

bool continues(std::string_view name, std::string_view comm) {
    return name.size() > comm.size() && name.size() <= nameLimit && name.starts_with(comm);
}

}  // namespace

std::string_view wholeName(std::string_view comm, std::string_view path,
                           std::string_view arguments) {
    if (comm.size() != commLimit) return comm;
    if (const auto name = lastPart(path); continues(name, comm)) return name;
    for (int i = 0; i < argumentsLookedAt && !arguments.empty(); ++i) {
        const auto argument = arguments.substr(0, arguments.find('\0'));
        // One without its end was cut by whoever read it.
        if (argument.size() == arguments.size()) break;
        arguments.remove_prefix(argument.size() + 1);
        if (const auto name = lastPart(argument); continues(name, comm)) return name;
    }
    return comm;
}

}  // namespace vtx
