// SPDX-License-Identifier: MIT
#include "Fuzz.h"
#include "platform/linux/ControlGroup.h"
#include "platform/linux/ProcessListing.h"
#include "platform/linux/SystemSoftware.h"

using namespace vtx;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto text = fuzz::asInputText(data, size);
    const auto path = controlGroupPath(text);
    fuzz::expect(path.size() <= text.size());
    const auto role = controlGroupRole(path);
    const bool isSystems = isSystemSoftware(role, path, text);
    fuzz::expect(role != ControlGroupRole::application || !isSystems);
    fuzz::expect(role != ControlGroupRole::system || isSystems);
    const auto last = ProcessListing::lastPid(text);
    fuzz::expect(!last || *last > 0);
    return 0;
}
