// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "ui/shell/StatusItem.h"

namespace vtx {

class UserDefaults;
class WindowSystem;

/// The status item that this window system allows. Both must outlive it.
[[nodiscard]] std::unique_ptr<StatusItem> makeStatusItem(WindowSystem& system,
                                                         UserDefaults& defaults);

}  // namespace vtx
