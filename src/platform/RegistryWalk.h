// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "platform/KernReturn.h"
#include "platform/RegistryObject.h"

namespace vtx {

/// Which services a search is for. Made with each tick, it copies nothing: the name is that of the
/// one who asked for it, a literal as a rule, and outlives it.
struct ServiceMatch {
    std::string_view className;
};

/// The answer of a search or of a walk to the children.
struct RegistryWalk {
    KernReturn result = kernFailure;
    /// May be null on success too: then there is nothing to walk.
    RegistryIterator iterator;
};

}  // namespace vtx
