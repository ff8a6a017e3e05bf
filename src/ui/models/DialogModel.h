// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace vtx {

/// What a dialog over a page says.
struct DialogModel {
    /// Before the title; empty for a question.
    std::string_view symbol;
    std::string title;
    std::string message;
    /// What Return presses.
    std::string primary;
    /// What Escape presses beside it; empty where there is nothing to decide.
    std::string cancel;

    bool operator==(const DialogModel&) const = default;
};

}  // namespace vtx
