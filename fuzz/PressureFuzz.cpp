// SPDX-License-Identifier: MIT
#include "Fuzz.h"
#include "platform/linux/PressureText.h"

using namespace vtx;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto pressure = parseMemoryPressure(fuzz::asInputText(data, size));
    if (!pressure) return 0;
    for (const auto& line : {pressure->some, pressure->full})
        fuzz::expect(line.avg10 >= 0.0 && line.avg10 < 101.0);
    return 0;
}
