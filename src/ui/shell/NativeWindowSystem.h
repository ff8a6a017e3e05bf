// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "ui/shell/WindowSystem.h"

namespace vtx {

/// The window system that the toolkit is connected to. After the application object was made.
[[nodiscard]] std::unique_ptr<WindowSystem> nativeWindowSystem();

}  // namespace vtx
