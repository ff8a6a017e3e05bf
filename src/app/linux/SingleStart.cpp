// SPDX-License-Identifier: MIT
#include "app/linux/SingleStart.h"

#include <cstdio>

#include "app/VantrixApp.h"
#include "platform/linux/SessionInstance.h"

namespace vtx {

std::optional<int> handOverToFirst(SessionInstance& instance, const LaunchOptions& options) {
    if (!options.picturesFolder.isEmpty()) return std::nullopt;
    switch (instance.claim()) {
        case SessionInstance::Claim::handedOver:
            return 0;
        case SessionInstance::Claim::unanswered:
            std::fputs("vantrix: another one runs in this session and does not answer\n", stderr);
            return 1;
        case SessionInstance::Claim::first:
        case SessionInstance::Claim::noBus:
            break;
    }
    return std::nullopt;
}

}  // namespace vtx
