// SPDX-License-Identifier: MIT
#include "platform/linux/DescriptorLimit.h"

#include <sys/resource.h>

#include <algorithm>

namespace vtx {

namespace {

/// As the program was started; 0 where the limit was never raised.
rlim_t startedWith = 0;

}  // namespace

void raiseDescriptorLimit(std::size_t wanted) {
    rlimit limit{};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0) return;
    const rlim_t raised = std::min<rlim_t>(wanted, limit.rlim_max);
    if (raised <= limit.rlim_cur) return;
    const rlim_t before = limit.rlim_cur;
    limit.rlim_cur = raised;
    // Without it fewer stay open.
    if (::setrlimit(RLIMIT_NOFILE, &limit) == 0 && startedWith == 0) startedWith = before;
}

void restoreDescriptorLimit() {
    rlimit limit{};
    if (startedWith == 0 || ::getrlimit(RLIMIT_NOFILE, &limit) != 0) return;
    limit.rlim_cur = startedWith;
    (void)::setrlimit(RLIMIT_NOFILE, &limit);
}

}  // namespace vtx
