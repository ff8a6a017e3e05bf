// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "platform/IOReportLibrary.h"
#include "platform/linux/CoreChannels.h"

namespace vtx {

/// The library with the one group that Linux can tell: "CPU Core Performance States" of "CPU
/// Stats", by `CoreResidencies`. Not there where the machine has no cpufreq or none that tells a
/// clock. Files are read when a sample is taken, and kept open as long as the subscription. Owned
/// by the platform; outlives what it gave.
class LinuxIOReportLibrary final : public IOReportLibrary {
public:
    LinuxIOReportLibrary(const LinuxRoot& root, const LinuxProcessors& processors,
                         const CpuFreq& cpuFreq);

    [[nodiscard]] std::unique_ptr<IOReport> open(const char* path, int mode) override;

private:
    const LinuxRoot& root_;
    const LinuxProcessors& processors_;
    const std::shared_ptr<const CoreChannels> channels_;
};

}  // namespace vtx
