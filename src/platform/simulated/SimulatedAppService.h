// SPDX-License-Identifier: MIT
#pragma once

#include "platform/AppService.h"
#include "platform/simulated/Instruments.h"

namespace vtx {

/// The login item of the simulated machine. Main executor.
class SimulatedAppService final : public AppService {
public:
    explicit SimulatedAppService(Instruments& instruments) : instruments_(instruments) {}

    [[nodiscard]] std::int64_t status() const override;
    [[nodiscard]] std::optional<std::string> registerService() override;
    [[nodiscard]] std::optional<std::string> unregisterService() override;

    /// As if the user changed it elsewhere. Any number.
    void setStatus(std::int64_t status) { status_ = status; }

private:
    std::optional<std::string> change(std::string_view operation, std::int64_t status);

    Instruments& instruments_;
    std::int64_t status_ = 0;
};

}  // namespace vtx
