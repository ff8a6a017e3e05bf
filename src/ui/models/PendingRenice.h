// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "base/UUID.h"
#include "processes/ProcessSnapshot.h"
#include "ui/models/DialogModel.h"

namespace vtx {

/// A change of a priority that the user asked for and has yet to confirm: of the process as it was
/// when its menu was opened.
struct PendingRenice {
    UUID id = UUID::random();
    ProcessSnapshot snapshot = {};
    std::int32_t nice = 0;

    /// The priority in words.
    [[nodiscard]] std::string label() const;
};

/// The question whether to do it.
[[nodiscard]] DialogModel describeConfirmation(const PendingRenice& pending);
/// That it could not be done; `why` is a sentence.
[[nodiscard]] DialogModel describeReniceFailure(std::string why);

}  // namespace vtx
