// SPDX-License-Identifier: MIT
#include "processes/ProcessManagerError.h"

#include <fmt/format.h>

#include <system_error>

namespace vtx {

std::string ProcessManagerError::description() const {
    switch (kind_) {
        case Kind::invalidNice:
            return fmt::format(
                "Niceness must be between 0 and 20 (got {}). macOS only lets "
                "non-root users *lower* a process's priority.",
                value_);
        case Kind::systemCallFailed:
            return fmt::format("setpriority failed (errno {}: {}).", value_,
                               std::generic_category().message(value_));
        case Kind::notModifiable:
            break;
    }
    return "This process is owned by another user, is a system service, or has a protected PID. "
           "It can't be modified.";
}

}  // namespace vtx
