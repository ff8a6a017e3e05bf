// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace vtx {

/// Enough for a descriptor for each process of a busy machine.
inline constexpr std::size_t descriptorsWanted = 8192;

/// Lets this program have that many descriptors, or as many as the system allows it. Desktops
/// start programs with 1024, for the sake of those that wait by `select`, which knows no higher
/// numbers, and with a hard limit far above. To be called before the platform is made, at the
/// start, on the only thread.
void raiseDescriptorLimit(std::size_t wanted = descriptorsWanted);

/// Takes that back, in a process that is about to become another program: the limit is inherited.
/// Safe after a fork.
void restoreDescriptorLimit();

}  // namespace vtx
