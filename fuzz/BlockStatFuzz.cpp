// SPDX-License-Identifier: MIT
#include "Fuzz.h"
#include "platform/linux/BlockStat.h"

using namespace vtx;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto text = fuzz::asInputText(data, size);
    const auto stat = parseBlockStat(text);
    fuzz::expect(!stat || (stat->bytesRead % 512 == 0 && stat->bytesWritten % 512 == 0));
    // A cut text never gives other numbers than the whole one.
    if (stat && size > 0) {
        const auto cut = parseBlockStat(text.substr(0, size - 1));
        fuzz::expect(!cut || cut == stat);
    }
    return 0;
}
