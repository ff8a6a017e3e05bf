// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The text of an autostart file, as the desktop reads it. Pure functions.
namespace vtx::autostart {

/// A fresh file that starts this program.
[[nodiscard]] std::string textFor(std::string_view executable);

/// What stands behind "Exec=" for a program at this path, quoted and escaped.
[[nodiscard]] std::string commandFor(std::string_view executable);

/// The value of a key of the group "Desktop Entry"; absent where there is none.
[[nodiscard]] std::optional<std::string> value(std::string_view text, std::string_view key);

/// The text with the key set, in the place where it stands, or at the group's end.
[[nodiscard]] std::string withValue(std::string_view text, std::string_view key,
                                    std::string_view value);

/// Whether the desktop starts what the file names: neither hidden nor turned off.
[[nodiscard]] bool isEnabled(std::string_view text);

/// The program that a command line begins with, unquoted; empty where there is none.
[[nodiscard]] std::string programOf(std::string_view command);

}  // namespace vtx::autostart
