// SPDX-License-Identifier: MIT
#include <cstring>

#include "Fuzz.h"
#include "ui/shell/StripPlacement.h"
#include "ui/shell/StripRecordCodec.h"

using namespace vtx;

namespace {

/// Two screens, one of them denser, as other programs left them: each 48 bytes are what one of them
/// reserves.
StripPlacement::Screens screensOf(std::span<const std::byte> input) {
    constexpr std::size_t mostStruts = 8;
    StripPlacement::Screens screens{{"one", {0, 0, 1920, 1080}, 1, {}},
                                    {"two", {1920, 0, 1280, 800}, 1.5, {}}};
    std::vector<Strut> others;
    for (; input.size() >= sizeof(Strut) && others.size() < mostStruts;
         input = input.subspan(sizeof(Strut)))
        std::memcpy(others.emplace_back().data(), input.data(), sizeof(Strut));
    for (auto& screen : screens) screen.panels = StripPlacement::panels(screen, others, screens);
    for (const auto& screen : screens) {
        const auto& [left, top, right, bottom] =
            std::array{screen.panels.left(), screen.panels.top(), screen.panels.right(),
                       screen.panels.bottom()};
        // No more than half of a screen from each side.
        for (const int across : {left, right})
            fuzz::expect(across >= 0 && across <= screen.geometry.width() / 2 + 1);
        for (const int down : {top, bottom})
            fuzz::expect(down >= 0 && down <= screen.geometry.height() / 2 + 1);
    }
    return screens;
}

/// In view on its screen, and remembered at the place where it is.
void tryPlace(const StripRecord& record, const StripPlacement::Screens& screens) {
    const auto place = StripPlacement::place(record, {300, 28}, screens);
    const auto& screen = screens.at(place.screen);
    fuzz::expect(place.edge == record.edge);
    fuzz::expect(place.frame.isEmpty() || screen.geometry.contains(place.frame));
    if (const auto strut = StripPlacement::strut(place, screens))
        fuzz::expect((*strut)[2] == 0 || (*strut)[3] == 0);
    const auto again = StripPlacement::drop(place.frame, place.frame.center(), screens);
    fuzz::expect(again.gap >= 0 && again.top >= 0);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto input = fuzz::asInputBytes(data, size);
    const auto screens = screensOf(input);
    tryPlace(StripPlacement::initial(screens), screens);
    const auto record = StripRecordCodec::decode(input);
    if (!record) return 0;
    fuzz::expect(record->gap >= 0 && record->gap <= 100'000);
    fuzz::expect(record->top >= 0 && record->top <= 100'000);
    tryPlace(*record, screens);
    // What was understood is written and read again without a loss, unless it grows beyond what
    // is read.
    const Data stored = StripRecordCodec::encode(*record);
    const auto again = StripRecordCodec::decode(stored);
    fuzz::expect(again ? *again == *record : stored.size() > 4096);
    return 0;
}
