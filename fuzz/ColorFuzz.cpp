// SPDX-License-Identifier: MIT
#include "Fuzz.h"
#include "ui/models/ChartTints.h"
#include "ui/models/SettingsActs.h"

using namespace vtx;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto text = fuzz::asInputText(data, size);
    const SeriesTint fallback{SeriesRole::gpu};
    const SeriesTint tint = ChartTints::color(text, fallback);
    fuzz::expect(tint.role == fallback.role);
    if (!tint.own) return 0;
    // A colour that was understood is written as the settings write it, and understood the same.
    const auto part = [](std::uint8_t byte) { return byte / 255.0; };
    const std::string written =
        settings::encodeHex(part(tint.own->red), part(tint.own->green), part(tint.own->blue));
    fuzz::expect(written.size() == 7 && ChartTints::color(written, fallback) == tint);
    return 0;
}
