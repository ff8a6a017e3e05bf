// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace vtx::bench {

/// The popover's sections on this machine after a first start.
struct Sections {
    int count = 0;
    /// The place of the process list, from 1.
    int processes = 0;

    /// Those that have a key, the process list last: it begins at a field for text.
    [[nodiscard]] std::vector<int> inOrderOfUse() const;
};
[[nodiscard]] Sections sectionsOfAFirstStart();

}  // namespace vtx::bench
