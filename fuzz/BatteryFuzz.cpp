// SPDX-License-Identifier: MIT
#include <array>

#include "Fuzz.h"
#include "platform/linux/BatteryFacts.h"

using namespace vtx;

// The input is one battery, or two with a zero byte between them.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto text = fuzz::asInputText(data, size);
    const auto end = text.find('\0');
    const std::array both{parseBatteryFacts(text.substr(0, end)),
                          parseBatteryFacts(end == text.npos ? text : text.substr(end + 1))};
    for (const std::size_t count : {1U, 2U}) {
        const auto state = mergeBatteries(std::span(both).first(count));
        fuzz::expect(!state.percent || (*state.percent >= 0 && *state.percent <= 100));
        for (const auto& minutes : {state.minutesToEmpty, state.minutesToFull})
            fuzz::expect(!minutes || (*minutes >= 0 && *minutes <= 6000));
        fuzz::expect(!state.minutesToEmpty || !state.minutesToFull);
        fuzz::expect(!state.currentMAh || *state.currentMAh >= 0);
        if (count == 1 && state.currentMAh && state.maxMAh)
            fuzz::expect(*state.currentMAh <= *state.maxMAh * 2 + 2);
    }
    return 0;
}
