// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "base/Data.h"
#include "platform/RegistryObject.h"

namespace vtx {

class SMCUserClient;

/// Counts the machine's fans once, with a short form of the SMC's protocol that needs no key
/// information: key and command alone. Keeps nothing: a connection is opened and closed for each
/// read. Main executor.
class FanCountReader {
public:
    /// The port must outlive the reader.
    explicit FanCountReader(SMCUserClient& smc) : smc_(smc) {}

    /// What "FNum" says or, where it cannot be read, how many fans from the first on tell a speed,
    /// at most ten. 0 where there is no SMC.
    [[nodiscard]] std::int64_t count();

private:
    [[nodiscard]] std::optional<Data> readBytes(const RegistryEntry& service, std::string_view key);

    SMCUserClient& smc_;
};

}  // namespace vtx
