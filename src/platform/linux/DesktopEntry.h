// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vtx {

/// What is read of a desktop entry, the file by which an application is installed.
struct DesktopEntry {
    /// The program and its arguments, without what stands for files to be opened. Not empty.
    std::vector<std::string> command;
    /// Runs in a terminal, so that it shows nothing by itself.
    bool needsTerminal = false;
    /// Not to be offered: it counts as not installed.
    bool isHidden = false;
};

/// Absent where the text is no such entry, or one without a program.
[[nodiscard]] std::optional<DesktopEntry> parseDesktopEntry(std::string_view text);

}  // namespace vtx
