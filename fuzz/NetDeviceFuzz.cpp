// SPDX-License-Identifier: MIT
#include <cstring>
#include <string>

#include "Fuzz.h"
#include "platform/linux/NetDevice.h"
#include "platform/linux/Parse.h"

using namespace vtx;

namespace {

/// A line as the kernel writes it, of the same name and counters, and what is read of it.
void tryKnown(std::string_view name, std::uint64_t in, std::uint64_t out) {
    const auto line = "  " + std::string(name) + ": " + std::to_string(in) + "    1 0 0 0 0 0 0 " +
                      std::to_string(out) + " 1 0 0 0 0 0 0";
    fuzz::expect(parseNetDeviceLine(line) == NetDeviceLine{name, in, out});
    // One that was cut within a counter tells nothing.
    const auto cut = line.substr(0, line.size() - std::strlen(" 1 0 0 0 0 0 0"));
    fuzz::expect(!parseNetDeviceLine(cut));
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    auto text = fuzz::asInputText(data, size);
    std::uint64_t in = 0, out = 0;
    if (size >= 2 * sizeof in) {
        std::memcpy(&in, data, sizeof in);
        std::memcpy(&out, data + sizeof in, sizeof out);
    }
    tryKnown("eth0", in, out);
    while (!text.empty()) {
        const auto line = takeLine(text);
        const auto parsed = parseNetDeviceLine(line);
        if (!parsed) continue;
        fuzz::expect(!parsed->name.empty() && parsed->name == trimmed(parsed->name));
        fuzz::expect(parsed->name.find(':') == std::string_view::npos);
        // Each number stands in the line as it was read.
        const auto numbers = line.substr(line.find(':'));
        fuzz::expect(numbers.find(std::to_string(parsed->bytesOut)) != numbers.npos);
        tryKnown(parsed->name, parsed->bytesIn, parsed->bytesOut);
    }
    return 0;
}
