// SPDX-License-Identifier: MIT
#include "Fuzz.h"
#include "core/PreferencesCodec.h"

using namespace vtx;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto preferences = decodePreferences(fuzz::asInputBytes(data, size));
    if (!preferences) return 0;
    // What can be written is read again without a loss.
    if (const auto encoded = encodePreferences(*preferences))
        fuzz::expect(decodePreferences(*encoded) == preferences);
    return 0;
}
