// SPDX-License-Identifier: MIT
#include "linux/TemporaryTree.h"

namespace vtx::test {

std::string fixture(std::string_view machine) {
    return std::string(VANTRIX_FIXTURES "/").append(machine);
}

}  // namespace vtx::test
