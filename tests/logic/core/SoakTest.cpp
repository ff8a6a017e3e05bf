// SPDX-License-Identifier: MIT
// Weeks of passes, on a machine whose devices come, go and fail: nothing may grow.
#include <gtest/gtest.h>
#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <string>

#include "platform/simulated/Operations.h"
#include "support/CoordinatorBench.h"

namespace vtx {
namespace {

constexpr int hoursToSettle = 1;
/// What may lie about at one moment and not at another: a queue's last block, a longer text.
constexpr std::size_t slackBytes = 64 << 10;

// Four unless VANTRIX_SOAK_DAYS says otherwise, as the long run of all tests does.
int hours() {
    const char* const days = std::getenv("VANTRIX_SOAK_DAYS");
    return days ? std::max(std::atoi(days), 1) * 24 : 4;
}

/// A machine that somebody works at, with a coordinator that is never torn down.
class WorkingMachine {
public:
    WorkingMachine() {
        bench_.mac.live(1);
        bench_.coordinator.start();
    }

    /// An hour of it, most of it with all surfaces closed, as a machine spends its time.
    void hour() {
        spend(PollingMode::active, seconds(60));
        disturb();
        spend(PollingMode::background, seconds(1140));
        spend(PollingMode::batterySaver, seconds(1800));
        bench_.sleepMachine(seconds(600));
        bench_.settle();
        bench_.log.clear();
    }

    [[nodiscard]] std::size_t outstanding() { return bench_.platform.outstanding(); }
    [[nodiscard]] std::size_t passes() { return bench_.samples(); }

private:
    void spend(PollingMode mode, Duration span) {
        bench_.coordinator.setPollingMode(mode);
        bench_.advance(span);
    }
    /// Devices come and go, and calls fail, while a surface is open.
    void disturb() {
        auto& network = bench_.mac.network;
        auto& usb = network.interfaces.emplace_back();
        usb.name = "en8";
        usb.addresses = {"192.0.2.99"};
        bench_.failures.failNext(operations::getifaddrs, 1, 12);
        bench_.failures.failNext(operations::getMatchingServices);
        bench_.failures.failNext(operations::hostProcessorInfo);
        // One drive, again and again: what is known of a drive is kept for good.
        const auto drive = bench_.mac.registry.ofClass("IOBlockStorageDriver").front();
        bench_.mac.disks.setCounters(drive, {});
        bench_.advance(seconds(5));
        network.remove("en8");
    }

    CoordinatorBench bench_;
};

/// Bytes that are in use. 0 where a sanitizer does the allocating.
std::size_t bytesInUse() {
    const auto facts = ::mallinfo2();
    return facts.uordblks + facts.hblkhd;
}

TEST(Soak, days_of_passes_leave_the_memory_as_it_was) {
    WorkingMachine machine;
    for (int hour = 0; hour < hoursToSettle; ++hour) machine.hour();
    const std::size_t bytes = bytesInUse();
    const std::size_t handles = machine.outstanding();
    const std::size_t passes = machine.passes();
    for (int hour = hoursToSettle; hour < hours(); ++hour) machine.hour();
    EXPECT_LE(bytesInUse(), bytes + slackBytes);
    EXPECT_EQ(machine.outstanding(), handles);
    EXPECT_GT(machine.passes(), passes + 1000);
    RecordProperty("passes", std::to_string(machine.passes()));
}

}  // namespace
}  // namespace vtx
