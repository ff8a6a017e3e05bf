// SPDX-License-Identifier: MIT
#include <string>

#include "Fuzz.h"
#include "platform/linux/DeviceChanges.h"
#include "platform/linux/LinkKinds.h"

using namespace vtx;

namespace {

/// The input without what would end its line.
std::string wordOf(std::string_view text) {
    std::string word(text);
    std::erase(word, '\n');
    return word;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto text = fuzz::asInputText(data, size);
    const auto value = ueventValue(text, "DEVTYPE");
    // What is found stands in the text behind its key, and ends with its line.
    fuzz::expect(value.find('\n') == value.npos);
    fuzz::expect(value.empty() || text.find("DEVTYPE=" + std::string(value)) != text.npos);
    // A line before all others is the one that counts.
    const auto word = wordOf(text);
    const auto whole = "DEVTYPE=" + word + "\n" + std::string(text);
    fuzz::expect(ueventValue(whole, "DEVTYPE") == word);
    fuzz::expect(ueventValue("X" + whole, "DEVTYPE") == value);

    const auto at = text.find('@');
    const bool isChange = announcesDeviceChange(text);
    fuzz::expect(!isChange || at != text.npos);
    // Nothing counts but the word before the first sign.
    if (at != text.npos)
        fuzz::expect(isChange == announcesDeviceChange(std::string(text.substr(0, at)) + "@/x"));
    fuzz::expect(announcesDeviceChange("add@" + std::string(text)));
    fuzz::expect(!announcesDeviceChange("change@" + std::string(text)));
    return 0;
}
