// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

namespace vtx {

class X11Connection;

/// Which process has the window in front: the window manager tells the window, and the window the
/// process. Waits for the X server three times. Absent where no window is in front, as under
/// XWayland while another kind of window is, where the window does not say whose it is, and where
/// its program runs on another machine.
[[nodiscard]] std::optional<std::int32_t> x11FrontmostProcess(X11Connection& x11);

/// Asks that of the server that the toolkit is connected to. Empty where that is no X server, which
/// is asked for once. To be called on the main executor, while the toolkit runs.
[[nodiscard]] std::function<std::optional<std::int32_t>()> x11FrontmostProcess();

}  // namespace vtx
