// SPDX-License-Identifier: MIT
#include "Fuzz.h"
#include "platform/linux/DefaultsDocument.h"

using namespace vtx;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto document = parseDefaults(fuzz::asInputText(data, size));
    if (!document) return 0;
    // What was understood is written and read again without a loss.
    fuzz::expect(parseDefaults(formatDefaults(*document)) == document);
    return 0;
}
