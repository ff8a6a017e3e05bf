// SPDX-License-Identifier: MIT
#include "Fuzz.h"
#include "platform/simulated/SimulatedUserDefaults.h"
#include "smc/PersistentDenylistStore.h"

using namespace vtx;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    SimulatedUserDefaults defaults({{"stored", toData(fuzz::asInputText(data, size))}});
    const auto keys = PersistentDenylistStore::load(defaults, "stored");
    if (!keys) return 0;
    // What was read can be written, and is the same when it is read again.
    const SensorKeySet all(keys->begin(), keys->end());
    PersistentDenylistStore::save(defaults, "again", all);
    const auto again = PersistentDenylistStore::load(defaults, "again");
    fuzz::expect(again && SensorKeySet(again->begin(), again->end()) == all);
    return 0;
}
