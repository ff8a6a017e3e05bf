// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "smc/HotSpotClassifier.h"

namespace vtx {

class UserDefaults;

/// Where the hot spots that calibration found are remembered: in the user's settings, for each
/// chip, model and build of the system, as a JSON list of keys. Main executor.
struct PersistentDenylistStore {
    PersistentDenylistStore() = delete;

    [[nodiscard]] static std::string storageKey(std::string_view chip, std::string_view model,
                                                std::string_view osBuild);

    /// The stored list; absent where there is none, or something that is no list of texts.
    [[nodiscard]] static std::optional<std::vector<std::string>> load(const UserDefaults& defaults,
                                                                      std::string_view storageKey);
    /// Stores the keys in ascending order.
    static void save(UserDefaults& defaults, std::string_view storageKey, const SensorKeySet& keys);
};

}  // namespace vtx
