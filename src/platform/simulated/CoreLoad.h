// SPDX-License-Identifier: MIT
#pragma once

namespace vtx {

/// What one core is busy with: fractions of its time, 0 to 1, together at most 1. The rest is idle.
struct CoreLoad {
    double user = 0;
    double system = 0;
    double nice = 0;
};

}  // namespace vtx
