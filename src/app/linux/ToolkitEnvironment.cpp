// SPDX-License-Identifier: MIT
#include "app/linux/ToolkitEnvironment.h"

#include <QByteArray>

namespace vtx {

void settleToolkitEnvironment() {
    const auto byDefault = [](const char* name, const QByteArray& value) {
        if (!qEnvironmentVariableIsSet(name)) qputenv(name, value);
    };
    // The desktop's own theme plugin would bring a second toolkit into memory.
    byDefault("QT_QPA_PLATFORMTHEME", "generic");
    // Shared memory costs a round trip and two wake-ups for each repaint of a few kilobytes.
    byDefault("QT_XCB_NO_MITSHM", "1");
}

}  // namespace vtx
