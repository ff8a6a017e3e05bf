// SPDX-License-Identifier: MIT
// Bytes as text, text as bytes, and what a user types to find something.
#include <algorithm>

#include "Fuzz.h"
#include "base/Utf8.h"
#include "platform/linux/Base64.h"
#include "platform/linux/FileURI.h"
#include "platform/linux/LetterCase.h"
#include "processes/ProcessFilter.h"

using namespace vtx;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto text = fuzz::asInputText(data, size);
    const auto bytes = fuzz::asInputBytes(data, size);

    const auto whole = fromBase64(toBase64(bytes));
    fuzz::expect(whole && std::ranges::equal(*whole, bytes));
    if (const auto decoded = fromBase64(text)) fuzz::expect(toBase64(*decoded) == text);

    const std::string repaired = repairedUtf8(text);
    fuzz::expect(repairedUtf8(repaired) == repaired);
    fuzz::expect(std::ranges::all_of(fileURI(text), [](char c) { return c > ' ' && c < 0x7f; }));

    const auto typed = trimmedOfBlanks(text);
    fuzz::expect(text.find(typed) != text.npos && trimmedOfBlanks(typed) == typed);
    static const LetterCase letters;
    const std::string small = letters.lowercased(text);
    fuzz::expect(repairedUtf8(small) == small);
    fuzz::expect(letters.lowercased(small) == small);
    return 0;
}
