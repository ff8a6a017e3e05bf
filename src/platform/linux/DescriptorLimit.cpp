// SPDX-License-Identifier: MIT
#include "platform/linux/DescriptorLimit.h"

#include <sys/resource.h>

#include <algorithm>

namespace vtx {

void raiseDescriptorLimit(std::size_t wanted) {
    rlimit limit{};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0) return;
    const rlim_t raised = std::min<rlim_t>(wanted, limit.rlim_max);
    if (raised <= limit.rlim_cur) return;
    limit.rlim_cur = raised;
    (void)::setrlimit(RLIMIT_NOFILE, &limit);  // without it fewer stay open
}

}  // namespace vtx
