// SPDX-License-Identifier: MIT
#include "Fuzz.h"
#include "platform/linux/NetDevice.h"
#include "platform/linux/Parse.h"

using namespace vtx;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    auto text = fuzz::asInputText(data, size);
    while (!text.empty()) {
        const auto line = parseNetDeviceLine(takeLine(text));
        fuzz::expect(!line || !line->name.empty());
    }
    return 0;
}
