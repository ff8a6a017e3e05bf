// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "app/VantrixApp.h"

namespace vtx {

/// Reads the arguments of a program into `options`. The exit code if the program is done with
/// that: after --help or --version, or with a complaint on standard error.
std::optional<int> readCommandLine(int argc, const char* const* argv, LaunchOptions& options);

}  // namespace vtx
