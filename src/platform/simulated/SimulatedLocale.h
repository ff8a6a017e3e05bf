// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Locale.h"
#include "platform/simulated/Instruments.h"
#include "platform/simulated/SimulatedMac.h"

namespace vtx {

/// Language and region of the simulated machine's user. Main executor.
class SimulatedLocale final : public Locale {
public:
    SimulatedLocale(SimulatedMac& mac, Instruments& instruments)
        : mac_(mac), instruments_(instruments) {}

    [[nodiscard]] std::vector<std::string> preferredLanguages() const override;
    /// Latin letters sort by their base letter first.
    [[nodiscard]] std::string collationKey(std::string_view text) const override;
    /// Knows the letters of Latin-1.
    [[nodiscard]] std::string lowercased(std::string_view text) const override;
    /// On a clock of 24 hours, in UTC.
    [[nodiscard]] std::string timeOfDay(Date date) const override;

private:
    SimulatedMac& mac_;
    Instruments& instruments_;
};

}  // namespace vtx
