// SPDX-License-Identifier: MIT
#include "ui/shell/StatusItemFactory.h"

#include "ui/shell/NormalWindowStatusItem.h"
#include "ui/shell/StripStatusItem.h"
#include "ui/shell/WindowSystem.h"

namespace vtx {

std::unique_ptr<StatusItem> makeStatusItem(WindowSystem& system, UserDefaults& defaults) {
    if (system.placesWindows()) return std::make_unique<StripStatusItem>(system, defaults);
    return std::make_unique<NormalWindowStatusItem>();
}

}  // namespace vtx
