// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/KernReturn.h"
#include "platform/RegistryObject.h"

namespace vtx {

/// Which services a search is for.
struct ServiceMatch {
    std::string className;
};

/// The answer of a search or of a walk to the children.
struct RegistryWalk {
    KernReturn result = kernFailure;
    /// May be null on success too: then there is nothing to walk.
    RegistryIterator iterator;
};

}  // namespace vtx
