// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "platform/UserDefaults.h"

namespace vtx {

/// Gives every sensor a name of four characters that is the same in every run: a prefix, and
/// letters and digits that are a hash of the sensor's identity. Of two sensors with one name the
/// second one gets the next that is free, and that choice is stored, so that it holds whichever of
/// the two is found first from then on. Owned by the key store; main executor, as the settings are.
class SensorKeyNames {
public:
    using Hash = std::function<std::uint64_t(std::string_view)>;

    /// FNV-1a of 64 bits: the same on every machine and in every version.
    [[nodiscard]] static std::uint64_t stableHash(std::string_view text);
    /// Under which the choices stand in the settings: a line each, the name, a blank and the
    /// identity, whose bytes beyond printable ASCII are "%" and two hexadecimal digits.
    static constexpr std::string_view settingsKey = "linux.sensorKeys.v1";
    /// More are not stored; a machine has none as a rule.
    static constexpr std::size_t mostStored = 1024;

    explicit SensorKeyNames(UserDefaults& defaults, Hash hash = stableHash);

    /// The prefix has one to three characters. Absent where all its names are taken.
    [[nodiscard]] std::optional<std::string> nameOf(std::string_view prefix,
                                                    std::string_view identity);
    /// Stores the choices that came since the last time.
    void store();

private:
    void load();
    [[nodiscard]] std::optional<std::string> choose(std::string_view prefix,
                                                    std::string_view identity);

    UserDefaults& defaults_;
    const Hash hash_;
    /// By prefix and identity.
    using Owner = std::pair<std::string, std::string>;
    std::map<Owner, std::string> names_;
    std::map<std::string, Owner, std::less<>> owners_;  ///< of names that are taken
    std::map<std::string, std::string> chosen_;         ///< name to identity, those that gave way
    bool hasNews_ = false;
};

}  // namespace vtx
