// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "processes/ProcessSnapshot.h"

namespace vtx {

class Locale;

/// What a user types to find a process: part of a name, in capitals or not, or of a number. Blanks
/// around it do not count, and nothing else finds all. A value for one use; the locale outlives it.
class ProcessFilter {
public:
    ProcessFilter(std::string_view search, const Locale& locale);

    [[nodiscard]] bool matches(const ProcessSnapshot& process) const;
    /// Those that match, in their order.
    [[nodiscard]] std::vector<ProcessSnapshot> of(const std::vector<ProcessSnapshot>& all) const;

private:
    std::string text_;  ///< trimmed, in small letters
    const Locale& locale_;
};

/// Without the blanks and line ends of every script at both ends.
[[nodiscard]] std::string_view trimmedOfBlanks(std::string_view text);

}  // namespace vtx
