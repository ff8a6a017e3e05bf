// SPDX-License-Identifier: MIT
#include "Fuzz.h"
#include "platform/linux/DeviceChanges.h"
#include "platform/linux/LinkKinds.h"

using namespace vtx;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto text = fuzz::asInputText(data, size);
    (void)announcesDeviceChange(text);
    fuzz::expect(ueventValue(text, "DEVTYPE").size() <= size);
    return 0;
}
