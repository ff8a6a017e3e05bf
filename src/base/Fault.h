// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "base/Log.h"

namespace vtx {

/// Ends the program over a mistake of its own code, as opposed to anything that the machine or the
/// user can do. The message goes to the log and to standard error, for there may be no sink yet.
[[noreturn]] inline void programmingFault(std::string_view message) {
    AppLog::app.error("{}", message);
    std::fprintf(stderr, "vantrix: %.*s\n", static_cast<int>(message.size()), message.data());
    std::abort();
}

}  // namespace vtx
