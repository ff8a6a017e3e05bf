// SPDX-License-Identifier: MIT
#include "ui/models/PendingRenice.h"

#include <fmt/format.h>

#include <utility>

namespace vtx {

std::string PendingRenice::label() const {
    if (nice == 0) return "Default priority";
    if (nice >= 1 && nice <= 9) return "Lower priority";
    if (nice >= 10 && nice <= 20) return "Lowest priority (prefer E-cores)";
    return fmt::format("Nice = {}", nice);
}

DialogModel describeConfirmation(const PendingRenice& pending) {
    DialogModel dialog;
    dialog.title = fmt::format("Set \"{}\" to {}", pending.snapshot.name, pending.label());
    dialog.message = fmt::format(
        "PID {}. This biases the kernel scheduler — it does not pin the process to specific "
        "cores. The setting is reverted when the process restarts.",
        pending.snapshot.pid);
    dialog.primary = "Apply";
    dialog.cancel = "Cancel";
    return dialog;
}

DialogModel describeReniceFailure(std::string why) {
    DialogModel dialog;
    dialog.symbol = "exclamationmark.triangle.fill";
    dialog.title = "Couldn't change priority";
    dialog.message = std::move(why);
    dialog.primary = "OK";
    return dialog;
}

}  // namespace vtx
