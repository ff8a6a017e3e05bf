// SPDX-License-Identifier: MIT
#include <algorithm>

#include "Fuzz.h"
#include "core/PreferencesCodec.h"
#include "platform/simulated/SimulatedUserDefaults.h"

using namespace vtx;

namespace {

bool isKnown(const std::string& tile) {
    const auto& known = DisplayPreferences::knownTileIDs;
    return std::ranges::find(known, tile) != known.end();
}

void expectUsable(const DisplayPreferences& preferences) {
    fuzz::expect(std::ranges::all_of(preferences.menuBarOrder, isKnown));
    fuzz::expect(std::ranges::all_of(preferences.compactPriority, isKnown));
    // None is lost.
    for (const auto& tile : DisplayPreferences::defaults().menuBarOrder)
        fuzz::expect(std::ranges::find(preferences.menuBarOrder, tile) !=
                     preferences.menuBarOrder.end());
    for (const auto preset : DisplayPreferences::allPresets) {
        const auto& changed = preferences.applyingPreset(preset);
        fuzz::expect(changed.languageCode == preferences.languageCode);
    }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto stored = fuzz::asInputBytes(data, size);
    const auto preferences = decodePreferences(stored);
    SimulatedUserDefaults defaults({{std::string(DisplayPreferences::storedKeys.front()),
                                     Data(stored.begin(), stored.end())}});
    // What is loaded can be worked with, whatever was stored.
    const auto loaded = DisplayPreferences::load(defaults);
    expectUsable(loaded);
    fuzz::expect(loaded.refreshIntervalSeconds >= DisplayPreferences::minRefreshIntervalSeconds &&
                 loaded.refreshIntervalSeconds <= DisplayPreferences::maxRefreshIntervalSeconds);
    if (!preferences) {
        fuzz::expect(loaded == DisplayPreferences::defaults());
        return 0;
    }
    expectUsable(*preferences);
    // What was read can be written, and is read again without a loss.
    const auto encoded = encodePreferences(*preferences);
    fuzz::expect(encoded && decodePreferences(*encoded) == preferences);
    return 0;
}
