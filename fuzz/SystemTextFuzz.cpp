// SPDX-License-Identifier: MIT
// Short texts of the system that are read once or now and then.
#include "Fuzz.h"
#include "platform/linux/IntelLoad.h"
#include "platform/linux/LinuxHeapRelief.h"
#include "platform/linux/LinuxProcessInfo.h"
#include "platform/linux/Parse.h"

using namespace vtx;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    auto text = fuzz::asInputText(data, size);
    const auto name = LinuxProcessInfo::prettyName(text);
    fuzz::expect(!name || (!name->empty() && name->size() <= size));
    const auto held = LinuxHeapRelief::heldBytes(text);
    fuzz::expect(!held || *held >= 0);
    // Two counters and the time between them.
    const auto before = parseUnsigned(takeLine(text));
    const auto now = parseUnsigned(takeLine(text));
    const auto span = parseUnsigned(takeLine(text));
    constexpr std::uint64_t longest = 1'000'000'000'000;
    if (!before || !now || !span || *span > longest) return 0;
    const auto busy = busyBetween(*before, *now, std::chrono::nanoseconds(*span));
    fuzz::expect(!busy || (*busy >= 0 && *busy <= 100));
    return 0;
}
