// SPDX-License-Identifier: MIT
#pragma once

#include "platform/IOReportLibrary.h"
#include "platform/simulated/Instruments.h"
#include "platform/simulated/SimulatedChannels.h"

namespace vtx {

/// The private library over what the simulated chip counts. Any thread once it is open.
class SimulatedIOReportLibrary final : public IOReportLibrary {
public:
    SimulatedIOReportLibrary(SimulatedChannels& channels, Instruments& instruments)
        : channels_(channels), instruments_(instruments) {}

    [[nodiscard]] std::unique_ptr<IOReport> open(const char* path, int mode) override;

private:
    SimulatedChannels& channels_;
    Instruments& instruments_;
};

}  // namespace vtx
