// SPDX-License-Identifier: MIT
#include "Fuzz.h"
#include "ui/shell/StripRecordCodec.h"

using namespace vtx;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto record = StripRecordCodec::decode(fuzz::asInputBytes(data, size));
    if (!record) return 0;
    fuzz::expect(record->gap >= 0 && record->gap <= 100'000);
    fuzz::expect(record->top >= 0 && record->top <= 100'000);
    // What was understood is written and read again without a loss, unless it grows beyond what
    // is read.
    const Data stored = StripRecordCodec::encode(*record);
    const auto again = StripRecordCodec::decode(stored);
    fuzz::expect(again ? *again == *record : stored.size() > 4096);
    return 0;
}
