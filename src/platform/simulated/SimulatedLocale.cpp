// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedLocale.h"

#include "platform/simulated/Operations.h"

namespace vtx {

std::vector<std::string> SimulatedLocale::preferredLanguages() const {
    instruments_.counter.count(operations::preferredLanguages);
    return mac_.preferredLanguages;
}

}  // namespace vtx
