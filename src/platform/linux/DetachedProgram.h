// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace vtx {

/// Starts a program that goes on by itself, in a session of its own, with the signals as a program
/// finds them at first and without this program's descriptors. It is searched for by PATH unless
/// it has a slash. False where not even the attempt could be made.
bool startDetached(const std::vector<std::string>& command);

}  // namespace vtx
