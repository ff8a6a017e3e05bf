// SPDX-License-Identifier: MIT
#include "Fuzz.h"
#include "platform/linux/CpuFreqText.h"
#include "platform/linux/Parse.h"

using namespace vtx;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto text = fuzz::asInputText(data, size);
    (void)parseNumbers(text);
    if (const auto times = parseTimeInState(text))
        for (const auto& time : *times) fuzz::expect(isClock(time.kHz));
    if (const auto list = parseCpuList(text))
        for (std::size_t i = 1; i < list->size(); ++i) fuzz::expect((*list)[i - 1] < (*list)[i]);
    (void)fieldOf(text, "key");
    (void)parseSigned(text);
    return 0;
}
