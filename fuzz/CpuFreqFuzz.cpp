// SPDX-License-Identifier: MIT
#include <string>

#include "Fuzz.h"
#include "platform/linux/CpuFreqText.h"
#include "platform/linux/Parse.h"

using namespace vtx;

namespace {

void tryNumbers(std::string_view text) {
    const auto numbers = parseNumbers(text);
    if (!numbers) return;
    fuzz::expect(numbers->size() <= 16'384);
    std::string written;
    for (const auto number : *numbers) written += std::to_string(number) + " ";
    fuzz::expect(parseNumbers(written) == numbers);
}

void tryTimes(std::string_view text) {
    const auto times = parseTimeInState(text);
    if (!times) return;
    fuzz::expect(!times->empty());
    std::string written;
    for (const auto& [kHz, ticks] : *times) {
        fuzz::expect(isClock(kHz));
        written += std::to_string(kHz) + " " + std::to_string(ticks) + "\n";
    }
    fuzz::expect(parseTimeInState(written) == times);
    // A number that was cut is no number.
    written.pop_back();
    fuzz::expect(!parseTimeInState(written));
}

void tryList(std::string_view text) {
    const auto list = parseCpuList(text);
    if (!list) return;
    std::string written;
    for (std::size_t i = 0; i < list->size(); ++i) {
        fuzz::expect((*list)[i] < cpuNumberLimit && (i == 0 || (*list)[i - 1] < (*list)[i]));
        if (i > 0) written += ',';
        written += std::to_string((*list)[i]);
    }
    fuzz::expect(parseCpuList(written) == list);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto text = fuzz::asInputText(data, size);
    tryNumbers(text);
    tryTimes(text);
    tryList(text);
    if (const auto number = parseSigned(text)) {
        fuzz::expect(parseSigned(std::to_string(*number)) == number);
        fuzz::expect(parseUnsigned(text).has_value() ==
                     (*number > 0 || trimmed(text).front() != '-'));
    }
    const auto value = fieldOf(text, "key");
    fuzz::expect(!value || (value->find('\n') == value->npos && trimmed(*value) == *value));
    // The first line of that key counts.
    fuzz::expect(fieldOf("key : a value\n" + std::string(text), "key") == "a value");
    return 0;
}
