// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

namespace vtx {

/// Asks which process has the window in front: the window manager tells the window, and the window
/// the process. Each call waits for the X server twice. Absent where no window is in front, as
/// under XWayland while another kind of window is, and where the window does not say whose it is.
/// Empty where the toolkit is not connected to an X server, which is asked for once. To be called
/// on the main executor, while the toolkit runs.
[[nodiscard]] std::function<std::optional<std::int32_t>()> x11FrontmostProcess();

}  // namespace vtx
